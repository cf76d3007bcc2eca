#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"

namespace ttconfig {

// Known names, used to guess what an unknown one was meant to be. Names that resemble nothing cost little, however many
// are looked up.
class NameIndex {
public:
    explicit NameIndex(std::vector<std::string_view> known);

    // The known name that differs only in letter case; empty when there is none.
    std::string_view inOtherCase(std::string_view name) const;
    // "; did you mean NAME?", or nothing. The first few hundred look-ups allow slips in a third of the letters, later
    // ones only a single slip.
    std::string didYouMean(std::string_view name);

private:
    struct Known {
        std::string_view name;
        std::uint64_t letters;
    };

    std::vector<Known> names;
    std::unordered_map<std::string, std::string_view> byLowerCase;
    std::size_t thorough = 0;
};

// The sections and keys that the library reads from a settings file.
class KnownNames {
public:
    KnownNames();

    // The row of a key, or of the section's "*" if it has one; null when nothing reads the key.
    const ttservice::internal::SettingKey* rowOf(std::string_view section, std::string_view key) const;
    // The row of a key of that name in any section.
    const ttservice::internal::SettingKey* rowAnywhere(std::string_view key) const;
    // The key that decides the answer to that question; empty when there is no such question or several keys decide it.
    std::string_view keyOfQuestion(std::string_view name) const;
    bool isSection(std::string_view name) const { return sections.count(name) > 0; }
    // The names to suggest.
    NameIndex& sectionIndex() { return sectionNames; }
    NameIndex& keyIndex(std::string_view section);

private:
    using Rows = std::unordered_map<std::string_view, const ttservice::internal::SettingKey*>;

    std::unordered_map<std::string_view, Rows> sections;
    Rows byKey;
    std::unordered_map<std::string_view, std::string_view> byQuestion;
    NameIndex sectionNames;
    std::unordered_map<std::string_view, NameIndex> keyNames;
};

inline constexpr std::string_view kMainSection = "setting";

// Whether both rows describe the same key.
constexpr bool isRow(const ttservice::internal::SettingKey& row, const ttservice::internal::SettingKey& other) {
    return row.number == other.number;
}

}  // namespace ttconfig

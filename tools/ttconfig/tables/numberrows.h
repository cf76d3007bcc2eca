#pragma once

#include <standin/settingstext.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "ttconfig/settings/place.h"
#include "ttconfig/tables/textrows.h"

// The sections in which every key is a name and every value its number: standard bonds and subscription fees.

namespace ttconfig {

// Hands every row that is read to sink(SettingsEntry), in file order.
template <typename Sink>
void forEachNumberRow(const standin::SettingsText& text, const ttservice::internal::SettingKey& topic, Sink&& sink) {
    TextRows(text).forEach(topic, [&sink](const standin::SettingsEntry& entry) {
        if (!entry.repeated) sink(entry);
    });
}

// The number of a row; none where the value is none, and the section's default stands for it.
std::optional<double> numberOf(const standin::SettingsEntry& row);

// A row under one of the names that find it: its key as written, or in upper case where that is another. Many of them
// are held, so the name in upper case is not.
struct NumberRow {
    const standin::SettingsEntry* entry;
    bool isUpperCase;
};

// By name, upper case as the store has it: that of the process's global locale when this is made.
class LessNumberRow {
public:
    LessNumberRow();

    bool operator()(const NumberRow& left, const NumberRow& right) const;
    std::string nameOf(const NumberRow& row) const;
    bool hasOtherUpperCase(std::string_view key) const;

private:
    char letterOf(const NumberRow& row, std::size_t at) const;

    std::array<char, 256> upper{};
};

// The rows of a section by name: of several that come to one name the first counts. Good for as long as the text is.
class NumberRows {
public:
    NumberRows(const standin::SettingsText& text, const ttservice::internal::SettingKey& topic);

    auto begin() const { return rows.begin(); }
    auto end() const { return rows.end(); }
    // Null for a name that no row comes to.
    const NumberRow* find(std::string_view name) const;

    const LessNumberRow less;

private:
    std::vector<NumberRow> rows;
};

}  // namespace ttconfig

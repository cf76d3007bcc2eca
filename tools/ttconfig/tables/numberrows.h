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

// Sections in which each key is a name and each value is its number: standard bonds and subscription fees.

namespace ttconfig {

// Passes every row to sink(SettingsEntry) in file order, except later rows of a repeated key.
template <typename Sink>
void forEachNumberRow(const standin::SettingsText& text, const ttservice::internal::SettingKey& topic, Sink&& sink) {
    TextRows(text).forEach(topic, [&sink](const standin::SettingsEntry& entry) {
        if (!entry.repeated) sink(entry);
    });
}

// The number in a row; none if the value is not a number, in which case the section's default applies.
std::optional<double> numberOf(const standin::SettingsEntry& row);

// A row under one of its names: the key as written, or the key in upper case if that differs. The upper-case name is
// not stored, because there may be many rows.
struct NumberRow {
    const standin::SettingsEntry* entry;
    bool isUpperCase;
};

// Orders rows by name. Like the store, it converts to upper case by the global locale, as of its construction.
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

// The rows of a section by name. If several rows have the same name, the first counts. Valid as long as the text is.
class NumberRows {
public:
    NumberRows(const standin::SettingsText& text, const ttservice::internal::SettingKey& topic);

    auto begin() const { return rows.begin(); }
    auto end() const { return rows.end(); }
    // Null if no row has the name.
    const NumberRow* find(std::string_view name) const;

    const LessNumberRow less;

private:
    std::vector<NumberRow> rows;
};

}  // namespace ttconfig

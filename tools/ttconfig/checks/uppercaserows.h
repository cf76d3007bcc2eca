#pragma once

#include <standin/settingstext.h>

#include <cstdint>
#include <string_view>

#include "ttconfig/text/uppercaseindex.h"

namespace ttconfig {

// The rows of a section by their keys, ignoring letter case.
class UpperCaseRows {
public:
    // The section is null when the file does not have it.
    explicit UpperCaseRows(const standin::SettingsSection* section)
        : rows{section == nullptr ? nullptr : section->entries.data()}, first(rows) {}

    // Enters a row of the section unless an earlier row has its key. Returns that row; null when there is none.
    const standin::SettingsEntry* enter(const standin::SettingsEntry& row) {
        std::uint32_t& number = first[row.key];
        if (number != 0) return rows.entries + number - 1;
        number = static_cast<std::uint32_t>(&row - rows.entries) + 1;
        return nullptr;
    }

private:
    struct Keys {
        const standin::SettingsEntry* entries;
        std::string_view operator()(std::uint32_t number) const { return entries[number - 1].key; }
    };

    Keys rows;
    UpperCaseIndex<Keys> first;
};

}  // namespace ttconfig

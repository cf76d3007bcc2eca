#pragma once

#include <standin/settingstext.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "ttconfig/text/uppercase.h"

namespace ttconfig {

// The rows of a section by their keys, letter case aside: four bytes a place, as there may be a hundred thousand.
class UpperCaseRows {
public:
    // A section that is not there has no rows to enter.
    explicit UpperCaseRows(const standin::SettingsSection* ofSection)
        : rows(ofSection == nullptr ? nullptr : ofSection->entries.data()) {}

    // Enters a row of the section, unless there is one with its key. Answers the earlier one, null when there is none.
    const standin::SettingsEntry* enter(const standin::SettingsEntry& row) {
        if (count * 3 >= places.size() * 2) grow();
        std::uint32_t& place = placeOf(row.key);
        if (place != 0) return &rows[place - 1];
        place = static_cast<std::uint32_t>(&row - rows) + 1;
        ++count;
        return nullptr;
    }

private:
    std::uint32_t& placeOf(std::string_view key) {
        const std::size_t mask = places.size() - 1;
        std::size_t number = upperHash(key) & mask;
        while (places[number] != 0 && !isSameUpper(rows[places[number] - 1].key, key))
            number = (number + 1) & mask;
        return places[number];
    }

    void grow() {
        std::vector<std::uint32_t> former(places.empty() ? 64 : places.size() * 2, 0);
        former.swap(places);
        for (const std::uint32_t number : former) {
            if (number != 0) placeOf(rows[number - 1].key) = number;
        }
    }

    const standin::SettingsEntry* rows;
    std::vector<std::uint32_t> places;  // numbers of rows from 1, 0 where free; a power of two, two thirds full at most
    std::size_t count = 0;
};

}  // namespace ttconfig

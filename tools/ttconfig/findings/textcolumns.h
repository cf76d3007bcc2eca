#pragma once

#include <standin/settingstext.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "ttconfig/settings/place.h"

namespace ttconfig {

// Converts columns in bytes to columns in UTF-16 code units, which editors and their protocols use. A byte that is not
// UTF-8 counts as one unit. Fast for places in any order and for lines of any length.
class TextColumns {
public:
    explicit TextColumns(const standin::SettingsText& text);

    // The column, from 1, of the byte that is bytesBehind bytes after the place.
    std::uint32_t column(Place place, std::uint32_t bytesBehind = 0);

private:
    void enter(std::uint32_t number);

    std::string_view bytes;
    std::vector<std::uint32_t> lineStarts;
    std::uint32_t current = 0;  // the line that the marks belong to; 0 for none
    std::string_view line;
    std::vector<std::uint32_t> marks;  // the units before each mark, one mark every kBetweenMarks bytes
    bool ascii = true;
};

}  // namespace ttconfig

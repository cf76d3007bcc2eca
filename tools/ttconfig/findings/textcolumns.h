#pragma once

#include <standin/settingstext.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "ttconfig/settings/place.h"

namespace ttconfig {

// Columns counted in UTF-16 code units, as editors and the protocols they speak count them, out of columns in bytes. A
// byte that is not UTF-8 counts as one. Cheap in whatever order places are asked for, and in lines of any length.
class TextColumns {
public:
    explicit TextColumns(const standin::SettingsText& text);

    // The column, from 1, of the byte that is so many bytes behind the place.
    std::uint32_t column(Place place, std::uint32_t bytesBehind = 0);

private:
    void enter(std::uint32_t number);

    std::string_view bytes;
    std::vector<std::uint32_t> lineStarts;
    std::uint32_t current = 0;  // the line that the marks are of; 0 for none
    std::string_view line;
    std::vector<std::uint32_t> marks;  // how many units stand in front of every so many bytes of the line
    bool ascii = true;
};

}  // namespace ttconfig

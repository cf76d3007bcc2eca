#pragma once

#include <string>

#include "ttconfig/text/table.h"

namespace ttconfig {

// The table for people: its columns "line" and "column", which programs have as numbers, become one with the place as
// "file:line:column", empty where there is none; without a file "line:column". Yes and no become on and off.
Table withPlaceColumn(const Table& table, const std::string& file);

}  // namespace ttconfig

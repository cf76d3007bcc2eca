#pragma once

#include <string>

#include "ttconfig/text/table.h"

namespace ttconfig {

// The table as people see it. The columns "line" and "column", which programs get as numbers, become one column
// "file:line:column", or "line:column" when no file is given; it stays empty in rows without a place. True and false
// become on and off.
Table withPlaceColumn(const Table& table, const std::string& file);

}  // namespace ttconfig

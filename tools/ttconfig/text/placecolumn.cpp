// Place columns: joins a table's line and column numbers into places for people to read.
// Entry points: withPlaceColumn().
// Covered by tests/tools/ttconfig/expectations/answers_test.cpp.

#include "ttconfig/text/placecolumn.h"

#include <algorithm>
#include <utility>

#include "ttconfig/text/answertext.h"

namespace ttconfig {

Table withPlaceColumn(const Table& table, const std::string& file) {
    const auto place = std::find(table.columns.begin(), table.columns.end(), "line") - table.columns.begin();
    Table shown = table;
    shown.columns[static_cast<std::size_t>(place)] = "place";
    shown.columns.erase(shown.columns.begin() + place + 1);
    for (std::vector<Answer>& row : shown.rows) {
        for (Answer& cell : row) {
            if (cell.is_boolean()) cell = cell.get<bool>() ? "on" : "off";
        }
        Answer& line = row[static_cast<std::size_t>(place)];
        const Answer column = row[static_cast<std::size_t>(place) + 1];
        const std::string prefix = file.empty() ? file : file + ':';
        line = line.is_null() ? std::string() : prefix + answerText(line) + ':' + answerText(column);
        row.erase(row.begin() + place + 1);
    }
    return shown;
}

}  // namespace ttconfig

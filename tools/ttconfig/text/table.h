#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ttconfig/text/answer.h"

namespace ttconfig {

// Rows of values under named columns, shown as aligned text, as JSON or as Markdown.
struct Table {
    std::string name;                       // of the JSON member
    std::string title;                      // shown above the rows in text
    std::vector<std::string> columns;       // the names of the JSON members, and the headings
    std::vector<std::vector<Answer>> rows;  // one value per column
};

// The title and the indented rows, in aligned columns. Shows at most mostRows rows, followed by a line that counts the
// rest. A table without a title shows its column headings instead.
std::string tableText(const Table& table, std::size_t mostRows = static_cast<std::size_t>(-1));

// An array of objects, one per row.
Answer tableJson(const Table& table);

// A Markdown table with headings; the first codeColumns columns are formatted as code.
std::string tableMarkdown(const Table& table, std::size_t codeColumns);

// The number of terminal columns that a text takes; characters of East Asian scripts take two.
std::size_t displayWidth(std::string_view text);

}  // namespace ttconfig

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ttconfig/text/answer.h"

namespace ttconfig {

// Rows of values under named columns, shown as aligned text, as JSON or as Markdown.
struct Table {
    std::string name;                       // of the JSON member
    std::string title;                      // above the rows in text
    std::vector<std::string> columns;       // names of the JSON members, and the headings
    std::vector<std::vector<Answer>> rows;  // a value for each column
};

// The title and the rows, indented, in aligned columns; of more than mostRows rows only so many, and a line that says
// how many are left out. Without a title, the headings of the columns and the rows.
std::string tableText(const Table& table, std::size_t mostRows = static_cast<std::size_t>(-1));

// An array of objects.
Answer tableJson(const Table& table);

// A Markdown table with headings; the first codeColumns columns are set as code.
std::string tableMarkdown(const Table& table, std::size_t codeColumns);

// How many columns of a terminal a text takes: characters of East Asian scripts take two.
std::size_t displayWidth(std::string_view text);

}  // namespace ttconfig

// Tables: lays out rows as text, JSON or Markdown.
// Entry points: tableText(), tableJson(), tableMarkdown(), displayWidth().
// Covered by tests/tools/ttconfig/text/text_test.cpp.

#include "ttconfig/text/table.h"

#include <algorithm>

#include "ttconfig/text/answertext.h"
#include "ttconfig/text/utf8.h"

namespace ttconfig {

namespace {

using Cells = std::vector<std::string>;

constexpr std::string_view kGap = "  ";

Cells cellsOf(const std::vector<Answer>& row) {
    Cells cells;
    for (const Answer& value : row)
        cells.push_back(answerText(value));
    return cells;
}

std::string lineOf(std::string line, const Cells& cells, const std::vector<std::size_t>& widths) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i > 0) line += kGap;
        line += cells[i];
        line.append(widths[i] - displayWidth(cells[i]), ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line + '\n';
}

std::string escapedCell(std::string text) {
    for (std::size_t at = text.find('|'); at != std::string::npos; at = text.find('|', at + 2))
        text.insert(at, 1, '\\');
    return text;
}

bool isWide(char32_t character) {
    return (character >= 0x1100 && character <= 0x115F) || (character >= 0x2E80 && character <= 0xA4CF) ||
           (character >= 0xAC00 && character <= 0xD7A3) || (character >= 0xF900 && character <= 0xFAFF) ||
           (character >= 0xFE30 && character <= 0xFE6F) || (character >= 0xFF00 && character <= 0xFF60) ||
           (character >= 0xFFE0 && character <= 0xFFE6) || (character >= 0x20000 && character <= 0x3FFFD);
}

}  // namespace

std::size_t displayWidth(std::string_view text) {
    std::size_t width = 0;
    for (std::size_t at = 0; at < text.size();)
        width += isWide(characterAt(text, at)) ? 2U : 1U;
    return width;
}

std::string tableText(const Table& table, std::size_t mostRows) {
    std::vector<Cells> lines;
    if (table.title.empty()) lines.push_back(table.columns);
    const std::size_t shown = std::min(mostRows, table.rows.size());
    for (std::size_t i = 0; i < shown; ++i)
        lines.push_back(cellsOf(table.rows[i]));
    std::vector<std::size_t> widths(table.columns.size(), 0);
    for (const Cells& cells : lines) {
        for (std::size_t i = 0; i < cells.size(); ++i)
            widths[i] = std::max(widths[i], displayWidth(cells[i]));
    }
    const std::string indent = table.title.empty() ? "" : "  ";
    std::string text = table.title.empty() ? "" : table.title + '\n';
    for (const Cells& cells : lines)
        text += lineOf(indent, cells, widths);
    if (shown < table.rows.size()) text += indent + "... and " + std::to_string(table.rows.size() - shown) + " more\n";
    return text;
}

Answer tableJson(const Table& table) {
    Answer rows = Answer::array();
    for (const std::vector<Answer>& row : table.rows) {
        Answer object = Answer::object();
        for (std::size_t i = 0; i < row.size(); ++i)
            object[table.columns[i]] = row[i];
        rows.push_back(std::move(object));
    }
    return rows;
}

std::string tableMarkdown(const Table& table, std::size_t codeColumns) {
    std::string text = "|";
    for (const std::string& column : table.columns)
        text += " " + column + " |";
    text += "\n|";
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        text += "---|";
    text += '\n';
    for (const std::vector<Answer>& row : table.rows) {
        text += '|';
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string cell = escapedCell(answerText(row[i]));
            const bool asCode = i < codeColumns && !cell.empty();
            text += asCode ? " `" + cell + "` |" : " " + cell + (cell.empty() ? "|" : " |");
        }
        text += '\n';
    }
    return text;
}

}  // namespace ttconfig

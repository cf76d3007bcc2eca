// Text columns: converts columns in bytes to the columns that editors show.
// Entry points: TextColumns.
// Owns: the starts of the lines, and marks along the last line looked up.
// Covered by tests/tools/ttconfig/findings/findingparts_test.cpp.

#include "ttconfig/findings/textcolumns.h"

#include <algorithm>

#include "ttconfig/text/utf8.h"

namespace ttconfig {

namespace {

constexpr std::size_t kBetweenMarks = 1024;

struct Step {
    std::size_t bytes;
    std::uint32_t units;
};

Step stepAt(std::string_view text) {
    const std::size_t length = utf8Length(text);
    if (length == 0) return {1, 1};
    return {length, length == 4 ? 2U : 1U};
}

}  // namespace

TextColumns::TextColumns(const standin::SettingsText& text) : bytes(text.bytes()), lineStarts{0} {
    for (std::size_t end = bytes.find('\n'); end != std::string_view::npos; end = bytes.find('\n', end + 1))
        lineStarts.push_back(static_cast<std::uint32_t>(end + 1));
}

void TextColumns::enter(std::uint32_t number) {
    current = number;
    const std::size_t start = lineStarts[number - 1];
    line = bytes.substr(start, bytes.find('\n', start) - start);
    ascii = std::all_of(line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    marks.clear();
    if (ascii) return;
    // A mark belongs to the first character that begins at its byte or after it.
    std::uint32_t units = 0;
    for (std::size_t at = 0; at < line.size();) {
        while (marks.size() * kBetweenMarks <= at)
            marks.push_back(units);
        const Step step = stepAt(line.substr(at));
        at += step.bytes;
        units += step.units;
    }
}

std::uint32_t TextColumns::column(Place place, std::uint32_t bytesBehind) {
    const std::size_t offset = std::size_t{place.column} - 1 + bytesBehind;
    if (place.line == 0 || place.line > lineStarts.size()) return place.column + bytesBehind;
    if (place.line != current) enter(place.line);
    if (ascii || offset > line.size()) return static_cast<std::uint32_t>(offset) + 1;
    const std::size_t mark = std::min(offset / kBetweenMarks, marks.size() - 1);
    std::size_t at = mark * kBetweenMarks;
    std::uint32_t units = marks[mark];
    // Do not start inside a character; a valid one has at most four bytes.
    for (std::size_t back = 0; mark > 0 && back < 3 && at > 0; ++back) {
        const std::size_t start = mark * kBetweenMarks - back - 1;
        if (utf8Length(line.substr(start)) > back + 1) {
            at = start + utf8Length(line.substr(start));
            break;
        }
    }
    while (at < offset) {
        const Step step = stepAt(line.substr(at));
        at += step.bytes;
        units += step.units;
    }
    return units + 1;
}

}  // namespace ttconfig

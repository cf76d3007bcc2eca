// Source data: writes the lines of the files that the page shows.
// Entry points: writeSourceData().
// Covered by tests/tools/ttconfig/report/reportdata_test.cpp.

#include <algorithm>

#include "ttconfig/report/datawriters.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

// Calls sink(number, line) for every line, without its end.
template <typename Sink>
void forEachLine(std::string_view text, Sink&& sink) {
    for (std::uint32_t number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (end != std::string_view::npos && !line.empty() && line.back() == '\r') line.remove_suffix(1);
        sink(number, line);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

void writeSource(JsonStream& json, std::string_view text, const LinkedLines& lines, const ReportBounds& bounds) {
    const bool isWhole = text.size() <= bounds.wholeSource;
    json.beginObject();
    json.name("whole");
    json.flag(isWhole);
    json.name("lines");
    json.beginArray();
    forEachLine(text, [&](std::uint32_t number, std::string_view line) {
        if (isWhole) return json.text(cutText(line, bounds.lineLength));
        if (!lines.holds(number)) return;
        json.beginArray();
        json.integer(number);
        json.text(cutText(line, bounds.lineLength));
        json.endArray();
    });
    json.endArray();
    json.endObject();
}

}  // namespace

void writeSourceData(JsonStream& json, const ReportState& state) {
    json.name("source");
    writeSource(json, state.text().bytes(), state.lines, state.bounds);
    if (state.oldText() == nullptr) return;
    json.name("oldSource");
    writeSource(json, state.oldText()->bytes(), state.oldLines, state.bounds);
}

}  // namespace ttconfig

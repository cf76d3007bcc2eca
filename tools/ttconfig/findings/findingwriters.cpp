// Finding writers: answer how findings are written as text and as JSON.
// Doors: FindingWriter, TextWriter, JsonWriter.
// Owns: what waits to be written.
// Covered by tests/tools/ttconfig/findings/check_test.cpp.

#include "ttconfig/findings/findingwriters.h"

#include <fmt/format.h>

#include "ttconfig/text/answertext.h"

namespace ttconfig {

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 16;

Tint tintOf(Severity severity) {
    return severity == Severity::Error ? Tint::Error : severity == Severity::Warning ? Tint::Warning : Tint::Note;
}

}  // namespace

void FindingWriter::write(std::string_view text) {
    waiting += text;
    if (waiting.size() >= kPiece) flush();
}

bool FindingWriter::flush() {
    if (isRead && !waiting.empty()) isRead = output.write(waiting);
    waiting.clear();
    return isRead;
}

void TextWriter::beginFile(const std::string& path, const standin::SettingsText& /*text*/) {
    file = path;
    any = false;
}

void TextWriter::add(const Finding& finding) {
    any = true;
    const std::string place = fmt::format("{}:{}:{}:", file, finding.place.line, finding.place.column);
    const std::string word = fmt::format("{}:", severityWord(finding.severity));
    write(fmt::format("{} {} {} {}\n", colours(Tint::Place, place), colours(tintOf(finding.severity), word),
                      finding.message, colours(Tint::Dim, fmt::format("[{}]", finding.rule))));
}

void TextWriter::endFile(const std::string& more) {
    if (!more.empty()) write(fmt::format("{}: {}\n", file, more));
    if (!any) write(fmt::format("{}: {}\n", file, colours(Tint::Good, "no findings")));
}

void JsonWriter::begin() {
    write("[");
}

void JsonWriter::beginFile(const std::string& path, const standin::SettingsText& /*text*/) {
    file = path;
}

void JsonWriter::add(const Finding& finding) {
    Answer object = {{"file", file},
                     {"line", finding.place.line},
                     {"column", finding.place.column},
                     {"length", finding.length},
                     {"severity", severityWord(finding.severity)},
                     {"rule", finding.rule},
                     {"message", finding.message}};
    if (finding.related) object["related"] = {{"line", finding.related->line}, {"column", finding.related->column}};
    write(any ? ",\n " : "\n ");
    write(answerJson(object));
    any = true;
}

void JsonWriter::end() {
    write(any ? "\n]\n" : "]\n");
}

}  // namespace ttconfig

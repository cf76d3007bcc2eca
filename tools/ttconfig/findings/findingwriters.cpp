// Finding writers: write findings as text and as JSON.
// Entry points: FindingWriter, TextWriter, JsonWriter.
// Owns: the output that has not been written yet.
// Covered by tests/tools/ttconfig/findings/check_test.cpp.

#include "ttconfig/findings/findingwriters.h"

#include <fmt/format.h>

#include "ttconfig/text/answertext.h"
#include "ttconfig/text/showntext.h"

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
    file = visibleText(path);
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
    file = textJson(path);
}

void JsonWriter::add(const Finding& finding) {
    write(any ? ",\n " : "\n ");
    write(fmt::format(R"({{"file":{},"line":{},"column":{},"length":{},"severity":"{}","rule":"{}","message":{})", file,
                      finding.place.line, finding.place.column, finding.length, severityWord(finding.severity),
                      finding.rule, textJson(finding.message)));
    if (finding.related) {
        write(fmt::format(R"(,"related":{{"line":{},"column":{}}})", finding.related->line, finding.related->column));
    }
    write("}");
    any = true;
}

void JsonWriter::end() {
    write(any ? "\n]\n" : "]\n");
}

}  // namespace ttconfig

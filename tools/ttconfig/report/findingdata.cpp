// Finding and change data: writes what check and diff say about the files.
// Entry points: writeFindingData(), writeChangeData().
// Covered by tests/tools/ttconfig/report/reportdata_test.cpp.

#include <algorithm>
#include <string>

#include "ttconfig/differences/differences.h"
#include "ttconfig/findings/checking.h"
#include "ttconfig/report/datawriters.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

constexpr std::size_t kMostShown = 400;

void writeFinding(JsonStream& json, const Finding& finding, LinkedLines& lines) {
    json.beginArray();
    json.integer(static_cast<int>(finding.severity));
    json.text(finding.rule);
    json.integer(lines.mark(finding.place.line));
    json.integer(finding.place.column);
    json.text(cutText(finding.message, kMostShown));
    json.integer(finding.related ? lines.mark(finding.related->line) : 0);
    json.endArray();
}

std::string wordOfAnswer(const Change& change, const Answer& answer) {
    if (change.topic == ChangeTopic::Switch && answer.is_boolean()) return answer.get<bool>() ? "on" : "off";
    const bool hasCategory = change.topic == ChangeTopic::OrderLimit || change.topic == ChangeTopic::BlockTradeLimit ||
                             change.topic == ChangeTopic::RateLimit;
    if (answer.is_null()) return hasCategory ? "as its category says" : "none";
    return cutText(answerText(answer), kMostShown);
}

void writeChange(JsonStream& json, const Change& change, ReportState& state) {
    json.beginArray();
    json.text(cutText(change.subject, kMostShown));
    json.text(cutText(change.question, kMostShown));
    json.text(wordOfAnswer(change, change.before));
    json.text(wordOfAnswer(change, change.after));
    json.integer(change.oldPlace ? state.oldLines.mark(change.oldPlace->line) : 0);
    json.integer(change.newPlace ? state.lines.mark(change.newPlace->line) : 0);
    json.endArray();
}

}  // namespace

void writeFindingData(JsonStream& json, ReportState& state) {
    std::size_t count = 0;
    json.name("findings");
    json.beginObject();
    json.name("list");
    json.beginArray();
    checkSettings(state.text(), state.input.platform, [&](Finding&& finding) {
        if (++count <= state.bounds.findings) writeFinding(json, finding, state.lines);
    });
    json.endArray();
    json.name("leftOut");
    json.integer(static_cast<std::int64_t>(count - std::min(count, state.bounds.findings)));
    json.endObject();
}

void writeChangeData(JsonStream& json, ReportState& state) {
    json.name("changes");
    if (state.oldText() == nullptr) return json.null();
    std::size_t count = 0;
    json.beginObject();
    json.name("list");
    json.beginArray();
    tellDifferences(*state.oldText(), state.text(), {}, state.input.platform, [&](const Change& change) {
        if (++count <= state.bounds.changes) writeChange(json, change, state);
    });
    json.endArray();
    json.name("leftOut");
    json.integer(static_cast<std::int64_t>(count - std::min(count, state.bounds.changes)));
    json.endObject();
}

}  // namespace ttconfig

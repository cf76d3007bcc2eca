// Report data: writes everything that the page shows, as one JSON object.
// Entry points: writeReportData().
// Covered by tests/tools/ttconfig/report/reportdata_test.cpp.

#include "ttconfig/report/reportdata.h"

#include <algorithm>

#include "traderbase/base/config/version.h"
#include "ttconfig/report/datawriters.h"

namespace ttconfig {

namespace {

std::int64_t lineCount(std::string_view text) {
    const auto ends = std::count(text.begin(), text.end(), '\n');
    return ends + (text.empty() || text.back() == '\n' ? 0 : 1);
}

void writeFile(JsonStream& json, const ReportedFile& file) {
    json.beginObject();
    json.name("name");
    json.text(file.name);
    json.name("bytes");
    json.integer(static_cast<std::int64_t>(file.text.bytes().size()));
    json.name("lines");
    json.integer(lineCount(file.text.bytes()));
    json.name("date");
    json.text(file.date);
    json.endObject();
}

void writeAbout(JsonStream& json, const ReportInput& input) {
    json.name("file");
    writeFile(json, input.file);
    json.name("old");
    if (input.old == nullptr) {
        json.null();
    } else {
        writeFile(json, *input.old);
    }
    json.name("platformData");
    json.text(input.platformName);
    json.name("versions");
    json.beginObject();
    json.name("ttconfig");
    json.text(TTCONFIG_VERSION);
    json.name("traderbaseconfig");
    json.text(ttservice::traderbaseVersion());
    json.endObject();
}

}  // namespace

void writeReportData(JsonStream& json, const ReportInput& input, const ReportBounds& bounds) {
    ReportState state{input, bounds};
    json.beginObject();
    writeAbout(json, input);
    writeSwitchData(json, state);
    writeFindingData(json, state);
    writeValueData(json, state);
    writeScalarData(json, state);
    writeLimitData(json, state);
    writeOtherData(json, state);
    writeSessionData(json, input);
    writeChangeData(json, state);
    writeSourceData(json, state);
    json.endObject();
}

}  // namespace ttconfig

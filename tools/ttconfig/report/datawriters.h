#pragma once

#include "ttconfig/report/jsonstream.h"
#include "ttconfig/report/linkedlines.h"
#include "ttconfig/report/reportdata.h"

namespace ttconfig {

// What the data writers share.
struct ReportState {
    const ReportInput& input;
    const ReportBounds& bounds;
    LinkedLines lines{};
    LinkedLines oldLines{};

    const standin::SettingsText& text() const { return input.file.text; }
    // Null when there is nothing to compare with.
    const standin::SettingsText* oldText() const { return input.old == nullptr ? nullptr : &input.old->text; }
};

// Each writes members of the object that is currently open.

// platforms, platformsLeftOut, switches
void writeSwitchData(JsonStream& json, ReportState& state);
// scalars
void writeScalarData(JsonStream& json, ReportState& state);
// values, valuesLeftOut
void writeValueData(JsonStream& json, ReportState& state);
// limits
void writeLimitData(JsonStream& json, ReportState& state);
// others, othersLeftOut
void writeOtherData(JsonStream& json, ReportState& state);
// sessions
void writeSessionData(JsonStream& json, const ReportInput& input);
// findings
void writeFindingData(JsonStream& json, ReportState& state);
// changes
void writeChangeData(JsonStream& json, ReportState& state);
// source, oldSource; call it after everything that refers to lines
void writeSourceData(JsonStream& json, const ReportState& state);

}  // namespace ttconfig

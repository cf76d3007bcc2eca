#pragma once

#include <standin/platformdata.h>
#include <standin/settingstext.h>

#include <cstdint>
#include <string>

#include "ttconfig/report/jsonstream.h"

namespace ttconfig {

// A settings file, and what the page says about it.
struct ReportedFile {
    std::string name;  // as given
    std::string date;  // when it was last written; empty when unknown
    standin::SettingsText text;
};

struct ReportInput {
    ReportedFile file;
    const ReportedFile* old = nullptr;                // to compare with; null when there is none
    std::string platformName;                         // of the platform data; empty when there is none
    const standin::PlatformData* platform = nullptr;  // null when there is none
    std::string marketTimeScript;                     // may be missing
};

// How much of a file a page shows, so that browsers can still open it.
struct ReportBounds {
    std::size_t platforms = 4000;
    std::size_t rows = 50000;  // per table
    std::size_t findings = 5000;
    std::size_t changes = 5000;
    std::size_t wholeSource = std::size_t{1} << 20;  // bytes; of a longer text only the lines referred to are shown
    std::size_t lineLength = 4096;                   // bytes
};

// Writes everything that the page shows as one JSON object. The trading sessions come from the store, everything else
// from the texts; no settings are loaded. Throws whatever the stream's sink throws.
void writeReportData(JsonStream& json, const ReportInput& input, const ReportBounds& bounds = {});

}  // namespace ttconfig

// ttconfig report: writes a page about a settings file.
// Entry points: runReport().
// Covered by tests/tools/ttconfig/report/report_test.cpp.

#include "ttconfig/report/report.h"

#include <standin/platformdata.h>
#include <sys/stat.h>

#include <array>
#include <ctime>
#include <memory>
#include <optional>
#include <string_view>

#include "traderbase/base/config/internal/scripts/markettimescript.h"
#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/invocation/output.h"
#include "ttconfig/report/pagefile.h"
#include "ttconfig/report/reportpage.h"
#include "ttconfig/settings/overwriting.h"
#include "ttconfig/settings/settingsfile.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/text/progress.h"

namespace ttconfig {

namespace {

constexpr std::string_view kStandardOutput = "-";

std::string dateOf(const std::string& path) {
    struct stat facts {};
    struct tm utc {};
    if (stat(path.c_str(), &facts) != 0 || gmtime_r(&facts.st_mtime, &utc) == nullptr) return {};
    std::array<char, 40> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S UTC", &utc)};
}

ReportedFile readFile(const std::string& path) {
    requireUsableSettings(path);
    ReportedFile file{path, dateOf(path), {}};
    const standin::FileProblem problem = standin::SettingsText::load(path, file.text);
    if (problem != standin::FileProblem::kNone) {
        throw Fault(kExitInput, "settings file " + path + ": " + standin::fileProblemText(problem));
    }
    return file;
}

}  // namespace

int runReport(const CommandLine& commandLine, Output& output) {
    // The report takes everything about the settings from their text, so the store need not load them.
    SharedOptions shared = commandLine.shared;
    shared.settings.reset();
    carryOut(shared);
    ReportInput input;
    input.marketTimeScript = ttservice::internal::kMarketTimeScript;
    input.file = readFile(commandLine.shared.settings.value_or(""));
    std::optional<ReportedFile> old;
    if (commandLine.against) old = readFile(*commandLine.against);
    input.old = old ? &*old : nullptr;
    std::shared_ptr<const standin::PlatformData> platform;
    if (shared.platform) {
        input.platformName = *shared.platform;
        platform = standin::PlatformData::current();
    }
    input.platform = platform.get();
    const std::string path = commandLine.outputFile.value_or("");
    std::optional<PageFile> page;
    if (path != kStandardOutput) {
        refuseToOverwrite("-o", path,
                          {commandLine.shared.settings, commandLine.against, shared.platform, input.marketTimeScript});
        page.emplace(path);
    }
    Progress progress("writing the report");
    const auto write = [&](std::string_view piece) {
        progress.atLongStep(0);
        if (page) {
            page->write(piece);
        } else {
            output.write(piece);
        }
    };
    writeReportPage(write, input);
    if (page) page->finish();
    return kExitDone;
}

}  // namespace ttconfig

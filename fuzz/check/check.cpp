// `ttconfig check` on arbitrary bytes: findings come in file order, their places lie in the file, and each is one line
// of UTF-8. With any options, text, JSON and SARIF report all findings and nothing else.

#include "ttconfig/findings/check.h"

#include <standin/platformdatafile.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/check/toldfindings.h"
#include "fuzz/support/capturedoutput.h"
#include "fuzz/support/dice.h"
#include "fuzz/support/scratchfolder.h"
#include "fuzz/support/shownbytes.h"
#include "fuzz/support/target.h"
#include "tests/support/slowlines.h"
#include "ttconfig/findings/checking.h"
#include "ttconfig/findings/rules.h"
#include "ttconfig/invocation/fault.h"

namespace {

using fuzz::CheckedFile;
using fuzz::Dice;
using fuzz::require;
using ttconfig::CommandLine;
using ttconfig::Finding;
using ttconfig::Format;
using ttconfig::Place;

constexpr const char* kPlatform = TT_SOURCE_DIR "/samples/platform.json";
constexpr const char* kMissing = "no such\x1b[1m\xFF file.ini";

// --- findings

// Whether the place is inside a line of the text or directly after its end.
bool isIn(const Place& place, const std::vector<std::string>& lines) {
    return place.line >= 1 && place.line <= lines.size() && place.column >= 1 &&
           place.column <= lines[place.line - 1].size() + 1;
}

void checkFinding(const Finding& finding, const std::vector<std::string>& lines) {
    require(ttconfig::kRuleCount > ttconfig::requireRule(finding.rule), "a finding has a rule");
    require(finding.severity == ttconfig::kRules[ttconfig::requireRule(finding.rule)].severity,
            "a finding has its rule's severity");
    require(!finding.message.empty() && fuzz::isUtf8(finding.message), "a message is UTF-8", finding.message);
    require(!fuzz::hasControls(finding.message), "a message is one line without control characters", finding.message);
    require(isIn(finding.place, lines), "a finding stands in the text", finding.message);
    require(finding.place.column - 1 + finding.length <= lines[finding.place.line - 1].size(),
            "what a finding is about ends in its line", finding.message);
    require(!finding.related || isIn(*finding.related, lines), "what a finding names stands in the text",
            finding.message);
}

std::vector<Finding> findingsIn(const standin::SettingsText& text, const standin::PlatformData* platform,
                                const std::vector<std::string>& lines) {
    std::vector<Finding> findings;
    ttconfig::checkSettings(text, platform, [&](Finding&& finding) {
        checkFinding(finding, lines);
        require(findings.empty() || !(finding.place < findings.back().place), "findings come in file order",
                finding.message);
        findings.push_back(std::move(finding));
    });
    return findings;
}

// Counts all findings except those about unknown markets, which platform data can only reduce.
std::size_t countBesideMarkets(const std::vector<Finding>& findings) {
    const auto isCounted = [](const Finding& finding) {
        return finding.rule != ttconfig::ruleOf(ttconfig::RuleId::UnknownMarket).name;
    };
    return static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(), isCounted));
}

const standin::PlatformData& samplePlatform() {
    static const std::shared_ptr<const standin::PlatformData> data = [] {
        std::string error;
        require(standin::installPlatformFile(kPlatform, error), "the platform loads");
        return standin::PlatformData::current();
    }();
    return *data;
}

// --- the command

std::vector<std::string> someRules(Dice& dice, const std::vector<Finding>& findings) {
    std::vector<std::string> names;
    for (std::size_t count = dice.oneIn(2) ? 0 : dice.below(4); count > 0; --count) {
        const bool isFound = !findings.empty() && !dice.oneIn(4);
        names.emplace_back(isFound ? dice.any(findings).rule : dice.any(ttconfig::kRules).name);
    }
    return names;
}

bool isOneOf(const std::vector<std::string>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

// The findings that remain under the given options.
std::vector<Finding> chosen(const CommandLine& options, std::vector<Finding> findings) {
    const auto isOff = [&](const Finding& finding) { return isOneOf(options.disabledRules, finding.rule); };
    findings.erase(std::remove_if(findings.begin(), findings.end(), isOff), findings.end());
    for (Finding& finding : findings) {
        if (isOneOf(options.fatalRules, finding.rule)) finding.severity = ttconfig::Severity::Error;
    }
    return findings;
}

int exitCodeFor(const std::vector<CheckedFile>& files) {
    const auto any = [&](const auto& holds) { return std::any_of(files.begin(), files.end(), holds); };
    if (any([](const CheckedFile& file) { return !file.isUsable; })) return ttconfig::kExitInput;
    return any([](const CheckedFile& file) { return !file.findings.empty(); }) ? ttconfig::kExitFindings
                                                                               : ttconfig::kExitDone;
}

// Runs the command in one format and checks its output.
void checkRun(const CommandLine& options, const std::vector<CheckedFile>& files) {
    const fuzz::CapturedErrors errors;
    int exitCode = -1;
    const std::string written =
        fuzz::outputOf([&](ttconfig::Output& output) { exitCode = ttconfig::runCheck(options, output); });
    require(exitCode == exitCodeFor(files), "the exit code tells what was found");
    const bool isColoured = options.colouring == ttconfig::Colouring::Always;
    if (options.format == Format::Text) {
        fuzz::checkFindingsText(isColoured ? fuzz::withoutColours(written) : written, files);
    } else if (options.format == Format::Json) {
        fuzz::checkFindingsJson(written, files);
    } else {
        fuzz::checkFindingsSarif(written, files);
    }
    const std::vector<std::string> messages = fuzz::endedLines(errors.text());
    const auto unusable = std::count_if(files.begin(), files.end(), [](const auto& file) { return !file.isUsable; });
    require(messages.size() == static_cast<std::size_t>(unusable), "a file that is not checked has one message");
    for (const std::string& message : messages)
        require(!fuzz::hasControls(message) && fuzz::isUtf8(message), "a message is a line of UTF-8", message);
}

// The file, possibly under an odd name, and sometimes also a missing file or the same file again.
std::vector<CheckedFile> someFiles(Dice& dice, std::string_view input, const fuzz::ScratchFolder& folder) {
    static const std::vector<std::string> kNames = {
        "settings.ini",        "a b#%25.ini",  "-\xE8\x82\xA1\xF0\x9F\x98\x80.ini",
        "es\x1b[31mc\x7F.ini", "li\nne\".ini", "c1\xC2\x9B\xFF.ini"};
    const std::string& name = dice.oneIn(2) ? kNames.front() : dice.any(kNames);
    const std::string path = folder.writeAnew("bin/" + name, input);
    CheckedFile file{dice.oneIn(4) ? path : name, !input.empty() && input.find('\0') == std::string_view::npos, {}, {}};
    const CheckedFile missing{kMissing, false, {}, {}};
    if (dice.oneIn(8)) return {missing, file};
    if (dice.oneIn(8)) return {file, missing, file};
    return {std::move(file)};
}

// Errors that stop the command before it writes anything.
void checkRefusals(const CommandLine& options) {
    const auto refused = [](const CommandLine& wrong, int exitCode) {
        const std::string written = fuzz::outputOf([&](ttconfig::Output& output) {
            try {
                ttconfig::runCheck(wrong, output);
                require(false, "a wrong option is refused");
            } catch (const ttconfig::Fault& fault) {
                require(fault.exitCode == exitCode, "a wrong option has its exit code", fault.what());
            }
        });
        require(written.empty(), "what is refused writes nothing", written);
    };
    CommandLine wrong = options;
    wrong.format = Format::Markdown;
    refused(wrong, ttconfig::kExitUsage);
    wrong = options;
    wrong.disabledRules.emplace_back("no-such-rule");
    refused(wrong, ttconfig::kExitUsage);
    wrong = options;
    wrong.shared.platform = "no such platform.json";
    refused(wrong, ttconfig::kExitInput);
}

}  // namespace

void fuzz::runInput(std::string_view input) {
    static const ScratchFolder folder;
    const standin::SettingsText text{std::string(input)};
    const std::vector<std::string> lines = tests::slowLines(std::string(text.bytes()));
    const std::vector<Finding> with = findingsIn(text, &samplePlatform(), lines);
    const std::vector<Finding> without = findingsIn(text, nullptr, lines);
    require(countBesideMarkets(without) <= countBesideMarkets(with), "without platform data there is no more to say");

    Dice dice(input);
    CommandLine options;
    if (dice.oneIn(8)) options.shared.platform = kPlatform;
    const std::vector<Finding>& all = options.shared.platform ? with : without;
    options.disabledRules = someRules(dice, all);
    options.fatalRules = someRules(dice, all);
    options.colouring = dice.oneIn(4) ? ttconfig::Colouring::Always : ttconfig::Colouring::Never;
    std::vector<CheckedFile> files = someFiles(dice, input, folder);
    for (CheckedFile& file : files) {
        options.words.push_back(file.path);
        if (!file.isUsable) continue;
        file.findings = chosen(options, all);
        file.lines = lines;
    }
    // SARIF is slower to check, because it contains all rules; its columns differ after non-ASCII characters.
    std::vector<Format> formats = {Format::Text, Format::Json};
    const bool isAscii = std::all_of(input.begin(), input.end(), [](char c) { return c >= 0; });
    if (!isAscii || dice.oneIn(8)) formats.push_back(Format::Sarif);
    for (const Format format : formats) {
        options.format = format;
        checkRun(options, files);
    }
    if (dice.oneIn(64)) checkRefusals(options);
}

TT_FUZZ_TARGET

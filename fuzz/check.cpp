// `ttconfig check` of any bytes: findings come in file order, stand where they say, and are one line of UTF-8 each.

#include <standin/platformdatafile.h>

#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "fuzz/target.h"
#include "tests/support/slowlines.h"
#include "ttconfig/findings/checking.h"
#include "ttconfig/findings/rules.h"

namespace {

using fuzz::require;
using ttconfig::Finding;
using ttconfig::Place;

bool isUtf8(const std::string& text) {
    try {
        return !nlohmann::json(text).dump().empty();
    } catch (const nlohmann::json::exception&) {
        return false;
    }
}

void checkMessage(const std::string& message) {
    require(!message.empty() && isUtf8(message), "a message is UTF-8", message);
    require(!fuzz::hasControls(message), "a message is one line without control characters", message);
}

// Whether the place is in a line of the text, or right behind it.
bool isIn(const Place& place, const std::vector<std::string>& lines) {
    return place.line >= 1 && place.line <= lines.size() && place.column >= 1 &&
           place.column <= lines[place.line - 1].size() + 1;
}

void checkFinding(const Finding& finding, const std::vector<std::string>& lines) {
    require(ttconfig::kRuleCount > ttconfig::requireRule(finding.rule), "a finding has a rule");
    require(finding.severity == ttconfig::kRules[ttconfig::requireRule(finding.rule)].severity,
            "a finding has its rule's severity");
    checkMessage(finding.message);
    require(isIn(finding.place, lines), "a finding stands in the text", finding.message);
    require(finding.place.column - 1 + finding.length <= lines[finding.place.line - 1].size(),
            "what a finding is about ends in its line", finding.message);
    require(!finding.related || isIn(*finding.related, lines), "what a finding names stands in the text",
            finding.message);
}

const standin::PlatformData& samplePlatform() {
    static const std::shared_ptr<const standin::PlatformData> data = [] {
        std::string error;
        require(standin::installPlatformFile(TT_SOURCE_DIR "/samples/platform.json", error), "the platform loads");
        return standin::PlatformData::current();
    }();
    return *data;
}

}  // namespace

void fuzz::runInput(std::string_view input) {
    const standin::SettingsText text{std::string(input)};
    const std::vector<std::string> lines = tests::slowLines(std::string(text.bytes()));
    std::uint32_t before = 1;
    std::size_t count = 0;
    // Of markets alone, data leaves less to say: it names some.
    const auto isCounted = [](const Finding& finding) {
        return finding.rule != ttconfig::ruleOf(ttconfig::RuleId::UnknownMarket).name;
    };
    ttconfig::checkSettings(text, &samplePlatform(), [&](Finding&& finding) {
        checkFinding(finding, lines);
        require(finding.place.line >= before, "findings come in file order", finding.message);
        before = finding.place.line;
        if (isCounted(finding)) ++count;
    });
    const std::vector<Finding> without = ttconfig::checkSettings(text);
    const auto counted = std::count_if(without.begin(), without.end(), isCounted);
    require(static_cast<std::size_t>(counted) <= count, "without platform data there is no more to say");
}

TT_FUZZ_TARGET

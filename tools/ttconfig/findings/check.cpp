// ttconfig check: finds what settings files say that their authors will not have meant.
// Doors: runCheck().
// Owns: what the options make of the rules.
// Covered by tests/tools/ttconfig/findings/check_test.cpp.

#include "ttconfig/findings/check.h"

#include <standin/platformdata.h>
#include <standin/settingstext.h>

#include <fmt/format.h>

#include <memory>
#include <unordered_map>

#include "ttconfig/fault.h"
#include "ttconfig/findings/checking.h"
#include "ttconfig/findings/findingwriters.h"
#include "ttconfig/findings/rules.h"
#include "ttconfig/findings/sarif.h"
#include "ttconfig/settingsfile.h"
#include "ttconfig/startup.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/progress.h"

namespace ttconfig {

namespace {

constexpr std::string_view kAllRules = "all";

// People read no more than that of one kind; JSON and SARIF have all.
constexpr std::size_t kMostOfARule = 1000;

// The rules as the options leave them: off, or with a severity.
class RuleChoice {
public:
    explicit RuleChoice(const CommandLine& commandLine) {
        for (const Rule& rule : kRules)
            severities.push_back(rule.severity);
        std::vector<std::size_t> disabled;
        for (const std::string& name : commandLine.disabledRules)
            disabled.push_back(requireRule(name));
        for (const std::string& name : commandLine.fatalRules)
            severities[requireRule(name)] = Severity::Error;
        for (std::size_t number = 0; number < kRuleCount; ++number)
            byName.emplace(kRules[number].name, severities[number]);
        for (const std::size_t number : disabled)
            byName.erase(kRules[number].name);
    }

    // Gives the finding its severity; false when its rule is off.
    bool take(Finding& finding) const {
        const auto severity = byName.find(finding.rule);
        if (severity == byName.end()) return false;
        finding.severity = severity->second;
        return true;
    }

    const std::vector<Severity>& all() const { return severities; }

    // "7 more of unknown-key" in words, or nothing.
    std::string leftOut(const std::vector<std::size_t>& counts) const {
        std::string text;
        for (std::size_t number = 0; number < kRuleCount; ++number) {
            if (counts[number] == 0 || byName.count(kRules[number].name) == 0) continue;
            text += fmt::format("{}{} more of {}", text.empty() ? "" : ", ", counts[number], kRules[number].name);
        }
        return text.empty() ? text : text + " (--format json has them all)";
    }

private:
    std::vector<Severity> severities;
    std::unordered_map<std::string_view, Severity> byName;
};

Answer ruleJson(const Rule& rule) {
    return {{"rule", rule.name},
            {"severity", severityWord(rule.severity)},
            {"title", rule.title},
            {"explanation", rule.explanation}};
}

void explain(const std::string& name, Format format, Output& output) {
    const bool isAll = name == kAllRules;
    if (format == Format::Markdown && isAll) {
        output.write(rulesPage());
    } else if (format == Format::Json) {
        Answer rules = Answer::array();
        for (const Rule& rule : kRules)
            rules.push_back(ruleJson(rule));
        output.write(answerJson(isAll ? rules : ruleJson(kRules[requireRule(name)])) + '\n');
    } else if (format == Format::Text) {
        output.write(isAll ? rulesText() : ruleText(kRules[requireRule(name)]));
    } else {
        throw Fault(kExitUsage, "--explain " + name + ": write it as text or json, or all of them as markdown");
    }
}

std::unique_ptr<FindingWriter> writerFor(const CommandLine& commandLine, const RuleChoice& choice, Output& output) {
    switch (commandLine.format) {
        case Format::Json:
            return std::make_unique<JsonWriter>(output);
        case Format::Sarif:
            return std::make_unique<SarifWriter>(output, choice.all());
        case Format::Markdown:
            throw Fault(kExitUsage, "--format markdown: findings are written as text, json or sarif");
        default:
            return std::make_unique<TextWriter>(output, coloursFor(commandLine, output));
    }
}

// Whether there is a finding.
bool checkFile(const std::string& path, const RuleChoice& choice, const standin::PlatformData* platform,
               FindingWriter& writer, Progress& progress, bool isBounded) {
    standin::SettingsText text;
    standin::SettingsText::load(path, text);
    writer.beginFile(path, text);
    std::size_t count = 0;
    const auto take = [&](Finding&& finding) {
        progress.at(finding.place.line, path);
        if (!choice.take(finding)) return;
        ++count;
        writer.add(finding);
    };
    const auto leftOut = checkSettings(text, platform, take, isBounded ? kMostOfARule : kEveryFinding);
    writer.endFile(choice.leftOut(leftOut));
    return count > 0;
}

}  // namespace

int runCheck(const CommandLine& commandLine, Output& output) {
    if (commandLine.explainedRule) {
        explain(*commandLine.explainedRule, commandLine.format, output);
        return kExitDone;
    }
    const RuleChoice choice(commandLine);
    const auto writer = writerFor(commandLine, choice, output);
    carryOut(commandLine.shared);
    // Before anything is written: a file that cannot be used leaves no half of an answer.
    for (const std::string& path : commandLine.words)
        requireUsableSettings(path);
    const std::shared_ptr<const standin::PlatformData> platform =
        commandLine.shared.platform ? standin::PlatformData::current() : nullptr;
    bool found = false;
    Progress progress("checking");
    writer->begin();
    for (const std::string& path : commandLine.words)
        found = checkFile(path, choice, platform.get(), *writer, progress, commandLine.format == Format::Text) || found;
    writer->end();
    progress.hide();
    writer->flush();
    return found ? kExitFindings : kExitDone;
}

}  // namespace ttconfig

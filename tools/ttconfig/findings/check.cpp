// ttconfig check: finds what the authors of settings files probably did not mean.
// Entry points: runCheck().
// Owns: the severity of each rule after the options.
// Covered by tests/tools/ttconfig/findings/check_test.cpp.

#include "ttconfig/findings/check.h"

#include <standin/filebytes.h>
#include <standin/platformdata.h>
#include <standin/settingstext.h>

#include <fmt/format.h>

#include <iostream>
#include <memory>
#include <unordered_map>

#include "ttconfig/findings/checking.h"
#include "ttconfig/findings/findingwriters.h"
#include "ttconfig/findings/rules.h"
#include "ttconfig/findings/sarif.h"
#include "ttconfig/invocation/colouring.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/settings/settingsfile.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/progress.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

constexpr std::string_view kAllRules = "all";

// Text output shows at most this many findings of one rule; JSON and SARIF show all.
constexpr std::size_t kMostOfARule = 1000;

// The rules after the options: off, or with a severity.
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

    // "7 more of unknown-key" and so on; empty when nothing was left out.
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

// Checks the files of one run, one after the other.
class FileChecks {
public:
    FileChecks(const CommandLine& commandLine, const RuleChoice& ruleChoice, FindingWriter& target)
        : choice(ruleChoice), most(commandLine.format == Format::Text ? kMostOfARule : kEveryFinding), writer(target) {
        if (commandLine.shared.platform) platform = standin::PlatformData::current();
    }

    // Checks one file. A file that cannot be used is reported, and the other files are still checked.
    void check(const std::string& path) {
        standin::SettingsText text;
        try {
            requireUsableSettings(path);
            const standin::FileProblem problem = standin::SettingsText::load(path, text);
            if (problem != standin::FileProblem::kNone) {
                throw Fault(kExitInput, "settings file " + path + ": " + standin::fileProblemText(problem));
            }
        } catch (const Fault& fault) {
            return refuse(path, fault);
        }
        checkText(path, text);
    }

    int exitCode() const { return anyUnusable ? kExitInput : anyFinding ? kExitFindings : kExitDone; }

    void end() { progress.hide(); }

private:
    void refuse(const std::string& path, const Fault& fault) {
        anyUnusable = true;
        progress.hide();
        // Earlier findings come before the message.
        writer.flush();
        const std::string message = visibleText(fault.what());
        std::cerr << "ttconfig: " << message << '\n';
        writer.addUnusable(path, message);
    }

    void checkText(const std::string& path, const standin::SettingsText& text) {
        writer.beginFile(path, text);
        const auto take = [&](Finding&& finding) {
            progress.at(finding.place.line, path);
            if (!choice.take(finding)) return;
            anyFinding = true;
            writer.add(finding);
        };
        writer.endFile(choice.leftOut(checkSettings(text, platform.get(), take, most)));
    }

    const RuleChoice& choice;
    const std::size_t most;
    FindingWriter& writer;
    std::shared_ptr<const standin::PlatformData> platform;
    Progress progress{"checking"};
    bool anyFinding = false;
    bool anyUnusable = false;
};

}  // namespace

int runCheck(const CommandLine& commandLine, Output& output) {
    if (commandLine.explainedRule) {
        explain(*commandLine.explainedRule, commandLine.format, output);
        return kExitDone;
    }
    const RuleChoice choice(commandLine);
    const auto writer = writerFor(commandLine, choice, output);
    carryOut(commandLine.shared);
    FileChecks checks(commandLine, choice, *writer);
    writer->begin();
    for (const std::string& path : commandLine.words)
        checks.check(path);
    writer->end();
    checks.end();
    writer->flush();
    return checks.exitCode();
}

}  // namespace ttconfig

// Rules: looks up the rules and formats what each means.
// Entry points: requireRule(), ruleText(), rulesText(), rulesPage(), severityWord().
// Owns: the reference page of the rules.
// Covered by tests/tools/ttconfig/findings/findingparts_test.cpp.

#include "ttconfig/findings/rules.h"

#include <vector>

#include "ttconfig/invocation/fault.h"
#include "ttconfig/text/nearestname.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

constexpr std::size_t kLineWidth = 100;

constexpr const char* kPage =
    "# What `ttconfig check` looks for\n\n"
    "Every rule with its severity. `--disable RULE` turns a rule off, `--fatal RULE` makes its findings errors,\n"
    "`--explain RULE` shows what stands here. Written by `ttconfig check --explain all --format markdown`.\n";

constexpr bool everyRuleIsExplained() {
    for (const Rule& rule : kRules) {
        if (rule.name.empty() || rule.title.empty() || rule.explanation.empty()) return false;
        if (rule.explanation.back() != '.' || rule.explanation.find("Example: ") == std::string_view::npos)
            return false;
        for (const char c : rule.name) {
            if (c != '-' && (c < 'a' || c > 'z') && (c < '0' || c > '9')) return false;
        }
    }
    return true;
}
static_assert(everyRuleIsExplained(), "a rule needs a name, a title and an explanation with an example");

constexpr bool everyRuleStandsOnce() {
    for (const Rule& rule : kRules) {
        int found = 0;
        for (const Rule& other : kRules)
            found += rule.name == other.name;
        if (found != 1) return false;
    }
    return true;
}
static_assert(everyRuleStandsOnce(), "a rule stands twice in rules.def");

// The text wrapped to lines of limited length, each indented.
std::string wrapped(std::string_view text, std::string_view indent) {
    std::string lines;
    std::size_t width = 0;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(word.size() < text.size() ? word.size() + 1 : word.size());
        if (width == 0 || indent.size() + width + 1 + word.size() > kLineWidth) {
            lines += lines.empty() ? "" : "\n";
            lines += indent;
            width = 0;
        } else {
            lines += ' ';
            ++width;
        }
        lines += word;
        width += word.size();
    }
    return lines + '\n';
}

// Escapes the characters that Markdown interprets outside code.
std::string markdown(std::string_view text) {
    std::string page;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == '*' || c == '_' || c == '<' || c == '`' || c == '|' || c == '\\') page += '\\';
        page += c;
    }
    return page;
}

}  // namespace

std::string_view severityWord(Severity severity) {
    switch (severity) {
        case Severity::Note:
            return "note";
        case Severity::Warning:
            return "warning";
        case Severity::Error:
            return "error";
    }
    return "";
}

std::size_t requireRule(std::string_view name) {
    std::vector<std::string_view> names;
    for (std::size_t number = 0; number < kRuleCount; ++number) {
        if (kRules[number].name == name) return number;
        names.push_back(kRules[number].name);
    }
    throw Fault(kExitUsage, "unknown rule " + shownText(name) + didYouMean(name, names));
}

std::string ruleText(const Rule& rule) {
    return std::string(rule.name) + " (" + std::string(severityWord(rule.severity)) + "): " + std::string(rule.title) +
           "\n" + wrapped(rule.explanation, "  ");
}

std::string rulesText() {
    std::string text;
    for (const Rule& rule : kRules)
        text += (text.empty() ? "" : "\n") + ruleText(rule);
    return text;
}

std::string rulesPage() {
    std::string page = kPage;
    for (const Rule& rule : kRules) {
        page += "\n## " + std::string(rule.name) + "\n\n**" + std::string(rule.title) + "** (" +
                std::string(severityWord(rule.severity)) + ").\n\n" + wrapped(markdown(rule.explanation), "");
    }
    return page;
}

}  // namespace ttconfig

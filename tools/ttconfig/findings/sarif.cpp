// SARIF: writes findings for programs that collect the findings of many tools.
// Entry points: SarifWriter, uriOf().
// Covered by tests/tools/ttconfig/findings/sarif_test.cpp.

#include "ttconfig/findings/sarif.h"

#include <fmt/format.h>

#include <unordered_map>

#include "ttconfig/findings/rules.h"
#include "ttconfig/text/answertext.h"

namespace ttconfig {

namespace {

std::size_t ruleNumber(std::string_view name) {
    static const std::unordered_map<std::string_view, std::size_t> kNumbers = [] {
        std::unordered_map<std::string_view, std::size_t> numbers;
        for (std::size_t number = 0; number < kRuleCount; ++number)
            numbers.emplace(kRules[number].name, number);
        return numbers;
    }();
    return kNumbers.at(name);
}

Answer ruleObject(const Rule& rule, Severity severity) {
    return {{"id", rule.name},
            {"shortDescription", {{"text", rule.title}}},
            {"fullDescription", {{"text", rule.explanation}}},
            {"help", {{"text", ruleText(rule)}}},
            {"defaultConfiguration", {{"level", severityWord(severity)}}}};
}

// A location without its closing brace, so that more members can follow. The URI needs no JSON escapes.
std::string location(const std::string& uri, const std::string& region) {
    return fmt::format(R"({{"physicalLocation":{{"artifactLocation":{{"uri":"{}"}},"region":{{{}}}}})", uri, region);
}

bool isPlainInUri(char c) {
    const bool isWord = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    return isWord || c == '-' || c == '.' || c == '_' || c == '~' || c == '/';
}

}  // namespace

std::string uriOf(std::string_view path) {
    std::string uri = path.substr(0, 1) == "/" ? "file://" : "";
    for (const char c : path)
        uri += isPlainInUri(c) ? std::string(1, c) : fmt::format("%{:02X}", static_cast<unsigned char>(c));
    return uri;
}

void SarifWriter::begin() {
    Answer rules = Answer::array();
    for (std::size_t number = 0; number < kRuleCount; ++number)
        rules.push_back(ruleObject(kRules[number], severities[number]));
    const Answer driver = {{"name", "ttconfig"}, {"version", TTCONFIG_VERSION}, {"rules", rules}};
    write(
        "{\"version\":\"2.1.0\",\"$schema\":\"https://json.schemastore.org/sarif-2.1.0.json\",\"runs\":[{"
        "\"columnKind\":\"utf16CodeUnits\",\"tool\":{\"driver\":" +
        answerJson(driver) + "},\"results\":[");
}

void SarifWriter::beginFile(const std::string& path, const standin::SettingsText& text) {
    uri = uriOf(path);
    columns.emplace(text);
}

void SarifWriter::add(const Finding& finding) {
    const std::string region =
        fmt::format(R"("startLine":{},"startColumn":{},"endColumn":{})", finding.place.line,
                    columns->column(finding.place), columns->column(finding.place, finding.length));
    write(any ? ",\n" : "\n");
    write(fmt::format(R"({{"ruleId":"{}","ruleIndex":{},"level":"{}","message":{{"text":{}}},"locations":[{}}}])",
                      finding.rule, ruleNumber(finding.rule), severityWord(finding.severity), textJson(finding.message),
                      location(uri, region)));
    if (finding.related) {
        const std::string other =
            fmt::format(R"("startLine":{},"startColumn":{})", finding.related->line, columns->column(*finding.related));
        write(
            fmt::format(R"(,"relatedLocations":[{},"message":{{"text":"the other place"}}}}])", location(uri, other)));
    }
    write("}");
    any = true;
}

void SarifWriter::addUnusable(const std::string& path, const std::string& message) {
    notifications.push_back(
        {{"level", "error"},
         {"message", {{"text", message}}},
         {"locations", Answer::array({{{"physicalLocation", {{"artifactLocation", {{"uri", uriOf(path)}}}}}}})}});
}

// A file that could not be checked is not a result; a notification says that the check is incomplete.
void SarifWriter::end() {
    Answer invocation = {{"executionSuccessful", notifications.empty()}};
    if (!notifications.empty()) invocation["toolExecutionNotifications"] = notifications;
    write("\n],\"invocations\":[" + answerJson(invocation) + "]}]}\n");
}

}  // namespace ttconfig

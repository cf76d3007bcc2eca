// Reads back the output of `ttconfig check`: text, JSON and SARIF.

#include "fuzz/check/toldfindings.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <nlohmann/json.hpp>
#include <string_view>

#include "fuzz/support/shownbytes.h"
#include "fuzz/support/target.h"
#include "ttconfig/findings/rules.h"
#include "ttconfig/text/showntext.h"

namespace fuzz {

namespace {

using ttconfig::Finding;
using Json = nlohmann::json;

// The text format shows at most this many findings per rule.
constexpr std::size_t kMostOfARule = 1000;

Json parsed(const std::string& output) {
    require(isUtf8(output), "what is written for programs is UTF-8", output);
    Json json = Json::parse(output, nullptr, false);
    require(!json.is_discarded(), "what is written for programs is JSON", output);
    return json;
}

// --- text

std::string lineOf(const std::string& shownPath, const Finding& finding) {
    return shownPath + ":" + std::to_string(finding.place.line) + ":" + std::to_string(finding.place.column) + ": " +
           std::string(severityWord(finding.severity)) + ": " + finding.message + " [" + std::string(finding.rule) +
           "]";
}

// The number of omitted findings in a line such as "7 more of unknown-key, 2 more of no-key-value-line".
std::size_t leftOutIn(std::string_view more) {
    std::size_t count = 0;
    while (!more.empty()) {
        const std::size_t end = std::min(more.find(", "), more.size());
        const std::string piece(more.substr(0, end));
        require(piece.find(" more of ") != std::string::npos, "what is left out is told by its rule", piece);
        count += std::strtoul(piece.c_str(), nullptr, 10);
        more.remove_prefix(std::min(end + 2, more.size()));
    }
    return count;
}

// Checks the lines of one file and returns how many there are.
std::size_t checkLinesOf(const CheckedFile& file, const std::vector<std::string>& lines, std::size_t first) {
    constexpr std::string_view kHint = " (--format json has them all)";
    const std::string path = ttconfig::visibleText(file.path);
    std::size_t at = first;
    std::map<std::string_view, std::size_t> ofRule;
    std::size_t left = 0;
    for (const Finding& finding : file.findings) {
        if (at < lines.size() && lines[at] == lineOf(path, finding)) {
            ++at;
            ++ofRule[finding.rule];
        } else {
            ++left;
        }
    }
    for (const auto& [rule, count] : ofRule)
        require(count <= kMostOfARule, "people read no more than so many findings of a rule", rule);
    if (left > 0) {
        require(at < lines.size() && lines[at].rfind(path + ": ", 0) == 0, "every finding has its line",
                at < lines.size() ? lines[at] : path);
        const std::size_t start = path.size() + 2;
        const std::size_t end = lines[at].find(kHint, start);
        require(end != std::string::npos, "what is left out is counted", lines[at]);
        const std::size_t told = leftOutIn(std::string_view(lines[at]).substr(start, end - start));
        require(told == left, "as many findings are left out as are told", lines[at]);
        ++at;
    }
    if (file.findings.empty()) {
        require(at < lines.size() && lines[at] == path + ": no findings", "a file without findings has its line", path);
        ++at;
    }
    return at - first;
}

// --- SARIF

std::string decodedUri(std::string_view uri) {
    std::string path;
    for (std::size_t at = uri.rfind("file://", 0) == 0 ? 7 : 0; at < uri.size(); ++at) {
        const char character = uri[at];
        const bool isPlain = character > ' ' && character < '\x7F' && character != '"' && character != '\\';
        require(isPlain, "a URI has plain characters alone", uri);
        if (character == '%') {
            path += static_cast<char>(std::strtol(std::string(uri.substr(at + 1, 2)).c_str(), nullptr, 16));
            at += 2;
        } else {
            path += character;
        }
    }
    return path;
}

std::string uriPathOf(const Json& location) {
    return decodedUri(location.at("physicalLocation").at("artifactLocation").at("uri").get_ref<const std::string&>());
}

void checkPlace(const Json& region, const ttconfig::Place& place, const CheckedFile& file) {
    require(region.at("startLine") == place.line &&
                region.at("startColumn") == utf16Column(file.lines[place.line - 1], place.column - 1),
            "a region starts at its place", region.dump());
}

void checkResult(const Json& result, const Json& rules, const Finding& finding, const CheckedFile& file) {
    const Json& location = result.at("locations").at(0);
    require(result.at("locations").size() == 1 && uriPathOf(location) == file.path, "a result names its file",
            file.path);
    require(result.at("ruleId") == finding.rule &&
                rules.at(result.at("ruleIndex").get<std::size_t>()).at("id") == finding.rule,
            "a result has its rule", finding.rule);
    require(result.at("level") == severityWord(finding.severity), "a result has its severity", finding.rule);
    require(result.at("message").at("text") == finding.message, "a result has its message", finding.message);
    const Json& region = location.at("physicalLocation").at("region");
    checkPlace(region, finding.place, file);
    const std::size_t end = finding.place.column - 1 + finding.length;
    require(region.at("endColumn") == utf16Column(file.lines[finding.place.line - 1], end),
            "a region ends where the finding does", finding.message);
    require(result.contains("relatedLocations") == finding.related.has_value(), "a result has its other place",
            finding.message);
    if (!finding.related) return;
    const Json& related = result.at("relatedLocations").at(0);
    require(uriPathOf(related) == file.path, "the other place is in the same file", finding.message);
    checkPlace(related.at("physicalLocation").at("region"), *finding.related, file);
}

void checkInvocation(const Json& invocation, const std::vector<CheckedFile>& files) {
    std::vector<std::string> unusable;
    for (const CheckedFile& file : files) {
        if (!file.isUsable) unusable.push_back(file.path);
    }
    require(invocation.at("executionSuccessful") == unusable.empty(), "a run tells whether all was checked");
    const Json notifications = invocation.value("toolExecutionNotifications", Json::array());
    require(notifications.size() == unusable.size(), "a run tells each file that was not checked");
    for (std::size_t i = 0; i < unusable.size(); ++i)
        require(uriPathOf(notifications[i].at("locations").at(0)) == unusable[i], "a notification names its file");
}

}  // namespace

void checkFindingsText(const std::string& output, const std::vector<CheckedFile>& files) {
    const std::vector<std::string> lines = endedLines(output);
    for (const std::string& line : lines)
        require(!hasControls(line) && isUtf8(line), "a line is UTF-8 without control characters", line);
    std::size_t read = 0;
    for (const CheckedFile& file : files) {
        if (file.isUsable) read += checkLinesOf(file, lines, read);
    }
    require(read == lines.size(), "there are no lines beside the findings", read < lines.size() ? lines[read] : "");
}

void checkFindingsJson(const std::string& output, const std::vector<CheckedFile>& files) {
    const Json told = parsed(output);
    require(told.is_array(), "findings are an array");
    std::size_t read = 0;
    for (const CheckedFile& file : files) {
        for (const Finding& finding : file.findings) {
            Json wanted = {{"file", replacedText(file.path)},
                           {"line", finding.place.line},
                           {"column", finding.place.column},
                           {"length", finding.length},
                           {"severity", severityWord(finding.severity)},
                           {"rule", finding.rule},
                           {"message", finding.message}};
            if (finding.related) {
                wanted["related"] = {{"line", finding.related->line}, {"column", finding.related->column}};
            }
            require(read < told.size() && told[read] == wanted, "JSON has every finding", wanted.dump());
            ++read;
        }
    }
    require(read == told.size(), "JSON has no findings beside those");
}

void checkFindingsSarif(const std::string& output, const std::vector<CheckedFile>& files) {
    const Json log = parsed(output);
    require(log.at("version") == "2.1.0" && log.at("runs").size() == 1, "SARIF has one run");
    const Json& run = log.at("runs").at(0);
    const Json& rules = run.at("tool").at("driver").at("rules");
    require(rules.size() == ttconfig::kRuleCount, "SARIF has every rule");
    const Json& results = run.at("results");
    std::size_t read = 0;
    for (const CheckedFile& file : files) {
        for (const Finding& finding : file.findings) {
            require(read < results.size(), "SARIF has every finding", finding.message);
            checkResult(results[read++], rules, finding, file);
        }
    }
    require(read == results.size(), "SARIF has no findings beside those");
    checkInvocation(run.at("invocations").at(0), files);
}

}  // namespace fuzz

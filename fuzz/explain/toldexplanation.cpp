// Reads back the output of `ttconfig explain`, text and JSON.

#include "fuzz/explain/toldexplanation.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "fuzz/support/shownbytes.h"
#include "fuzz/support/target.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/showntext.h"

namespace fuzz {

namespace {

using Json = nlohmann::json;
using ttconfig::Place;
using ttconfig::ShownExplanation;

constexpr std::size_t kShownLine = 160;
constexpr std::size_t kMostCandidates = 20;
// Edited lines up to this length are shown in full.
constexpr std::size_t kShownEdit = 4000;

void checkPlace(const std::optional<Place>& place, const std::vector<std::string>& lines) {
    if (!place) return;
    require(place->line >= 1 && place->line <= lines.size() && place->column >= 1 &&
                place->column <= lines[place->line - 1].size() + 1,
            "a place is in the file", std::to_string(place->line) + ":" + std::to_string(place->column));
}

const std::string& textOf(const Json& object, const char* member) {
    return object.at(member).get_ref<const std::string&>();
}

// --- JSON

// The line without the CR of a CR LF line end.
std::string withoutEnd(const std::vector<std::string>& lines, std::size_t number) {
    std::string line = lines[number - 1];
    if (number < lines.size() && !line.empty() && line.back() == '\r') line.pop_back();
    return line;
}

void checkPlaceJson(const Json& told, const std::optional<Place>& place, const ShownExplanation& shown,
                    const std::vector<std::string>& lines) {
    require(told.is_null() != place.has_value(), "JSON has the places", told.dump());
    if (!place) return;
    require(textOf(told, "file") == replacedText(shown.file) && told.at("line") == place->line &&
                told.at("column") == place->column,
            "JSON has the place", told.dump());
    const std::string line = withoutEnd(lines, place->line);
    require(line.size() > kShownLine || textOf(told, "text") == plainText(line), "JSON has the place's line",
            told.dump());
}

void checkJson(const Json& told, const ShownExplanation& shown, const ttconfig::Answer& answer,
               const std::vector<std::string>& lines) {
    const ttconfig::Explanation& explanation = shown.explanation;
    require(textOf(told, "call") == shown.call && told.at("arguments").size() == shown.words.size(),
            "JSON has the question");
    require(told.at("answer") == Json::parse(ttconfig::answerJson(answer)), "JSON has the store's answer", told.dump());
    require(
        textOf(told, "reason") == wordOf(explanation.reason) && textOf(told, "rule") == replacedText(explanation.rule),
        "JSON has the reason", told.dump());
    checkPlaceJson(told.at("place"), explanation.place, shown, lines);
    const Json& lost = told.at("lost");
    require(lost.size() == explanation.lost.size(), "JSON has every candidate");
    for (std::size_t i = 0; i < lost.size(); ++i) {
        const ttconfig::Candidate& candidate = explanation.lost[i];
        require(textOf(lost[i], "reason") == wordOf(candidate.reason) &&
                    textOf(lost[i], "what") == replacedText(candidate.what) &&
                    textOf(lost[i], "outcome") == replacedText(candidate.outcome),
                "JSON has the candidate", lost[i].dump());
        checkPlaceJson(lost[i].at("place"), candidate.place, shown, lines);
    }
    require(told.contains("whyNot") == shown.whyNot.has_value(), "JSON has the edit that was asked for");
}

// --- text, derived from the JSON

std::string placeLine(const ShownExplanation& shown, const Json& place, const char* indent) {
    return indent + ttconfig::visibleText(shown.file) + ":" + place.at("line").dump() + ":" +
           place.at("column").dump() + ": " + textOf(place, "text");
}

void addEdit(const ShownExplanation& shown, const Json& edit, std::vector<std::string>& lines) {
    lines.push_back(ttconfig::visibleText(shown.file) + ":" + edit.at("line").dump());
    for (const Json& line : edit.at("remove"))
        lines.push_back("- " + plainText(line.get<std::string>()));
    for (const Json& line : edit.at("add"))
        lines.push_back("+ " + plainText(line.get<std::string>()));
}

void addWhyNot(const ShownExplanation& shown, const Json& whyNot, std::vector<std::string>& lines) {
    const std::string wanted = shown.wanted->empty() ? "\"\"" : plainText(ttconfig::cutText(*shown.wanted, kShownLine));
    lines.emplace_back();
    const Json& edit = whyNot.at("edit");
    if (whyNot.at("isSoAlready") == true) {
        lines.push_back("It is " + wanted + " already.");
    } else if (edit.is_null()) {
        lines.push_back("No edit of the settings file makes it " + wanted + ": " + textOf(whyNot, "whyNone") + ".");
    } else {
        const Json& reach = edit.at("reaches");
        const std::string further = reach.is_null() ? "" : "; it reaches " + reach.get<std::string>() + " as well";
        lines.push_back("The smallest edit that makes it " + wanted + further + ":");
        addEdit(shown, edit, lines);
        const Json& narrower = whyNot.at("narrowerEdit");
        if (narrower.is_null()) return;
        lines.emplace_back();
        lines.emplace_back("The smallest one for this question alone:");
        addEdit(shown, narrower, lines);
    }
}

std::vector<std::string> linesFor(const ShownExplanation& shown, const Json& told, const ttconfig::Answer& answer) {
    std::string head = shown.call;
    for (const std::string& word : shown.words)
        head += " " + plainText(ttconfig::cutText(word, kShownLine));
    std::vector<std::string> lines = {head + ": " + plainText(ttconfig::answerText(answer)),
                                      textOf(told, "reason") + ": " + plainText(textOf(told, "rule"))};
    if (!told.at("place").is_null()) lines.push_back(placeLine(shown, told.at("place"), "  "));
    const Json& lost = told.at("lost");
    const bool isUnitRule = shown.explanation.reason == ttconfig::Reason::UnitRule;
    if (!lost.empty()) lines.emplace_back(isUnitRule ? "asked on the way:" : "considered, and lost:");
    for (std::size_t i = 0; i < lost.size() && i < kMostCandidates; ++i) {
        const Json& candidate = lost[i];
        lines.push_back("  " + textOf(candidate, "reason") + ": " +
                        plainText(textOf(candidate, "what") + ": " + textOf(candidate, "outcome")));
        if (!candidate.at("place").is_null()) lines.push_back(placeLine(shown, candidate.at("place"), "    "));
    }
    if (lost.size() > kMostCandidates) {
        const std::size_t left = lost.size() - kMostCandidates + told.at("furtherLost").get<std::size_t>();
        lines.push_back("  and " + std::to_string(left) + " more; --format json shows up to " +
                        std::to_string(ttconfig::kMostLost) + " of them");
    }
    if (shown.whyNot) addWhyNot(shown, told.at("whyNot"), lines);
    return lines;
}

void checkText(const std::string& text, const std::vector<std::string>& wanted) {
    const std::vector<std::string> lines = endedLines(text);
    for (std::string line : lines) {
        line.erase(std::remove(line.begin(), line.end(), '\t'), line.end());
        require(!hasControls(line) && isUtf8(line), "a line is UTF-8 without control characters", line);
    }
    require(lines.size() == wanted.size(), "text has as many lines as follow from JSON", text);
    for (std::size_t i = 0; i < lines.size(); ++i)
        require(lines[i] == wanted[i], "text tells what JSON tells", lines[i]);
}

// --- edits

// Whether JSON output shows a line unchanged.
bool isWrittenWhole(const std::string& line) {
    return line.size() <= kShownEdit && isUtf8(line) && line.find('\r') == std::string::npos;
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += (&line == &lines.front() ? "" : "\n") + line;
    return text;
}

}  // namespace

void checkPlaces(const ttconfig::Explanation& explanation, const std::vector<std::string>& lines) {
    checkPlace(explanation.place, lines);
    for (const ttconfig::Candidate& candidate : explanation.lost)
        checkPlace(candidate.place, lines);
}

ToldExplanation checkedTelling(const ShownExplanation& shown, const ttconfig::Answer& answer,
                               const std::vector<std::string>& lines) {
    ToldExplanation printed;
    printed.json = ttconfig::answerJson(explanationJson(shown));
    require(isUtf8(printed.json), "JSON is UTF-8", printed.json);
    const Json told = Json::parse(printed.json, nullptr, false);
    require(told.is_object(), "JSON is an object", printed.json);
    checkJson(told, shown, answer, lines);
    printed.text = explanationText(shown, ttconfig::Colours());
    checkText(printed.text, linesFor(shown, told, answer));
    require(withoutColours(explanationText(shown, ttconfig::Colours(true))) == printed.text,
            "colours change nothing else", printed.text);
    return printed;
}

std::vector<std::string> editedByHand(const std::string& json, const std::vector<std::string>& lines) {
    if (!std::all_of(lines.begin(), lines.end(), isWrittenWhole)) return {};
    const Json told = Json::parse(json);
    std::vector<std::string> texts;
    for (const char* which : {"edit", "narrowerEdit"}) {
        const Json& edit = told.at("whyNot").at(which);
        if (edit.is_null()) continue;
        // A line is added after the last one even if that one has no line end.
        std::vector<std::string> edited = lines;
        if (edited.back().empty()) edited.pop_back();
        const auto first = edit.at("line").get<std::size_t>() - 1;
        const Json& removed = edit.at("remove");
        require(first + removed.size() <= edited.size(), "what an edit takes out is in the file", edit.dump());
        for (std::size_t i = 0; i < removed.size(); ++i)
            require(removed[i] == edited[first + i], "an edit takes out the lines of its place", edit.dump());
        const auto at = edited.begin() + static_cast<std::ptrdiff_t>(first);
        edited.erase(at, at + static_cast<std::ptrdiff_t>(removed.size()));
        const auto added = edit.at("add").get<std::vector<std::string>>();
        edited.insert(edited.begin() + static_cast<std::ptrdiff_t>(first), added.begin(), added.end());
        edited.emplace_back();
        texts.push_back(joined(edited));
    }
    return texts;
}

}  // namespace fuzz

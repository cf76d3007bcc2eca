// Explanation text: formats explanations and edits.
// Entry points: explanationText(), explanationJson().
// Covered by tests/tools/ttconfig/explaining/explain_test.cpp.

#include "ttconfig/explaining/explaintext.h"

#include <algorithm>

#include "traderbase/base/config/internal/text/splitting.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/utf8.h"

namespace ttconfig {

namespace {

// Of a long line, only the part around the place is shown.
constexpr std::size_t kShownBefore = 60;
constexpr std::size_t kShownLine = 160;
// Of many candidates, text output shows only the first.
constexpr std::size_t kMostCandidates = 20;

// Everything the output is made of, including the lines of the settings text.
struct Page {
    explicit Page(const ShownExplanation& shown)
        : text(shown.text),
          file(shown.file),
          shownFile(visibleText(shown.file)),
          explanation(shown.explanation),
          wanted(shown.wanted),
          whyNot(shown.whyNot),
          lines(shown.text) {}

    const standin::SettingsText& text;
    const std::string& file;
    const std::string shownFile;  // as printed in text output
    const Explanation& explanation;
    const std::optional<std::string>& wanted;
    const std::optional<WhyNot>& whyNot;
    LineTexts lines;
};

bool isInside(std::string_view text, std::size_t at) {
    return at < text.size() && continuesCharacter(text[at]);
}

// The bytes in printable form, on one line. Tabs are kept.
std::string shownBytes(std::string_view bytes) {
    std::string text;
    ttservice::internal::splitKeepEmpty(bytes, '\t', [&](std::string_view piece) {
        if (piece.data() != bytes.data()) text += '\t';
        text += onOneLine(std::string(piece));
    });
    return text;
}

std::string shownLine(const Page& shown, const Place& place) {
    const std::string_view line = shown.lines[place.line];
    if (line.size() <= kShownLine) return shownBytes(line);
    std::size_t from = place.column > kShownBefore ? place.column - kShownBefore : 0;
    while (isInside(line, from))
        ++from;
    std::size_t to = std::min(line.size(), from + kShownLine);
    while (isInside(line, to))
        --to;
    return (from > 0 ? "..." : "") + shownBytes(line.substr(from, to - from)) + (to < line.size() ? "..." : "");
}

std::string placeText(const Page& shown, const Place& place, const Colours& colours) {
    const std::string where =
        shown.shownFile + ":" + std::to_string(place.line) + ":" + std::to_string(place.column) + ":";
    return colours(Tint::Place, where) + " " + shownLine(shown, place);
}

// --- edits

std::string editText(const Page& shown, const Edit& edit, const Colours& colours) {
    const EditLines lines = linesOf(shown.text, edit);
    std::string text = colours(Tint::Place, shown.shownFile + ":" + std::to_string(edit.line)) + "\n";
    for (const std::string& line : lines.before)
        text += colours(Tint::Bad, "- " + shownBytes(line)) + "\n";
    for (const std::string& line : lines.after)
        text += colours(Tint::Good, "+ " + shownBytes(line)) + "\n";
    return text;
}

std::string whyNotText(const Page& shown, const Colours& colours) {
    const WhyNot& whyNot = *shown.whyNot;
    const std::string wanted = shown.wanted->empty() ? "\"\"" : shownBytes(cutText(*shown.wanted, kShownLine));
    if (whyNot.isSoAlready) return "\nIt is " + wanted + " already.\n";
    if (!whyNot.edit) return "\nNo edit of the settings file makes it " + wanted + ": " + whyNot.whyNone + ".\n";
    std::string text = "\nThe smallest edit that makes it " + wanted;
    if (!whyNot.edit->reach.empty()) text += "; it reaches " + std::string(whyNot.edit->reach) + " as well";
    text += ":\n" + editText(shown, *whyNot.edit, colours);
    if (whyNot.narrower) {
        text += "\nThe smallest one for this question alone:\n" + editText(shown, *whyNot.narrower, colours);
    }
    return text;
}

// --- candidates

std::string candidateText(const Page& shown, const Candidate& candidate, const Colours& colours) {
    std::string text = "  " + std::string(wordOf(candidate.reason)) + ": " +
                       shownBytes(candidate.what + ": " + candidate.outcome) + "\n";
    if (candidate.place) text += "    " + placeText(shown, *candidate.place, colours) + "\n";
    return text;
}

std::string lostText(const Page& shown, const Colours& colours) {
    const std::vector<Candidate>& lost = shown.explanation.lost;
    if (lost.empty()) return {};
    std::string text = shown.explanation.reason == Reason::UnitRule ? "asked on the way:\n" : "considered, and lost:\n";
    for (std::size_t i = 0; i < lost.size() && i < kMostCandidates; ++i)
        text += candidateText(shown, lost[i], colours);
    if (lost.size() > kMostCandidates) {
        const std::size_t left = lost.size() - kMostCandidates + shown.explanation.furtherLost;
        text += "  and " + std::to_string(left) + " more; --format json shows up to " + std::to_string(kMostLost) +
                " of them\n";
    }
    return text;
}

// --- JSON

Answer placeJson(const Page& shown, const std::optional<Place>& place) {
    if (!place) return nullptr;
    return {{"file", shown.file}, {"line", place->line}, {"column", place->column}, {"text", shownLine(shown, *place)}};
}

Answer editJson(const Page& shown, const std::optional<Edit>& edit) {
    if (!edit) return nullptr;
    const EditLines lines = linesOf(shown.text, *edit);
    Answer json = {{"file", shown.file}, {"line", edit->line}};
    json["remove"] = lines.before;
    json["add"] = lines.after;
    json["reaches"] = edit->reach.empty() ? Answer(nullptr) : Answer(std::string(edit->reach));
    return json;
}

Answer whyNotJson(const Page& shown) {
    const WhyNot& whyNot = *shown.whyNot;
    Answer json = {{"wanted", *shown.wanted}, {"isSoAlready", whyNot.isSoAlready}};
    json["edit"] = editJson(shown, whyNot.edit);
    json["narrowerEdit"] = editJson(shown, whyNot.narrower);
    json["whyNone"] = whyNot.whyNone.empty() ? Answer(nullptr) : Answer(whyNot.whyNone);
    return json;
}

}  // namespace

std::string explanationText(const ShownExplanation& shown, const Colours& colours) {
    const Explanation& explanation = shown.explanation;
    const Page page(shown);
    std::string text = colours(Tint::Heading, shown.call);
    for (const std::string& word : shown.words)
        text += " " + shownBytes(cutText(word, kShownLine));
    text += ": " + shownBytes(answerText(explanation.answer)) + "\n";
    text += std::string(wordOf(explanation.reason)) + ": " + shownBytes(explanation.rule) + "\n";
    if (explanation.place) text += "  " + placeText(page, *explanation.place, colours) + "\n";
    text += lostText(page, colours);
    if (shown.whyNot) text += whyNotText(page, colours);
    return text;
}

Answer explanationJson(const ShownExplanation& shown) {
    const Explanation& explanation = shown.explanation;
    const Page page(shown);
    Answer json = {{"call", shown.call}, {"arguments", shown.words}};
    json["answer"] = explanation.answer;
    json["reason"] = std::string(wordOf(explanation.reason));
    json["rule"] = explanation.rule;
    json["place"] = placeJson(page, explanation.place);
    json["lost"] = Answer::array();
    for (const Candidate& candidate : explanation.lost) {
        Answer lost = {{"reason", std::string(wordOf(candidate.reason))}, {"what", candidate.what}};
        lost["place"] = placeJson(page, candidate.place);
        lost["outcome"] = candidate.outcome;
        json["lost"].push_back(std::move(lost));
    }
    json["furtherLost"] = explanation.furtherLost;
    if (shown.whyNot) json["whyNot"] = whyNotJson(page);
    return json;
}

}  // namespace ttconfig

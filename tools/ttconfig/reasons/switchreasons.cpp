// Reasons of the platform switches: why a platform is on or off under a key, and what its list is.
// Doors: addSwitchReasons().
// Owns: nothing.
// Covered by tests/tools/ttconfig/explainer_test.cpp and explainedanswers_test.cpp.

#include "traderbase/base/config/internal/platformlist.h"
#include "traderbase/base/config/internal/platformswitchtable.h"
#include "traderbase/base/config/internal/strictnumbers.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/switchfacts.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
using internal::SwitchSense;

constexpr std::string_view kSection = "setting";

// A question about one platform under one key.
struct SwitchQuestion {
    const Question& question;
    std::string key;
    int platform;
    SwitchSense sense;

    bool answer(bool isListed) const { return isListed == (sense == SwitchSense::Listed); }
    std::string inverted() const {
        return sense == SwitchSense::Listed ? "" : "; the answer is turned round: true is for platforms not listed";
    }
};

// Pieces that name the platform, and pieces that look as if they did.
void addPieces(const SwitchQuestion& asked, const SwitchList& list, const ListedPlatform* winner,
               Explanation& explanation) {
    for (const ListedPlatform& piece : list.pieces) {
        if (&piece == winner) continue;
        if (piece.platform == asked.platform) {
            lose(explanation,
                 {Reason::Listed, platformName(asked.platform) + " once more", piece.place, "changes nothing"});
        } else if (!piece.platform && internal::looseInt(piece.piece) == asked.platform) {
            lose(explanation, {Reason::Listed, "the piece " + shownText(piece.piece), piece.place,
                               "is no platform ID: passed over"});
        }
    }
}

Explanation explainList(const SwitchQuestion& asked) {
    const SwitchList list = switchList(asked.question.settings(), asked.key);
    const std::string name = nameOf(kSection, asked.key);
    if (list.entry == nullptr) {
        return decided(asked.answer(false), Reason::KeyAbsent, "there is no key " + name + asked.inverted());
    }
    Explanation explanation;
    const ListedPlatform* found = list.find(asked.platform);
    if (found != nullptr) {
        explanation = decided(asked.answer(true), Reason::Listed,
                              name + " lists " + platformName(asked.platform) + asked.inverted(), found->place);
    } else {
        explanation = decided(asked.answer(false), Reason::NotListed,
                              name + " does not list " + platformName(asked.platform) + asked.inverted(),
                              valuePlace(*list.entry));
    }
    addPieces(asked, list, found, explanation);
    addRepeats(asked.question, kSection, asked.key, explanation);
    return explanation;
}

Explanation explainSwitch(const SwitchQuestion& asked) {
    const auto& overrides = asked.question.facts.overrides;
    const auto override = overrides.find(asked.key);
    if (override == overrides.end()) return explainList(asked);
    Explanation list = explainList(asked);
    Explanation explanation =
        decided(asked.answer(override->second), Reason::Override,
                asked.key + " is overridden with " + (override->second ? "true" : "false") + asked.inverted());
    lose(explanation, {list.reason, list.rule, list.place, wouldBe(list.answer)});
    for (Candidate& lost : list.lost)
        lose(explanation, std::move(lost));
    explanation.furtherLost += list.furtherLost;
    return explanation;
}

std::string joined(const std::vector<std::string>& pieces) {
    std::string text;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        text += (i == 0 ? "" : ",") + pieces[i];
    return text;
}

// The platform in front of the list, behind it, or in place of a piece that was meant to be it.
void suggestListing(const SwitchQuestion& asked, const standin::SettingsEntry& entry, Edits& edits) {
    const std::string id = std::to_string(asked.platform);
    const std::string value(entry.value);
    if (value.empty()) edits.setValue(entry, id);
    edits.setValue(entry, value + "," + id);
    edits.setValue(entry, id + "," + value);
    if (!value.empty() && value.back() == ',') edits.setValue(entry, value + id);
    for (const ListedPlatform& piece : switchList(entry).pieces) {
        if (piece.platform || internal::looseInt(piece.piece) != asked.platform) continue;
        edits.replacePiece(entry, piece.piece, id);
    }
}

void suggestUnlisting(const SwitchQuestion& asked, const standin::SettingsEntry& entry, Edits& edits) {
    std::vector<std::string> kept;
    internal::splitKeepEmpty(entry.value, ',', [&](std::string_view piece) {
        if (internal::strictInt(piece) != asked.platform) kept.emplace_back(piece);
    });
    edits.setValue(entry, joined(kept));
}

void suggestSwitch(const SwitchQuestion& asked, const Wanted& wanted, Edits& edits) {
    const auto flag = wanted.flag();
    if (!flag) return;
    const bool isListed = asked.answer(true) == *flag;
    const standin::SettingsEntry* entry = asked.question.settings().findEntry(kSection, asked.key);
    if (entry == nullptr) {
        if (isListed) edits.setValue(kSection, asked.key, std::to_string(asked.platform));
        return;
    }
    isListed ? suggestListing(asked, *entry, edits) : suggestUnlisting(asked, *entry, edits);
    edits.reaching("every platform that the line lists");
    edits.removeLine(*entry);
}

ExplainedCall switchCall(SwitchQuestion (*asked)(const Question&)) {
    return {[asked](const Question& question) { return explainSwitch(asked(question)); },
            [asked](const Question& question, const Wanted& wanted, Edits& edits) {
                suggestSwitch(asked(question), wanted, edits);
            }};
}

// --- whole lists

Explanation explainGetPts(const Question& question) {
    const std::string& key = question.text(0);
    const SwitchList list = switchList(question.settings(), key);
    const std::string name = nameOf(kSection, key);
    if (list.entry == nullptr) {
        return decided(std::vector<int>(), Reason::KeyAbsent, "there is no key " + name);
    }
    Explanation explanation =
        decided(list.platforms(), Reason::FileValue, name + " as a platform list", valuePlace(*list.entry));
    for (const ListedPlatform& piece : list.pieces) {
        if (piece.platform) continue;
        lose(explanation,
             {Reason::Listed, "the piece " + shownText(piece.piece), piece.place, "is no platform ID: passed over"});
    }
    addRepeats(question, kSection, key, explanation);
    return explanation;
}

void suggestGetPts(const Question& question, const Wanted& wanted, Edits& edits) {
    edits.setValue(kSection, question.text(0), joined(wanted.items()));
    if (const auto* entry = question.settings().findEntry(kSection, question.text(0))) edits.removeLine(*entry);
}

std::map<std::string, std::vector<int>> allLists(const standin::SettingsText& text) {
    std::map<std::string, std::vector<int>> lists;
    const standin::SettingsSection* section = text.findSection(kSection);
    if (section == nullptr) return lists;
    for (const standin::SettingsEntry& entry : section->entries) {
        if (!entry.repeated) lists.emplace(entry.key, switchList(entry).platforms());
    }
    return lists;
}

Explanation explainAllPts(const Question& question) {
    const standin::SettingsSection* section = question.settings().findSection(kSection);
    const auto lists = allLists(question.settings());
    if (section == nullptr) return decided(lists, Reason::KeyAbsent, "there is no section [setting]");
    const standin::SettingsHeader& header = section->headers.front();
    Explanation explanation =
        decided(lists, Reason::FileValue, "every key of [setting] as a platform list: " + std::to_string(lists.size()),
                Place{header.line, header.column});
    for (const standin::SettingsEntry& entry : section->entries) {
        if (!entry.repeated) continue;
        lose(explanation, {Reason::FileValue, nameOf(kSection, entry.key) + " once more", keyPlace(entry),
                           "of a repeated key the first value counts"});
    }
    return explanation;
}

// One key at a time: more than one that differs is more than one edit.
void suggestAllPts(const Question& question, const Wanted& wanted, Edits& edits) {
    if (!wanted.json() || !wanted.json()->is_object()) return;
    const Answer lists = answerOf(allLists(question.settings()));
    for (const auto& [key, ids] : wanted.json()->items()) {
        if (!ids.is_array() || (lists.contains(key) && lists.at(key) == ids)) continue;
        edits.setValue(kSection, key, joined(Wanted(ids.dump()).items()));
        return;
    }
    for (const auto& [key, ids] : lists.items()) {
        if (wanted.json()->contains(key)) continue;
        if (const auto* entry = question.settings().findEntry(kSection, key)) edits.removeLine(*entry);
        return;
    }
}

}  // namespace

void addSwitchReasons(ExplainedCalls& calls) {
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning)                                      \
    calls.add(#predicate, switchCall([](const Question& question) {                             \
                  return SwitchQuestion{question, key, question.number(0), SwitchSense::sense}; \
              }));
#include "traderbase/base/config/platformswitches.def"
    calls.add("isSomePt", switchCall([](const Question& question) {
                  return SwitchQuestion{question, question.text(0), question.number(1), SwitchSense::Listed};
              }));
    calls.add("getPts", {explainGetPts, suggestGetPts});
    calls.add("getAllpts", {explainAllPts, suggestAllPts});
}

}  // namespace ttconfig

// Reasons for the platform switches: why a key is on or off for a platform, and which platforms it lists.
// Entry points: addSwitchReasons().
// Covered by reasons/explainer_test.cpp and explaining/explainedanswers_test.cpp in tests/tools/ttconfig/.

#include "traderbase/base/config/internal/platforms/platformlist.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/edits/fieldtexts.h"
#include "ttconfig/edits/pieceedits.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/tables/platformlist.h"
#include "ttconfig/text/answertext.h"
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

Candidate badPiece(const ListedPlatform& piece) {
    return {Reason::Listed, "the piece " + shownText(piece.piece), piece.place, "is no platform ID: passed over"};
}

// Adds pieces that name the platform once more, and bad pieces that were probably meant to name it.
void addPieces(const SwitchQuestion& asked, const standin::SettingsEntry& entry,
               const std::optional<ListedPlatform>& winner, Explanation& explanation) {
    forEachListed(entry, [&](const ListedPlatform& piece) {
        if (winner && winner->place == piece.place) return;
        if (piece.platform == asked.platform) {
            lose(explanation, [&] {
                return Candidate{Reason::Listed, platformName(asked.platform) + " once more", piece.place,
                                 "changes nothing"};
            });
        } else if (!piece.platform && internal::looseInt(piece.piece) == asked.platform) {
            lose(explanation, [&] { return badPiece(piece); });
        }
    });
}

Explanation explainList(const SwitchQuestion& asked) {
    const standin::SettingsEntry* entry = listEntry(asked.question.settings(), asked.key);
    const std::string name = nameOf(kSection, asked.key);
    if (entry == nullptr) {
        return decided(asked.answer(false), Reason::KeyAbsent, "there is no key " + name + asked.inverted());
    }
    const auto found = findListed(entry, asked.platform);
    Explanation explanation =
        decided(asked.answer(found.has_value()), found ? Reason::Listed : Reason::NotListed,
                name + (found ? " lists " : " does not list ") + platformName(asked.platform) + asked.inverted(),
                found ? found->place : valuePlace(*entry));
    addPieces(asked, *entry, found, explanation);
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

// Lists the platform at the front, at the end, or in place of a piece that was probably meant to name it.
void suggestListing(const SwitchQuestion& asked, const standin::SettingsEntry& entry, Edits& edits) {
    const std::string id = std::to_string(asked.platform);
    const std::string value(entry.value);
    if (value.empty()) edits.setValue(entry, id);
    edits.setValue(entry, value + "," + id);
    edits.setValue(entry, id + "," + value);
    if (!value.empty() && value.back() == ',') edits.setValue(entry, value + id);
    forEachListed(entry, [&](const ListedPlatform& piece) {
        const bool isMeant = !piece.platform && internal::looseInt(piece.piece) == asked.platform;
        if (isMeant) edits.replacePiece(entry, piece.piece, id);
    });
}

void suggestUnlisting(const SwitchQuestion& asked, const standin::SettingsEntry& entry, Edits& edits) {
    const std::string kept = withPieces(entry.value, ',', [&asked](std::string_view piece) {
        const bool isListing = internal::strictInt(piece) == asked.platform;
        return isListing ? std::nullopt : std::optional<std::string>(piece);
    });
    edits.setValue(entry, kept);
    // Blanks at the end of a value are trimmed, which could turn a last piece such as "12 " into an ID. A final ","
    // prevents that.
    edits.setValue(entry, kept + ",");
}

void suggestSwitch(const SwitchQuestion& asked, const Wanted& wanted, Edits& edits) {
    const auto flag = wanted.flag();
    if (!flag) return;
    const bool isListed = asked.answer(true) == *flag;
    const standin::SettingsEntry* entry = listEntry(asked.question.settings(), asked.key);
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
    const standin::SettingsEntry* entry = listEntry(question.settings(), key);
    const std::string name = nameOf(kSection, key);
    if (entry == nullptr) return decided(std::vector<int>(), Reason::KeyAbsent, "there is no key " + name);
    Explanation explanation =
        decided(platformsOf(entry), Reason::FileValue, name + " as a platform list", valuePlace(*entry));
    forEachListed(*entry, [&](const ListedPlatform& piece) {
        if (!piece.platform) lose(explanation, [&] { return badPiece(piece); });
    });
    addRepeats(question, kSection, key, explanation);
    return explanation;
}

// The wanted platform IDs, as pieces of a list.
WantedPieces wantedPlatforms(const std::vector<std::string>& ids) {
    WantedPieces pieces;
    pieces.count = ids.size();
    pieces.counts = [](std::string_view piece) { return internal::strictInt(piece).has_value(); };
    pieces.says = [ids](std::size_t number, std::string_view piece) {
        return says(piece, FieldKind::StrictInteger, ids[number]);
    };
    pieces.written = [ids](std::size_t number, std::string_view old) {
        return writtenLike(old, FieldKind::StrictInteger, ids[number]);
    };
    return pieces;
}

void suggestGetPts(const Question& question, const Wanted& wanted, Edits& edits) {
    suggestPieces(question.settings(), kSection, question.text(0), wantedPlatforms(wanted.items()), edits);
}

std::map<std::string, std::vector<int>> allLists(const standin::SettingsText& text) {
    std::map<std::string, std::vector<int>> lists;
    const standin::SettingsSection* section = text.findSection(kSection);
    if (section == nullptr) return lists;
    for (const standin::SettingsEntry& entry : section->entries) {
        if (!entry.repeated) lists.emplace(entry.key, platformsOf(&entry));
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

// A key whose list is missing from the other answer, or differs there.
struct OtherList {
    std::string key;
    std::vector<std::string> ids;
};

std::vector<OtherList> otherLists(const Answer& lists, const Answer& than) {
    std::vector<OtherList> others;
    for (const auto& [key, ids] : lists.items()) {
        const bool isSame = than.contains(key) && answerText(than.at(key)) == answerText(ids);
        if (!isSame) others.push_back({key, Wanted(answerJson(ids)).items()});
    }
    return others;
}

// One edit changes the list of one key, or of two keys if it renames a key.
constexpr std::size_t kMostOtherLists = 2;

void suggestAllPts(const Question& question, const Wanted& wanted, Edits& edits) {
    const standin::SettingsText& text = question.settings();
    const Answer lists = wanted.structure();
    if (!lists.is_object() && !lists.empty()) return;
    const Answer now = answerOf(allLists(text));
    const std::vector<OtherList> come = otherLists(lists, now);
    const std::vector<OtherList> go = otherLists(now, lists);
    if (come.size() > kMostOtherLists || go.size() > kMostOtherLists) return;
    for (const OtherList& list : come)
        suggestPieces(text, kSection, list.key, wantedPlatforms(list.ids), edits);
    for (const OtherList& list : go) {
        const auto* entry = listEntry(text, list.key);
        if (entry == nullptr) continue;
        edits.removeLine(*entry);
        for (const OtherList& other : come)
            edits.setKey(*entry, other.key);
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

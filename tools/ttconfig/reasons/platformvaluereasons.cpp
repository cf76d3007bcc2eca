// Reasons for per-platform values: why a platform has a value, and whether a value names it.
// Entry points: addPlatformValueReasons().
// Covered by reasons/explainer_test.cpp and explaining/explainedanswers_test.cpp in tests/tools/ttconfig/.

#include "ttconfig/edits/fieldtexts.h"
#include "ttconfig/edits/pieceedits.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/tables/platformvalues.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
using internal::PerPlatformItemKind;
using internal::SettingKey;

// A question about one platform, and the items that count for it.
struct ValueQuestion {
    const Question& question;
    const PlatformQuestion& asked;
    const SettingKey& key;
    int platform;
    PlatformValueTable values;
    const standin::SettingsEntry* entry;
    const PlatformItem* own;  // null if no item names the platform

    ValueQuestion(const Question& call, const PlatformQuestion& operation)
        : question(call),
          asked(operation),
          key(*operation.key),
          platform(call.number(0)),
          values(platformValues(call.settings(), key, platform)),
          entry(values.entry),
          own(values.find(platform)) {}

    template <typename Sink>
    void forEachItem(Sink&& sink) const {
        if (entry != nullptr) forEachPlatformItem(*entry, key, sink);
    }

    bool isCounted(const PlatformItem& item) const {
        return (own != nullptr && own->place == item.place) ||
               (values.byDefault && values.byDefault->place == item.place);
    }
};

bool namesNoPlatform(const PlatformItem& item) {
    return item.text.find(':') == std::string_view::npos;
}

// Whether a bad item was meant for the platform.
bool isMeantFor(const PlatformItem& item, int platform) {
    if (item.kind == PerPlatformItemKind::BadValue) {
        return !namesNoPlatform(item) && item.platform == platform;
    }
    return item.kind == PerPlatformItemKind::BadPlatform && internal::looseInt(item.text) == platform;
}

std::string itemName(std::string_view text) {
    return text.empty() ? "the empty item" : "the item " + shownText(text);
}

// Adds the platform's items that do not count.
void addPlatformItems(const ValueQuestion& asked, Explanation& explanation) {
    asked.forEachItem([&](const PlatformItem& item) {
        const bool isMeant = isMeantFor(item, asked.platform);
        if (!isMeant && (!item.isEntryOf(asked.platform) || asked.isCounted(item))) return;
        lose(explanation, [&] {
            return Candidate{Reason::PerPlatformValue, itemName(item.text), item.place,
                             !isMeant ? "overwritten by a later item"
                             : item.kind == PerPlatformItemKind::BadPlatform
                                 ? "does not start with a platform ID: passed over"
                                 : "has no value of the key's kind: passed over"};
        });
    });
}

// Adds the default items that do not decide. If the platform has an item of its own, this includes the default that
// would otherwise apply, with the answer it would give.
void addDefaultItems(const ValueQuestion& asked, Explanation& explanation) {
    asked.forEachItem([&](const PlatformItem& item) {
        const bool isBadDefault = item.kind == PerPlatformItemKind::BadValue && namesNoPlatform(item);
        if (!item.saysDefault() && !isBadDefault) return;
        const bool counts = asked.isCounted(item);
        if (counts && asked.own == nullptr) return;
        lose(explanation, [&] {
            return Candidate{item.isBuiltInDefault() ? Reason::BuiltInDefault : Reason::DefaultItem,
                             itemName(item.text), item.place,
                             isBadDefault ? "is no value of the key's kind: passed over"
                             : counts     ? wouldBe(asked.values.answer(asked.asked, std::nullopt))
                                          : "overwritten by a later default"};
        });
    });
}

Explanation explainDefault(const ValueQuestion& asked) {
    const std::string shown = answerText(numberAnswer(asked.key, asked.values.defaultNumber()));
    Explanation explanation;
    explanation.answer = asked.values.answer(asked.asked, asked.platform);
    if (asked.entry == nullptr) {
        explanation.reason = Reason::BuiltInDefault;
        explanation.rule = "without " + nameOf(asked.key) + " it is " + shown;
        explanation.lost.push_back(missingKey(asked.key));
        return explanation;
    }
    lose(explanation,
         {Reason::PerPlatformValue, "an item for " + platformName(asked.platform), std::nullopt, "there is none"});
    explanation.place = asked.values.place(asked.platform);
    if (!asked.values.byDefault) {
        explanation.reason = Reason::ConstructedValue;
        explanation.rule = "no item of " + nameOf(asked.key) + " says a default: a new store has " + shown;
        return explanation;
    }
    const bool isBuiltIn = asked.values.byDefault->isBuiltInDefault();
    explanation.reason = isBuiltIn ? Reason::BuiltInDefault : Reason::DefaultItem;
    explanation.rule = (isBuiltIn ? "an empty item says the built-in " : "an item without platform says ") + shown +
                       " for every platform that " + nameOf(asked.key) + " does not name";
    return explanation;
}

Explanation explainValue(const ValueQuestion& asked) {
    Explanation explanation;
    if (asked.own != nullptr) {
        explanation.answer = asked.values.answer(asked.asked, asked.platform);
        explanation.reason = Reason::PerPlatformValue;
        explanation.rule = nameOf(asked.key) + " has an item for " + platformName(asked.platform);
        explanation.place = asked.own->place;
    } else {
        explanation = explainDefault(asked);
    }
    addPlatformItems(asked, explanation);
    addDefaultItems(asked, explanation);
    addRepeats(asked.question, asked.key, explanation);
    return explanation;
}

// Whether an item names the platform.
Explanation explainNamed(const ValueQuestion& asked) {
    const std::string name = nameOf(asked.key);
    if (asked.entry == nullptr) return decided(false, Reason::KeyAbsent, "there is no key " + name);
    const std::string platform = platformName(asked.platform);
    Explanation explanation =
        asked.own != nullptr
            ? decided(true, Reason::Listed, name + " has an item for " + platform + "; its value plays no part",
                      asked.own->place)
            : decided(false, Reason::NotListed, name + " has no item for " + platform, valuePlace(*asked.entry));
    addPlatformItems(asked, explanation);
    addRepeats(asked.question, asked.key, explanation);
    return explanation;
}

// --- edits

// Removes the platform's items from the value.
void suggestUnnaming(const ValueQuestion& asked, Edits& edits) {
    const std::string kept = withPieces(asked.entry->value, ';', [&asked](std::string_view text) {
        const auto item = platformItem(asked.key, text);
        const bool names = item.kind == PerPlatformItemKind::Entry && item.platform == asked.platform;
        return names ? std::nullopt : std::optional<std::string>(text);
    });
    edits.setValue(*asked.entry, kept);
}

FieldKind fieldKind(const SettingKey& key) {
    return key.grammar == internal::ValueGrammar::PerPlatformDecimalKeepEmpty ? FieldKind::StrictDecimal
                                                                              : FieldKind::StrictInteger;
}

// Adds an item with the value, or replaces one that is for the platform or was meant to be.
void suggestItem(const ValueQuestion& asked, const std::string& value, Edits& edits) {
    const std::string item = std::to_string(asked.platform) + ":" + writtenLike({}, fieldKind(asked.key), value);
    if (asked.entry == nullptr) {
        edits.setValue(asked.key, item);
        return;
    }
    const standin::SettingsEntry& entry = *asked.entry;
    const std::string all(entry.value);
    edits.setValue(entry, all.empty() ? item : all + ";" + item);
    if (!all.empty()) edits.setValue(entry, item + ";" + all);
    if (!all.empty() && all.back() == ';') edits.setValue(entry, all + item);
    asked.forEachItem([&](const PlatformItem& each) {
        const bool isOfPlatform = each.isEntryOf(asked.platform);
        if (!isOfPlatform && !isMeantFor(each, asked.platform)) return;
        edits.replacePiece(entry, each.text, item);
        const std::string_view old = each.text.substr(each.text.find(':') + 1);
        if (isOfPlatform) edits.replacePiece(entry, old, writtenLike(old, fieldKind(asked.key), value));
    });
}

// The item together with the ";" before it or, if it is the first item, the ";" after it.
std::string_view withSeparator(std::string_view value, std::string_view item) {
    const auto at = static_cast<std::size_t>(item.data() - value.data());
    return at == 0 ? value.substr(0, item.size() + 1) : value.substr(at - 1, item.size() + 1);
}

void suggestDefault(const ValueQuestion& asked, const std::string& value, Edits& edits) {
    const std::string text = writtenLike({}, fieldKind(asked.key), value);
    edits.reaching("every platform that the value does not name");
    if (asked.entry == nullptr) {
        edits.setValue(asked.key, text);
        return;
    }
    const standin::SettingsEntry& entry = *asked.entry;
    if (asked.values.byDefault) {
        const std::string_view old = asked.values.byDefault->text;
        edits.replacePiece(entry, old, writtenLike(old, fieldKind(asked.key), value));
        edits.replacePiece(entry, withSeparator(entry.value, old), {});
    }
    edits.setValue(entry, std::string(entry.value) + ";" + text);
    edits.setValue(entry, text + ";" + std::string(entry.value));
    edits.reaching("every platform that the line is about");
    edits.setValue(entry, text);
    edits.setValue(entry, "");
    edits.removeLine(entry);
}

void suggestValue(const ValueQuestion& asked, const Wanted& wanted, Edits& edits) {
    const auto flag = wanted.flag();
    const std::string text = flag ? (*flag ? "1" : "0") : wanted.text();
    suggestItem(asked, text, edits);
    if (asked.entry != nullptr) suggestUnnaming(asked, edits);
    suggestDefault(asked, text, edits);
}

void suggestNamed(const ValueQuestion& asked, const Wanted& wanted, Edits& edits) {
    const auto flag = wanted.flag();
    if (!flag) return;
    if (*flag) {
        suggestItem(asked, "0", edits);
    } else if (asked.entry != nullptr) {
        suggestUnnaming(asked, edits);
        edits.reaching("every platform that the line is about");
        edits.removeLine(*asked.entry);
    }
}

}  // namespace

void addPlatformValueReasons(ExplainedCalls& calls) {
    for (const SettingKey& key : internal::kSettingKeys) {
        if (!isPerPlatform(key.grammar)) continue;
        forEachPlatformQuestion(key, [&calls](const PlatformQuestion& asked) {
            const bool isNamed = asked.kind == PlatformQuestion::Kind::IsNamed;
            calls.add(std::string(asked.operation),
                      {[asked, explain = isNamed ? explainNamed : explainValue](const Question& question) {
                           return explain(ValueQuestion(question, asked));
                       },
                       [asked, suggest = isNamed ? suggestNamed : suggestValue](const Question& question,
                                                                                const Wanted& wanted, Edits& edits) {
                           suggest(ValueQuestion(question, asked), wanted, edits);
                       }});
        });
    }
}

}  // namespace ttconfig

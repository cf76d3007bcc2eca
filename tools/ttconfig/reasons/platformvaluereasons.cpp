// Reasons of the values by platform: why a platform has a value, and whether a value names it.
// Doors: addPlatformValueReasons().
// Owns: which operation answers from which key.
// Covered by tests/tools/ttconfig/explainer_test.cpp and explainedanswers_test.cpp.

#include "ttconfig/edits/fieldtexts.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/tables/platformvaluefacts.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;
using internal::PerPlatformItemKind;
using internal::SettingKey;

// What an operation answers for a value of its table.
template <typename Value>
using AnswerFor = Answer (*)(Value value);

template <typename Value>
Answer asItIs(Value value) {
    return Answer(value);
}

Answer isNotZero(int value) {
    return value != 0;
}

bool isDefaultKind(PerPlatformItemKind kind) {
    return kind == PerPlatformItemKind::Default || kind == PerPlatformItemKind::BuiltInDefault;
}

// A question about one platform, and the items that count for it.
template <typename Value>
struct ValueQuestion {
    using Item = PlatformValueItem<Value>;

    const Question& question;
    const SettingKey& key;
    int platform;
    AnswerFor<Value> answer;
    const standin::SettingsEntry* entry;
    std::optional<Item> own;        // the last one of the platform
    std::optional<Item> byDefault;  // the last one that says the default

    ValueQuestion(const Question& asked, const SettingKey& settingKey, AnswerFor<Value> answerFor)
        : question(asked),
          key(settingKey),
          platform(asked.number(0)),
          answer(answerFor),
          entry(entryOf(asked, settingKey)) {
        forEachItem([this](const Item& item) {
            if (item.read.kind == PerPlatformItemKind::Entry && item.read.platform == platform) own = item;
            if (isDefaultKind(item.read.kind)) byDefault = item;
        });
    }

    template <typename Sink>
    void forEachItem(Sink&& sink) const {
        if (entry != nullptr) forEachPlatformItem<Value>(*entry, key, sink);
    }

    Value defaultValue() const {
        const Value builtIn = internal::valueWhenMissing<Value>(key);
        if (entry == nullptr) return builtIn;
        if (!byDefault) return Value();
        return byDefault->read.kind == PerPlatformItemKind::BuiltInDefault ? builtIn : byDefault->read.value;
    }
};

// Whether a bad item was meant for the platform.
template <typename Value>
bool isMeantFor(const internal::PerPlatformItem<Value>& item, int platform) {
    if (item.kind == PerPlatformItemKind::BadValue) {
        return item.text.find(':') != std::string_view::npos && item.platform == platform;
    }
    return item.kind == PerPlatformItemKind::BadPlatform && internal::looseInt(item.text) == platform;
}

std::string itemName(std::string_view text) {
    return text.empty() ? "the empty item" : "the item " + shownText(text);
}

// Items of the platform that do not count.
template <typename Value>
void addPlatformItems(const ValueQuestion<Value>& asked, Explanation& explanation) {
    asked.forEachItem([&](const PlatformValueItem<Value>& item) {
        const auto& read = item.read;
        if (isMeantFor(read, asked.platform)) {
            lose(explanation, [&] {
                return Candidate{Reason::PerPlatformValue, itemName(read.text), item.place,
                                 read.kind == PerPlatformItemKind::BadPlatform
                                     ? "does not start with a platform ID: passed over"
                                     : "has no value of the key's kind: passed over"};
            });
        } else if (read.kind == PerPlatformItemKind::Entry && read.platform == asked.platform &&
                   asked.own->place != item.place) {
            lose(explanation, [&] {
                return Candidate{Reason::PerPlatformValue, itemName(read.text), item.place,
                                 "overwritten by a later item"};
            });
        }
    });
}

// Default items that do not count; the one that would count if the platform had no item of its own says so.
template <typename Value>
void addDefaultItems(const ValueQuestion<Value>& asked, Explanation& explanation) {
    asked.forEachItem([&](const PlatformValueItem<Value>& item) {
        const auto& read = item.read;
        const bool isBadDefault =
            read.kind == PerPlatformItemKind::BadValue && read.text.find(':') == std::string_view::npos;
        if (!isDefaultKind(read.kind) && !isBadDefault) return;
        const bool counts = asked.byDefault && asked.byDefault->place == item.place;
        if (counts && !asked.own) return;
        lose(explanation, [&] {
            const bool isBuiltIn = read.kind == PerPlatformItemKind::BuiltInDefault;
            return Candidate{isBuiltIn ? Reason::BuiltInDefault : Reason::DefaultItem, itemName(read.text), item.place,
                             isBadDefault ? "is no value of the key's kind: passed over"
                             : counts     ? wouldBe(asked.answer(asked.defaultValue()))
                                          : "overwritten by a later default"};
        });
    });
}

template <typename Value>
Explanation explainDefault(const ValueQuestion<Value>& asked) {
    const Value value = asked.defaultValue();
    const std::string others = "for every platform that " + nameOf(asked.key) + " does not name";
    Explanation explanation;
    explanation.answer = asked.answer(value);
    const std::string shown = answerText(Answer(value));
    if (asked.entry == nullptr) {
        explanation.reason = Reason::BuiltInDefault;
        explanation.rule = "without " + nameOf(asked.key) + " it is " + shown;
        explanation.lost.push_back(missingKey(asked.key));
        return explanation;
    }
    lose(explanation,
         {Reason::PerPlatformValue, "an item for " + platformName(asked.platform), std::nullopt, "there is none"});
    if (!asked.byDefault) {
        explanation.reason = Reason::ConstructedValue;
        explanation.rule = "no item of " + nameOf(asked.key) + " says a default: a new store has " + shown;
        explanation.place = valuePlace(*asked.entry);
        return explanation;
    }
    const auto& item = *asked.byDefault;
    const bool isBuiltIn = item.read.kind == PerPlatformItemKind::BuiltInDefault;
    explanation.reason = isBuiltIn ? Reason::BuiltInDefault : Reason::DefaultItem;
    explanation.rule =
        (isBuiltIn ? "an empty item says the built-in " : "an item without platform says ") + shown + " " + others;
    explanation.place = item.place;
    return explanation;
}

template <typename Value>
Explanation explainValue(const ValueQuestion<Value>& asked) {
    Explanation explanation;
    if (asked.own) {
        explanation.answer = asked.answer(asked.own->read.value);
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

// --- whether a value names the platform

template <typename Value>
Explanation explainNamed(const ValueQuestion<Value>& asked) {
    if (asked.entry == nullptr) return decided(false, Reason::KeyAbsent, "there is no key " + nameOf(asked.key));
    Explanation explanation =
        asked.own
            ? decided(
                  true, Reason::Listed,
                  nameOf(asked.key) + " has an item for " + platformName(asked.platform) + "; its value plays no part",
                  asked.own->place)
            : decided(false, Reason::NotListed, nameOf(asked.key) + " has no item for " + platformName(asked.platform),
                      valuePlace(*asked.entry));
    addPlatformItems(asked, explanation);
    addRepeats(asked.question, asked.key, explanation);
    return explanation;
}

// --- edits

// Items of the platform out of the value.
template <typename Value>
void suggestUnnaming(const ValueQuestion<Value>& asked, Edits& edits) {
    std::string kept;
    bool isFirst = true;
    internal::splitKeepEmpty(asked.entry->value, ';', [&](std::string_view text) {
        const auto item = internal::perPlatformItem<Value>(text);
        if (item.kind == PerPlatformItemKind::Entry && item.platform == asked.platform) return;
        kept.append(isFirst ? "" : ";").append(text);
        isFirst = false;
    });
    edits.setValue(*asked.entry, kept);
}

template <typename Value>
constexpr FieldKind kFieldKind = std::is_floating_point_v<Value> ? FieldKind::StrictDecimal : FieldKind::StrictInteger;

// An item with that value: new, or in place of one that is or was meant to be for the platform.
template <typename Value>
void suggestItem(const ValueQuestion<Value>& asked, const std::string& value, Edits& edits) {
    const std::string item = std::to_string(asked.platform) + ":" + writtenLike({}, kFieldKind<Value>, value);
    if (asked.entry == nullptr) {
        edits.setValue(asked.key, item);
        return;
    }
    const standin::SettingsEntry& entry = *asked.entry;
    const std::string all(entry.value);
    edits.setValue(entry, all.empty() ? item : all + ";" + item);
    if (!all.empty()) edits.setValue(entry, item + ";" + all);
    if (!all.empty() && all.back() == ';') edits.setValue(entry, all + item);
    asked.forEachItem([&](const PlatformValueItem<Value>& each) {
        const bool isOfPlatform = each.read.kind == PerPlatformItemKind::Entry && each.read.platform == asked.platform;
        if (!isOfPlatform && !isMeantFor(each.read, asked.platform)) return;
        edits.replacePiece(entry, each.read.text, item);
        const std::string_view old = each.read.text.substr(each.read.text.find(':') + 1);
        if (isOfPlatform) edits.replacePiece(entry, old, writtenLike(old, kFieldKind<Value>, value));
    });
}

// An item of the value and the ";" in front of it, or of the first one the ";" behind it.
std::string_view withSeparator(std::string_view value, std::string_view item) {
    const auto at = static_cast<std::size_t>(item.data() - value.data());
    return at == 0 ? value.substr(0, item.size() + 1) : value.substr(at - 1, item.size() + 1);
}

template <typename Value>
void suggestDefault(const ValueQuestion<Value>& asked, const std::string& value, Edits& edits) {
    const std::string text = writtenLike({}, kFieldKind<Value>, value);
    edits.reaching("every platform that the value does not name");
    if (asked.entry == nullptr) {
        edits.setValue(asked.key, text);
        return;
    }
    const standin::SettingsEntry& entry = *asked.entry;
    if (asked.byDefault) {
        const std::string_view old = asked.byDefault->read.text;
        edits.replacePiece(entry, old, writtenLike(old, kFieldKind<Value>, value));
        edits.replacePiece(entry, withSeparator(entry.value, old), {});
    }
    edits.setValue(entry, std::string(entry.value) + ";" + text);
    edits.setValue(entry, text + ";" + std::string(entry.value));
    edits.reaching("every platform that the line is about");
    edits.setValue(entry, text);
    edits.setValue(entry, "");
    edits.removeLine(entry);
}

template <typename Value>
void suggestValue(const ValueQuestion<Value>& asked, const Wanted& wanted, Edits& edits) {
    const auto flag = wanted.flag();
    const std::string text = flag ? (*flag ? "1" : "0") : wanted.text();
    suggestItem(asked, text, edits);
    if (asked.entry != nullptr) suggestUnnaming(asked, edits);
    suggestDefault(asked, text, edits);
}

template <typename Value>
void suggestNamed(const ValueQuestion<Value>& asked, const Wanted& wanted, Edits& edits) {
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

// --- rows

template <typename Value>
ExplainedCall valueCall(const SettingKey& key, AnswerFor<Value> answer = asItIs<Value>) {
    return {
        [&key, answer](const Question& question) { return explainValue(ValueQuestion<Value>(question, key, answer)); },
        [&key, answer](const Question& question, const Wanted& wanted, Edits& edits) {
            suggestValue(ValueQuestion<Value>(question, key, answer), wanted, edits);
        }};
}

template <typename Value>
ExplainedCall namedCall(const SettingKey& key) {
    return {
        [&key](const Question& question) { return explainNamed(ValueQuestion<Value>(question, key, asItIs<Value>)); },
        [&key](const Question& question, const Wanted& wanted, Edits& edits) {
            suggestNamed(ValueQuestion<Value>(question, key, asItIs<Value>), wanted, edits);
        }};
}

}  // namespace

void addPlatformValueReasons(ExplainedCalls& calls) {
    calls.add("isT0ForReturnStockPts", valueCall<bool>(keys::t0ForReturnStock));
    calls.add("isSPXCreditStockPts", valueCall<bool>(keys::spxCredit));
    calls.add("isMainAccountcalcCompactsBydealPts", valueCall<bool>(keys::mainAccountCalcCompactsByDeal));
    calls.add("getRenewalPts", valueCall<int>(keys::renewal));
    calls.add("getCounterMaxCompactsRespNum", valueCall<int>(keys::counterMaxCompacts));
    calls.add("useCounterIpwanPos", valueCall<int>(keys::counterIpwanPos, isNotZero));
    calls.add("isNeedCheckAssureEnbuyBalancePts", valueCall<bool>(keys::needCheckAssureEnbuyBalance));
    calls.add("getisSetavailable", valueCall<double>(keys::setAvailable));
    calls.add("isSetavailable", namedCall<double>(keys::setAvailable));
    calls.add("getSpecailEnableVolStkExchangeRate", valueCall<double>(keys::specialEnableVolRate));
    calls.add("isUseSpecialEnableBalCalcVolume", namedCall<double>(keys::specialEnableVolRate));
}

}  // namespace ttconfig

// Reasons for single values: why a flag, number or text of the settings file has its value.
// Entry points: addSingleValueReasons().
// Covered by reasons/explainer_test.cpp and explaining/explainedanswers_test.cpp in tests/tools/ttconfig/.

#include "traderbase/base/config/internal/text/splitting.h"
#include "ttconfig/edits/fieldtexts.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/tables/single.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;
using internal::SettingKey;
using internal::ValueGrammar;

// --- by the key's grammar

Explanation explainNumber(const SettingKey& key, const standin::SettingsEntry* entry) {
    const SingleValue value = singleValue(key, entry);
    if (value.isGiven) {
        return {value.answer,
                Reason::FileValue,
                nameOf(key) + " is " + std::to_string(*internal::strictInt(entry->value)),
                valuePlace(*entry),
                {},
                0};
    }
    const std::string without = entry == nullptr ? "without " : "without a number under ";
    Explanation explanation{value.answer,
                            Reason::BuiltInDefault,
                            without + nameOf(key) + " it is " + std::to_string(internal::valueWhenMissing<int>(key)),
                            std::nullopt,
                            {},
                            0};
    lose(explanation, entry == nullptr ? missingKey(key)
                                       : Candidate{Reason::FileValue, nameOf(key), valuePlace(*entry),
                                                   shownText(entry->value) + " is no whole number"});
    return explanation;
}

Explanation explainText(const SettingKey& key, const standin::SettingsEntry* entry) {
    const Answer answer = singleValue(key, entry).answer;
    if (entry == nullptr) return {answer, Reason::KeyAbsent, "there is no key " + nameOf(key), std::nullopt, {}, 0};
    return {answer, Reason::FileValue, nameOf(key) + " as it stands", valuePlace(*entry), {}, 0};
}

Explanation explainSingle(const Question& question, const SettingKey& key) {
    const standin::SettingsEntry* entry = entryOf(question, key);
    Explanation explanation = key.grammar == ValueGrammar::Text ? explainText(key, entry) : explainNumber(key, entry);
    if (key.grammar == ValueGrammar::Flag) explanation.rule += "; 1 is yes, any other number no";
    if (entry != nullptr) addRepeats(question, key, explanation);
    return explanation;
}

void suggestSingle(const Question& question, const SettingKey& key, const Wanted& wanted, Edits& edits) {
    const auto flag = wanted.flag();
    const bool isFlag = key.grammar == ValueGrammar::Flag;
    if (isFlag && !flag) return;
    const auto* entry = entryOf(question, key);
    if (entry != nullptr && key.grammar == ValueGrammar::Integer) {
        edits.setValue(*entry, writtenLike(entry->value, FieldKind::StrictInteger, wanted.text()));
    }
    edits.setValue(key, isFlag ? (*flag ? "1" : "0") : wanted.text());
    edits.removeLine(key);
}

// --- flags with a rule of their own

// The market's flag; null if the market has none.
const SettingKey* bondRulesKey(const std::string& market) {
    if (market == "SH") return &keys::shangHaiNewBondRules;
    if (market == "SZ") return &keys::shenZhenNewBondRules;
    return nullptr;
}

Explanation explainBondRules(const Question& question) {
    const SettingKey* key = bondRulesKey(question.text(0));
    if (key != nullptr) return explainSingle(question, *key);
    return decided(false, Reason::Fixed, "only the markets SH and SZ have new bond rules");
}

void suggestBondRules(const Question& question, const Wanted& wanted, Edits& edits) {
    if (const SettingKey* key = bondRulesKey(question.text(0))) suggestSingle(question, *key, wanted, edits);
}

// A load reads usernewshanghailoanrules, but the answer comes from Shanghai's bond rules: clients rely on that.
Explanation explainLoanRules(const Question& question) {
    Explanation explanation = explainSingle(question, keys::shangHaiNewBondRules);
    if (const auto* entry = entryOf(question, keys::newShangHaiLoanRules)) {
        lose(explanation,
             {Reason::FileValue, nameOf(keys::newShangHaiLoanRules), valuePlace(*entry), "read, but never asked"});
    }
    return explanation;
}

void suggestLoanRules(const Question& question, const Wanted& wanted, Edits& edits) {
    suggestSingle(question, keys::shangHaiNewBondRules, wanted, edits);
}

}  // namespace

// The grammar of a key explains the operations that it feeds. Operations that read more than one key replace those rows
// with explanations of their own, here and in unitreasons.cpp.
void addSingleValueReasons(ExplainedCalls& calls) {
    for (const SettingKey& key : internal::kSettingKeys) {
        if (!isSingleValue(key)) continue;
        internal::splitDropEmpty(key.feeds, ' ', [&](std::string_view operation) {
            calls.add(std::string(operation),
                      {[&key](const Question& question) { return explainSingle(question, key); },
                       [&key](const Question& question, const Wanted& wanted, Edits& edits) {
                           suggestSingle(question, key, wanted, edits);
                       }});
        });
    }
    calls.add("useNewBondRules", {explainBondRules, suggestBondRules});
    calls.add("useNewShangHaiLoanRules", {explainLoanRules, suggestLoanRules});
}

}  // namespace ttconfig

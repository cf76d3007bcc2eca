// Reasons of the single values: why a flag, a number or a text of the settings file is what it is.
// Doors: addSingleValueReasons().
// Owns: which operation answers from which key.
// Covered by tests/tools/ttconfig/explainer_test.cpp and explainedanswers_test.cpp.

#include <standin/numbertext.h>

#include "ttconfig/edits/fieldtexts.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;
using internal::SettingKey;

// --- numbers and flags

// The number of the key, and whether a number is what it counts as.
template <typename Value>
Explanation explainNumber(const Question& question, const SettingKey& key, Value (*answer)(int number)) {
    const int builtIn = internal::valueWhenMissing<int>(key);
    const standin::SettingsEntry* entry = entryOf(question, key);
    if (entry == nullptr) {
        Explanation explanation = decided(answer(builtIn), Reason::BuiltInDefault,
                                          "without " + nameOf(key) + " it is " + std::to_string(builtIn));
        explanation.lost.push_back(missingKey(key));
        return explanation;
    }
    int number = builtIn;
    Explanation explanation;
    if (standin::readInt32(entry->value, number)) {
        explanation = decided(answer(number), Reason::FileValue, nameOf(key) + " is " + std::to_string(number),
                              valuePlace(*entry));
    } else {
        explanation = decided(answer(builtIn), Reason::BuiltInDefault,
                              "without a number under " + nameOf(key) + " it is " + std::to_string(builtIn));
        lose(explanation,
             {Reason::FileValue, nameOf(key), valuePlace(*entry), shownText(entry->value) + " is no whole number"});
    }
    addRepeats(question, key, explanation);
    return explanation;
}

bool isOne(int number) {
    return number == 1;
}

Explanation explainFlag(const Question& question, const SettingKey& key) {
    Explanation explanation = explainNumber<bool>(question, key, isOne);
    explanation.rule += "; 1 is yes, any other number no";
    return explanation;
}

int asItIs(int number) {
    return number;
}

void suggestFlag(const SettingKey& key, const Wanted& wanted, Edits& edits) {
    const auto flag = wanted.flag();
    if (!flag) return;
    edits.setValue(key, *flag ? "1" : "0");
    edits.removeLine(key);
}

ExplainedCall flagCall(const SettingKey& key) {
    return {[&key](const Question& question) { return explainFlag(question, key); },
            [&key](const Question&, const Wanted& wanted, Edits& edits) { suggestFlag(key, wanted, edits); }};
}

ExplainedCall numberCall(const SettingKey& key) {
    return {[&key](const Question& question) { return explainNumber<int>(question, key, asItIs); },
            [&key](const Question& question, const Wanted& wanted, Edits& edits) {
                if (const auto* entry = entryOf(question, key)) {
                    edits.setValue(*entry, writtenLike(entry->value, FieldKind::StrictInteger, wanted.text()));
                }
                edits.setValue(key, wanted.text());
                edits.removeLine(key);
            }};
}

// --- flags with a turn of their own

// The flag of the market; null for a market that has none.
const SettingKey* bondRulesKey(const std::string& market) {
    if (market == "SH") return &keys::shangHaiNewBondRules;
    if (market == "SZ") return &keys::shenZhenNewBondRules;
    return nullptr;
}

ExplainedCall newBondRulesCall() {
    return {[](const Question& question) {
                const SettingKey* key = bondRulesKey(question.text(0));
                if (key != nullptr) return explainFlag(question, *key);
                return decided(false, Reason::Fixed, "only the markets SH and SZ have new bond rules");
            },
            [](const Question& question, const Wanted& wanted, Edits& edits) {
                if (const SettingKey* key = bondRulesKey(question.text(0))) suggestFlag(*key, wanted, edits);
            }};
}

// The key of that name is read, and the bond rules of Shanghai answer: clients rely on it.
Explanation explainLoanRules(const Question& question) {
    Explanation explanation = explainFlag(question, keys::shangHaiNewBondRules);
    if (const auto* entry = entryOf(question, keys::newShangHaiLoanRules)) {
        lose(explanation,
             {Reason::FileValue, nameOf(keys::newShangHaiLoanRules), valuePlace(*entry), "read, but never asked"});
    }
    return explanation;
}

// --- texts

Explanation explainPriceDiff(const Question& question) {
    const SettingKey& key = keys::hgtSgtPriceDiff;
    const standin::SettingsEntry* entry = entryOf(question, key);
    if (entry == nullptr) return decided(std::string(), Reason::KeyAbsent, "there is no key " + nameOf(key));
    Explanation explanation =
        decided(std::string(entry->value), Reason::FileValue, nameOf(key) + " as it stands", valuePlace(*entry));
    addRepeats(question, key, explanation);
    return explanation;
}

void suggestPriceDiff(const Question& /*question*/, const Wanted& wanted, Edits& edits) {
    edits.setValue(keys::hgtSgtPriceDiff, wanted.text());
    edits.removeLine(keys::hgtSgtPriceDiff);
}

}  // namespace

void addSingleValueReasons(ExplainedCalls& calls) {
    calls.add("isShowMaxCanOrder", flagCall(keys::showMaxCanOrder));
    calls.add("showNewCompacts", flagCall(keys::showNewCompacts));
    calls.add("useRegistRules", flagCall(keys::registRules));
    calls.add("useRegistIPORules", flagCall(keys::registIPORules));
    calls.add("useGlobalRef", flagCall(keys::globalRef));
    calls.add("useSplitPageOfStkCompact", flagCall(keys::splitPageOfStkCompact));
    calls.add("isCreditCompactDeferT3", flagCall(keys::creditCompactDeferT3));
    calls.add("getRefLimit", numberCall(keys::refLimit));
    calls.add("getFlowHistoryDays", numberCall(keys::flowHistoryDays));
    calls.add("useNewBondRules", newBondRulesCall());
    calls.add("useNewShangHaiLoanRules", {explainLoanRules, [](const Question&, const Wanted& wanted, Edits& edits) {
                                              suggestFlag(keys::shangHaiNewBondRules, wanted, edits);
                                          }});
    calls.add("getHgtSgtPriceDiff", {explainPriceDiff, suggestPriceDiff});
}

}  // namespace ttconfig

// Reasons of the bond limits: which key gives a bond trade type its parameters, and which row a bond its ratio.
// Doors: addBondReasons().
// Owns: nothing.
// Covered by tests/tools/ttconfig/explainer_test.cpp and explainedanswers_test.cpp.

#include "traderbase/base/config/internal/limits/fixedincome.h"
#include "ttconfig/edits/fieldedits.h"
#include "ttconfig/reasons/numberrowreasons.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/tables/creditfacts.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;
using ttservice::SHFixIncomeLimit;
using LimitPtr = boost::shared_ptr<SHFixIncomeLimit>;

// The key of a bond trade type; null for a type that has none.
const internal::SettingKey* keyOfType(int bondTradeType) {
    for (const FixedIncomeKey& key : kFixedIncomeKeys) {
        if (key.bondTradeType == bondTradeType) return key.key;
    }
    return nullptr;
}

Explanation explainFixedIncome(const Question& question) {
    const int type = question.number(0);
    const internal::SettingKey* key = keyOfType(type);
    if (key == nullptr) {
        return decided(LimitPtr(), Reason::Fixed, "bond trade type " + std::to_string(type) + " has no key");
    }
    const standin::SettingsEntry* entry = entryOf(question, *key);
    if (entry == nullptr) return decided(LimitPtr(), Reason::KeyAbsent, "there is no key " + nameOf(*key));
    Explanation explanation;
    if (const LimitPtr record = internal::fixedIncomeLimit(entry->value)) {
        explanation =
            decided(record, Reason::FileValue, nameOf(*key) + ", the key of bond trade type " + std::to_string(type),
                    valuePlace(*entry));
    } else {
        explanation =
            decided(LimitPtr(), Reason::ConstructedValue, "no load has set bond trade type " + std::to_string(type));
        lose(explanation, {Reason::FileValue, nameOf(*key), valuePlace(*entry),
                           std::to_string(internal::fieldCount(entry->value)) + " fields, not 7: passed over"});
    }
    addRepeats(question, *key, explanation);
    return explanation;
}

void suggestFixedIncome(const Question& question, const Wanted& wanted, Edits& edits) {
    const internal::SettingKey* key = keyOfType(question.number(0));
    if (key == nullptr) return;
    if (wanted.isNone()) {
        edits.setValue(*key, "");
        edits.removeLine(*key);
        return;
    }
    const std::vector<std::string> fields = wanted.values();
    if (fields.size() != internal::kFixedIncomeRow.size()) return;
    const WantedPieces row = wantedFields(internal::kFixedIncomeRow.data(), fields);
    suggestPieces(question.settings(), key->section, key->key, row, edits);
}

}  // namespace

void addBondReasons(ExplainedCalls& calls) {
    calls.add("getSHFixIncomeLimit", {explainFixedIncome, suggestFixedIncome});
    calls.add("getStandardBondUseLimit", numberRowCall(keys::standardBondUse, &SettingsFacts::standardBonds,
                                                       internal::valueWhenMissing<double>(keys::standardBondUse)));
    calls.add("getSubFee", numberRowCall(keys::subscriptionFees, &SettingsFacts::subscriptionFees, 0.0));
}

}  // namespace ttconfig

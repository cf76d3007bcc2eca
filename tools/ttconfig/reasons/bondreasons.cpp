// Reasons for bond limits and fees: the key that sets the parameters of a bond trade type, and the row that sets the
// number of a code.
// Entry points: addBondReasons().
// Covered by tests/tools/ttconfig/explaining/explainedanswers_test.cpp.

#include <boost/algorithm/string/case_conv.hpp>

#include "traderbase/base/config/internal/limits/fixedincome.h"
#include "ttconfig/edits/fieldedits.h"
#include "ttconfig/edits/fieldtexts.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;
using standin::SettingsEntry;
using ttservice::SHFixIncomeLimit;
using LimitPtr = boost::shared_ptr<SHFixIncomeLimit>;

// --- the fixed-income platform

// The key of a bond trade type; null if the type has none.
const internal::SettingKey* keyOfType(int bondTradeType) {
    for (const internal::FixedIncomeKey& key : internal::kFixedIncomeKeys) {
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
    const SettingsEntry* entry = entryOf(question, *key);
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

// --- the number of a code

struct NumberQuestion {
    const Question& question;
    const internal::SettingKey& topic;
    const NumberRows& rows;

    const std::string& code() const { return question.text(0); }
    double whenMissing() const { return internal::valueWhenMissing<double>(topic); }
};

std::string rowName(const NumberQuestion& asked, const SettingsEntry& row) {
    return nameOf(asked.topic.section, row.key);
}

// Adds the other rows that match the code, ignoring letter case, and says why they do not count.
void addOthers(const NumberQuestion& asked, const SettingsEntry* winner, Explanation& explanation) {
    TextRows(asked.question.settings()).forEach(asked.topic, [&](const SettingsEntry& row) {
        if (&row == winner) return;
        const bool isCode = row.key == asked.code();
        const std::string upper = boost::algorithm::to_upper_copy(std::string(row.key));
        if (!isCode && upper != boost::algorithm::to_upper_copy(asked.code())) return;
        const bool leadsHere = isCode || upper == asked.code();
        lose(explanation, {Reason::Row, rowName(asked, row), keyPlace(row),
                           row.repeated ? "of a repeated key the first value counts"
                           : leadsHere  ? "an earlier row has the code"
                                        : "found in upper case and as it is written, not so"});
    });
}

Explanation explainNumberRow(const NumberQuestion& asked) {
    const NumberRow* found = asked.rows.find(asked.code());
    if (found == nullptr) {
        const auto* section = asked.question.settings().findSection(asked.topic.section);
        Explanation explanation =
            decided(asked.whenMissing(), section == nullptr ? Reason::KeyAbsent : Reason::BuiltInDefault,
                    section == nullptr ? "there is no section [" + std::string(asked.topic.section) + "]"
                                       : "no row for " + nameOf(asked.topic.section, asked.code()));
        addOthers(asked, nullptr, explanation);
        return explanation;
    }
    const SettingsEntry& row = *found->entry;
    const std::string name = rowName(asked, row);
    const std::string upper = found->isUpperCase ? ", in upper case" : "";
    Explanation explanation;
    if (const auto number = numberOf(row)) {
        explanation = decided(*number, Reason::Row, name + upper, keyPlace(row));
    } else {
        explanation = decided(asked.whenMissing(), Reason::BuiltInDefault, name + upper + " has no number");
        lose(explanation, {Reason::Row, name, valuePlace(row), shownText(row.value) + " is no number"});
    }
    addOthers(asked, &row, explanation);
    return explanation;
}

void suggestNumberRow(const NumberQuestion& asked, const Wanted& wanted, Edits& edits) {
    const std::string number = writtenLike({}, FieldKind::StrictDecimal, wanted.text());
    if (const NumberRow* found = asked.rows.find(asked.code())) {
        const SettingsEntry& row = *found->entry;
        if (found->isUpperCase || boost::algorithm::to_upper_copy(asked.code()) != asked.code()) {
            edits.reaching("the code in the other letter case");
        }
        edits.setValue(row, writtenLike(row.value, FieldKind::StrictDecimal, number));
        edits.removeLine(row);
        edits.reaching({});
    }
    edits.addFirst(asked.topic.section, asked.code(), number);
    edits.addLast(asked.topic.section, asked.code(), number);
}

ExplainedCall numberRowCall(const internal::SettingKey& topic) {
    const auto asked = [&topic](const Question& question) {
        return NumberQuestion{question, topic, question.facts.numberRows(topic)};
    };
    return {[asked](const Question& question) { return explainNumberRow(asked(question)); },
            [asked](const Question& question, const Wanted& wanted, Edits& edits) {
                suggestNumberRow(asked(question), wanted, edits);
            }};
}

}  // namespace

void addBondReasons(ExplainedCalls& calls) {
    calls.add("getSHFixIncomeLimit", {explainFixedIncome, suggestFixedIncome});
    calls.add("getStandardBondUseLimit", numberRowCall(keys::standardBondUse));
    calls.add("getSubFee", numberRowCall(keys::subscriptionFees));
}

}  // namespace ttconfig

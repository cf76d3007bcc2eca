// Named row changes: finds the bonds and futures products whose numbers or groups differ.
// Entry points: tellBondChanges(), tellProductChanges().
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp.

#include <algorithm>
#include <utility>

#include "traderbase/base/config/internal/limits/fixedincome.h"
#include "traderbase/base/config/internal/limits/limitrows.h"
#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/differences/changesink.h"
#include "ttconfig/differences/mergedrows.h"
#include "ttconfig/tables/numberrows.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;
using standin::SettingsText;

// --- a number for each name

// A section of numbers, and the question that asks for them.
struct NumberTopic {
    ChangeTopic topic;
    const SettingKey& key;
    const char* subject;
    const char* question;
};

double answerOf(const NumberTopic& topic, const NumberRow* row) {
    const double missing = valueWhenMissing<double>(topic.key);
    return row == nullptr ? missing : numberOf(*row->entry).value_or(missing);
}

std::optional<Place> placeOf(const NumberRow* row) {
    return row == nullptr ? std::optional<Place>() : keyPlace(*row->entry);
}

void tellNumbers(const TextPair& texts, const NumberTopic& topic, const ChangeSink& tell) {
    if (haveSameEntries(texts, topic.key.section)) return;
    const NumberRows before(texts.before, topic.key);
    const NumberRows after(texts.after, topic.key);
    mergeRows(before, after, before.less, [&](const NumberRow& one, const NumberRow* left, const NumberRow* right) {
        if (left != nullptr && right != nullptr && left->entry->value == right->entry->value) return;
        const double old = answerOf(topic, left);
        const double now = answerOf(topic, right);
        if (isSameNumber(old, now)) return;
        tell(changeOf(topic.topic, std::string(topic.subject).append(" ").append(before.less.nameOf(one)),
                      topic.question, {old, placeOf(left)}, {now, placeOf(right)}));
    });
}

// --- the fixed-income platform

// The members of the record, as the operation returns them; null without a record.
Answer fixedIncomeAnswer(std::string_view value) {
    LimitFields<decltype(kFixedIncomeRow)> fields;
    if (!piecesExactly(value, ',', fields)) return nullptr;
    Answer record = {{"doubleValue", looseDouble(fields[0])}};
    for (std::size_t i = 1; i < fields.size(); ++i)
        record["intValue" + std::to_string(i)] = looseInt(fields[i]);
    return record;
}

bool isSameRecord(const Answer& left, const Answer& right) {
    if (left.is_null() || right.is_null()) return left.is_null() == right.is_null();
    if (!isSameNumber(left["doubleValue"].get<double>(), right["doubleValue"].get<double>())) return false;
    return std::equal(std::next(left.begin()), left.end(), std::next(right.begin()), right.end());
}

void tellFixedIncome(const TextPair& texts, const ChangeSink& tell) {
    for (const FixedIncomeKey& row : kFixedIncomeKeys) {
        const EntryPair entries = entriesOf(texts, *row.key);
        if (entries.sayTheSame()) continue;
        Answer old = fixedIncomeAnswer(entries.oldValue());
        Answer now = fixedIncomeAnswer(entries.newValue());
        if (isSameRecord(old, now)) continue;
        tell(changeOf(ChangeTopic::BondLimit, "bond trade type " + std::to_string(row.bondTradeType),
                      "getSHFixIncomeLimit", {std::move(old), entries.oldPlace()},
                      {std::move(now), entries.newPlace()}));
    }
}

// --- combinations whose margin is charged once

// A product of a group, other than the first, and the group's first product.
struct Grouped {
    std::string_view product;
    std::string_view first;
    Place place;
};

bool lessProduct(const Grouped& left, const Grouped& right) {
    return left.product < right.product;
}

std::vector<Grouped> groupedProducts(const SettingsText& text) {
    std::vector<Grouped> grouped;
    const auto* section = text.findSection(keys::combinations.section);
    if (section == nullptr) return grouped;
    for (const SettingsEntry& entry : section->entries) {
        if (entry.repeated) continue;
        forEachEntry(kCombinations, entry.value, [&](const GroupEntry& group) {
            forEachProductOf(group, [&](std::string_view product) {
                if (isFirstOf(group, product)) return;
                grouped.push_back({product, group.first, placeInValue(entry, product)});
            });
        });
    }
    keepFirstOfEqual(grouped, lessProduct);
    return grouped;
}

void tellCombinations(const TextPair& texts, const ChangeSink& tell) {
    if (haveSameEntries(texts, keys::combinations.section)) return;
    const auto before = groupedProducts(texts.before);
    const auto after = groupedProducts(texts.after);
    mergeRows(before, after, lessProduct, [&tell](const Grouped& one, const Grouped* left, const Grouped* right) {
        // A product outside all groups stands for itself, as does the first product of a group.
        const std::string_view product = one.product;
        const std::string_view old = left != nullptr ? left->first : product;
        const std::string_view now = right != nullptr ? right->first : product;
        const auto placeOf = [](const Grouped* row) {
            return row == nullptr ? std::nullopt : std::optional(row->place);
        };
        tellIfChanged(ChangeTopic::Product, "product " + std::string(product), "getSingleMarginProductName",
                      {std::string(old), placeOf(left)}, {std::string(now), placeOf(right)}, tell);
    });
}

}  // namespace

void tellBondChanges(const TextPair& texts, const ChangeSink& tell) {
    tellFixedIncome(texts, tell);
    tellNumbers(texts, {ChangeTopic::BondLimit, keys::standardBondUse, "bond", "getStandardBondUseLimit"}, tell);
}

void tellProductChanges(const TextPair& texts, const ChangeSink& tell) {
    tellNumbers(texts, {ChangeTopic::Product, keys::subscriptionFees, "product", "getSubFee"}, tell);
    tellCombinations(texts, tell);
}

}  // namespace ttconfig

// Changes of named rows: answers for which bonds and futures products the numbers and groups differ.
// Doors: tellBondChanges(), tellProductChanges().
// Owns: nothing.
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp.

#include <algorithm>
#include <array>
#include <locale>
#include <utility>

#include "traderbase/base/config/internal/limits/limitrows.h"
#include "traderbase/base/config/internal/products/producttables.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/differences/changesink.h"
#include "ttconfig/differences/mergedrows.h"
#include "ttconfig/tables/creditfacts.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;
using standin::SettingsText;

// --- a number for each name: found as written and in upper case, the first that comes to a name counts

// Upper case as the store has it: that of the process's global locale.
class UpperLetters {
public:
    UpperLetters() {
        const std::locale locale;
        for (std::size_t i = 0; i < letters.size(); ++i)
            letters[i] = std::toupper(static_cast<char>(static_cast<unsigned char>(i)), locale);
    }

    char operator()(char letter) const { return letters[static_cast<unsigned char>(letter)]; }

private:
    std::array<char, 256> letters{};
};

// A name, and the entry that it is from. Many of them are held, so the name in upper case is not.
struct NumberOf {
    const SettingsEntry* entry;
    bool isUpper;

    std::string name(const UpperLetters& upper) const {
        std::string text(entry->key);
        if (isUpper) std::transform(text.begin(), text.end(), text.begin(), upper);
        return text;
    }
};

struct LessName {
    const UpperLetters& upper;

    bool operator()(const NumberOf& left, const NumberOf& right) const {
        const std::string_view one = left.entry->key;
        const std::string_view other = right.entry->key;
        if (!left.isUpper && !right.isUpper) return one < other;
        const std::size_t shared = std::min(one.size(), other.size());
        for (std::size_t i = 0; i < shared; ++i) {
            const auto here = static_cast<unsigned char>(left.isUpper ? upper(one[i]) : one[i]);
            const auto there = static_cast<unsigned char>(right.isUpper ? upper(other[i]) : other[i]);
            if (here != there) return here < there;
        }
        return one.size() < other.size();
    }
};

std::vector<NumberOf> numberTable(const SettingsText& text, std::string_view sectionName, const LessName& lessName) {
    std::vector<NumberOf> rows;
    const auto* section = text.findSection(sectionName);
    if (section == nullptr) return rows;
    const auto isLower = [&lessName](char letter) { return lessName.upper(letter) != letter; };
    rows.reserve(2 * section->entries.size());
    for (const SettingsEntry& entry : section->entries) {
        if (entry.repeated) continue;
        rows.push_back({&entry, false});
        if (std::any_of(entry.key.begin(), entry.key.end(), isLower)) rows.push_back({&entry, true});
    }
    keepFirstOfEqual(rows, lessName);
    return rows;
}

// A section of numbers, and how they are asked for.
struct NumberTopic {
    ChangeTopic topic;
    const SettingKey& key;
    const char* subject;
    const char* question;
    double missing;  // of a name that has no row, and of a value that is no number
};

double numberOf(const NumberTopic& topic, const NumberOf* row) {
    return row == nullptr ? topic.missing : strictDouble(row->entry->value).value_or(topic.missing);
}

std::optional<Place> placeOf(const NumberOf* row) {
    return row == nullptr ? std::optional<Place>() : keyPlace(*row->entry);
}

void tellNumbers(const TextPair& texts, const NumberTopic& topic, const ChangeSink& tell) {
    if (haveSameEntries(texts, topic.key.section)) return;
    const UpperLetters upper;
    const LessName lessName{upper};
    const auto before = numberTable(texts.before, topic.key.section, lessName);
    const auto after = numberTable(texts.after, topic.key.section, lessName);
    mergeRows(before, after, lessName, [&](const NumberOf& one, const NumberOf* left, const NumberOf* right) {
        if (left != nullptr && right != nullptr && left->entry->value == right->entry->value) return;
        const double old = numberOf(topic, left);
        const double now = numberOf(topic, right);
        if (isSameNumber(old, now)) return;
        tell(changeOf(topic.topic, std::string(topic.subject).append(" ").append(one.name(upper)), topic.question,
                      {old, placeOf(left)}, {now, placeOf(right)}));
    });
}

// --- the fixed-income platform

// The members of the record, as it is answered; null without one.
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

// A further product of a group, and the group's first.
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
        for (const auto& group : productGroups(entry.value)) {
            for (std::size_t i = 1; i < group.size(); ++i)
                grouped.push_back({group[i], group.front(), placeInValue(entry, group[i])});
        }
    }
    keepFirstOfEqual(grouped, lessProduct);
    return grouped;
}

void tellCombinations(const TextPair& texts, const ChangeSink& tell) {
    if (haveSameEntries(texts, keys::combinations.section)) return;
    const auto before = groupedProducts(texts.before);
    const auto after = groupedProducts(texts.after);
    mergeRows(before, after, lessProduct, [&tell](const Grouped& one, const Grouped* left, const Grouped* right) {
        // A product that is in no group stands for itself, as the first of a group does.
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
    tellNumbers(texts,
                {ChangeTopic::BondLimit, keys::standardBondUse, "bond", "getStandardBondUseLimit",
                 valueWhenMissing<double>(keys::standardBondUse)},
                tell);
}

void tellProductChanges(const TextPair& texts, const ChangeSink& tell) {
    tellNumbers(texts,
                {ChangeTopic::Product, keys::subscriptionFees, "product", "getSubFee",
                 valueWhenMissing<double>(keys::subscriptionFees)},
                tell);
    tellCombinations(texts, tell);
}

}  // namespace ttconfig

// Reasons for the product sections: the group with which a futures product is margined, and the list that names a fund.
// Entry points: addProductReasons().
// Covered by reasons/explainer_test.cpp and explaining/explainedanswers_test.cpp in tests/tools/ttconfig/.

#include <ttplatform/stocktypecenter.h>

#include <optional>

#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/products/producttables.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/tables/entrylists.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;
using internal::GroupEntry;
using standin::SettingsEntry;
using standin::SettingsSection;

constexpr int kMoneyMarketFundType = 100024;

std::string sectionName(const internal::SettingKey& topic) {
    return "[" + std::string(topic.section) + "]";
}

// --- combinations

// The first group that has the product in any position but the first decides: the answer is that group's first product.
Explanation explainCombination(const Question& question) {
    const std::string& product = question.text(0);
    const SettingsSection* section = question.settings().findSection(keys::combinations.section);
    const std::string what = "product " + shownText(product);
    if (section == nullptr) {
        return decided(product, Reason::KeyAbsent, "there is no section " + sectionName(keys::combinations));
    }
    const standin::SettingsHeader& header = section->headers.front();
    Explanation explanation = decided(
        product, Reason::NotListed,
        "no group of " + sectionName(keys::combinations) + " has " + what + " behind another one: it goes by itself",
        Place{header.line, header.column});
    for (const SettingsEntry& row : section->entries) {
        internal::forEachEntry(internal::kCombinations, row.value, [&](const GroupEntry& group) {
            internal::forEachProductOf(group, [&](std::string_view each) {
                if (each != product) return;
                const bool isFirst = internal::isFirstOf(group, each);
                if (!row.repeated && !isFirst && explanation.reason == Reason::NotListed) {
                    explanation.answer = answerOf(std::string(group.first));
                    explanation.reason = Reason::Row;
                    explanation.rule = nameOf(keys::combinations.section, row.key) + " has a group with " + what +
                                       " behind " + shownText(group.first);
                    explanation.place = placeInValue(row, each);
                    return;
                }
                lose(explanation, {Reason::Row, what, placeInValue(row, each),
                                   row.repeated ? "of a repeated key the first value counts"
                                   : isFirst    ? "is the first of its group"
                                                : "an earlier group has it"});
            });
        });
    }
    return explanation;
}

// The value with the product removed from every group in which it is not the first product.
std::string valueWithoutMember(std::string_view value, std::string_view product) {
    std::string text;
    internal::forEachEntry(internal::kCombinations, value, [&](const GroupEntry& group) {
        text.append(text.empty() ? 0 : 1, internal::kCombinations.separator);
        text += withoutPieces(group.text, ',', [&](std::string_view each) {
            return !internal::isFirstOf(group, each) && each == product;
        });
    });
    return text;
}

void suggestGroups(const SettingsEntry& row, const std::string& product, const std::string& first, Edits& edits) {
    internal::forEachEntry(internal::kCombinations, row.value, [&](const GroupEntry& group) {
        const std::vector<std::string_view> products = internal::pieces(group.text, ',');
        const std::string_view last = products.back();
        if (group.first == first) edits.replacePiece(row, last, std::string(last) + "," + product);
        if (products.size() < 2 || products[1] != product) return;
        edits.reaching("every other product of the group");
        edits.replacePiece(row, group.first, first);
        edits.reaching({});
    });
    if (row.value.empty()) edits.setValue(row, first + "," + product);
    edits.setValue(row, first + "," + product + ";" + std::string(row.value));
    edits.setValue(row, std::string(row.value) + ";" + first + "," + product);
}

void suggestCombination(const Question& question, const Wanted& wanted, Edits& edits) {
    const std::string& product = question.text(0);
    const SettingsSection* section = question.settings().findSection(keys::combinations.section);
    if (section == nullptr || section->entries.empty()) {
        edits.addLast(keys::combinations.section, product, wanted.text() + "," + product);
        return;
    }
    for (const SettingsEntry& row : section->entries) {
        if (row.repeated) continue;
        if (wanted.text() == product) {
            edits.reaching({});
            edits.setValue(row, valueWithoutMember(row.value, product));
            edits.reaching("every group of the line");
            edits.removeLine(row);
        } else {
            suggestGroups(row, product, wanted.text(), edits);
        }
    }
}

// --- funds that are paid from the lending balance first

// The platform's rows in file order. Keys are read like atoi.
std::vector<const SettingsEntry*> platformRows(const Question& question, int platform) {
    std::vector<const SettingsEntry*> rows;
    const SettingsSection* section = question.settings().findSection(keys::sloBalanceFirstFunds.section);
    if (section == nullptr) return rows;
    for (const SettingsEntry& row : section->entries) {
        if (!row.repeated && internal::looseInt(row.key) == platform) rows.push_back(&row);
    }
    return rows;
}

Explanation byFundList(const Question& question, const SettingsEntry& row) {
    const std::string& market = question.text(1);
    const std::string& code = question.text(2);
    const std::string fund = market + code;
    const std::string name = nameOf(keys::sloBalanceFirstFunds.section, row.key);
    Explanation explanation;
    const auto listed = countingEntry(internal::kLendingFirstFunds, row.value,
                                      [&fund](std::string_view piece) { return piece == fund; });
    const bool isForAll = internal::isAllFunds(row.value);
    if (listed) {
        explanation = decided(true, Reason::Listed, name + " lists " + shownText(fund), placeInValue(row, *listed));
    } else if (isForAll && StockTypeCenter::instance().isTypedStock(kMoneyMarketFundType, market, code)) {
        explanation = decided(true, Reason::Listed,
                              name + " is ALL, and type 100024 makes " + shownText(fund) + " a money-market fund",
                              valuePlace(row));
    } else {
        explanation = decided(false, Reason::NotListed, name + " does not list " + shownText(fund), valuePlace(row));
        if (isForAll) {
            lose(explanation,
                 {Reason::Listed, "ALL", valuePlace(row), "is for money-market funds, type 100024, alone"});
        }
    }
    return explanation;
}

Explanation explainSloFund(const Question& question) {
    const int platform = question.number(0);
    const std::vector<const SettingsEntry*> rows = platformRows(question, platform);
    const std::string_view section = keys::sloBalanceFirstFunds.section;
    if (rows.empty()) {
        return decided(false, Reason::KeyAbsent, "there is no key " + nameOf(section, std::to_string(platform)));
    }
    // The last row of a platform counts.
    Explanation explanation = byFundList(question, *rows.back());
    for (std::size_t i = 0; i + 1 < rows.size(); ++i) {
        lose(explanation, {Reason::Row, nameOf(section, rows[i]->key), keyPlace(*rows[i]),
                           "overwritten by line " + std::to_string(rows.back()->line)});
    }
    for (const SettingsEntry* row : rows)
        addRepeats(question, section, row->key, explanation);
    return explanation;
}

void suggestSloFund(const Question& question, const Wanted& wanted, Edits& edits) {
    const int platform = question.number(0);
    const std::string fund = question.text(1) + question.text(2);
    const auto flag = wanted.flag();
    if (!flag) return;
    const std::vector<const SettingsEntry*> rows = platformRows(question, platform);
    if (*flag) {
        edits.addLast(keys::sloBalanceFirstFunds.section, std::to_string(platform), fund);
        if (rows.empty()) return;
        edits.setValue(*rows.back(), withPiece(rows.back()->value, internal::kLendingFirstFunds.separator, fund));
        edits.reaching("every other fund of the platform");
        edits.setValue(*rows.back(), "ALL");
        edits.removeLine(*rows.back());
        return;
    }
    if (rows.empty()) return;
    edits.setValue(*rows.back(), withoutPieces(rows.back()->value, internal::kLendingFirstFunds.separator,
                                               [&fund](std::string_view piece) { return piece == fund; }));
    edits.reaching("every other fund of the platform");
    edits.setValue(*rows.back(), "");
    edits.removeLine(*rows.back());
}

// --- funds with a fixed price

// Whether an entry of the market lists the code, and where.
struct FixedPriceEntry {
    internal::MarketCodesEntry entry;
    std::string_view listed;  // the code in the entry; a null view if it is not listed

    FixedPriceEntry(const internal::MarketCodesEntry& of, std::string_view code) : entry(of) {
        internal::forEachCodeOf(entry, [&](std::string_view piece) {
            if (piece == code && listed.data() == nullptr) listed = piece;
        });
    }

    bool isListed() const { return listed.data() != nullptr; }
    Reason reason() const { return isListed() ? Reason::Listed : Reason::NotListed; }
    Place place(const SettingsEntry& row) const { return placeInValue(row, isListed() ? listed : entry.text); }
};

// Only the last entry of a market counts.
Explanation explainFixedPrice(const Question& question) {
    const std::string& market = question.text(0);
    const std::string& code = question.text(1);
    return explainedByKey(question, keys::fixedPriceFunds, false, [&](const SettingsEntry& row) {
        const auto last = countingEntry(internal::kFixedPriceFunds, row.value,
                                        [&market](const auto& entry) { return entry.market == market; });
        const bool isListed = last && FixedPriceEntry(*last, code).isListed();
        Explanation explanation = decided(isListed, isListed ? Reason::Listed : Reason::NotListed,
                                          nameOf(keys::fixedPriceFunds) + (isListed ? " lists " : " does not list ") +
                                              "the code " + shownText(code) + " for market " + shownText(market),
                                          last ? FixedPriceEntry(*last, code).place(row) : valuePlace(row));
        internal::forEachEntry(internal::kFixedPriceFunds, row.value, [&](const internal::MarketCodesEntry& entry) {
            if (!last || entry.market != market || entry.text.data() == last->text.data()) return;
            lose(explanation, [&] {
                const FixedPriceEntry former(entry, code);
                return Candidate{former.reason(), "an earlier entry of the market", former.place(row),
                                 "overwritten by a later entry of the market"};
            });
        });
        return explanation;
    });
}

void suggestFixedPrice(const Question& question, const Wanted& wanted, Edits& edits) {
    const internal::SettingKey& key = keys::fixedPriceFunds;
    const SettingsEntry* row = entryOf(question, key);
    const std::string& code = question.text(1);
    const auto flag = wanted.flag();
    if (!flag) return;
    if (*flag) edits.addPiece(key, internal::kFixedPriceFunds.separator, question.text(0) + ":" + code);
    if (row == nullptr) return;
    internal::forEachEntry(internal::kFixedPriceFunds, row->value, [&](const internal::MarketCodesEntry& entry) {
        if (entry.market != question.text(0)) return;
        edits.replacePiece(*row, entry.codes,
                           *flag ? std::string(entry.codes) + "," + code
                                 : withoutPieces(entry.codes, ',', [&](auto piece) { return piece == code; }));
    });
    edits.reaching("every fund that the line lists");
    if (!*flag) edits.removeLine(*row);
}

}  // namespace

void addProductReasons(ExplainedCalls& calls) {
    calls.add("getSingleMarginProductName", {explainCombination, suggestCombination});
    calls.add("isMonetaryFundUseSloBalanceFirst", {explainSloFund, suggestSloFund});
    calls.add("isNeedFixPriceByNonTradeMonetaryFund", {explainFixedPrice, suggestFixedPrice});
}

}  // namespace ttconfig

// Reasons of the product sections: which group a futures product is margined by, and which list names a fund.
// Doors: addProductReasons().
// Owns: nothing.
// Covered by tests/tools/ttconfig/explainer_test.cpp and explainedanswers_test.cpp.

#include <ttplatform/stocktypecenter.h>

#include <optional>

#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/products/producttables.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;
using standin::SettingsEntry;
using standin::SettingsSection;

constexpr int kMoneyMarketFundType = 100024;

std::string sectionName(const internal::SettingKey& topic) {
    return "[" + std::string(topic.section) + "]";
}

std::string joined(const std::vector<std::string_view>& pieces, char separator) {
    std::string text;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        text.append(i == 0 ? "" : std::string(1, separator)).append(pieces[i]);
    return text;
}

// --- combinations

using Group = std::vector<std::string_view>;

// Hands each group of the value to the sink. A value of a million groups is gone through, and not held.
template <typename Sink>
void forEachGroup(std::string_view value, Sink&& sink) {
    internal::splitKeepEmpty(value, ';', [&](std::string_view text) { sink(internal::productGroups(text).front()); });
}

// The first product of the first group in which the product is not the first; later ones that name it do not count.
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
        forEachGroup(row.value, [&](const Group& group) {
            for (std::size_t i = 0; i < group.size(); ++i) {
                if (group[i] != product) continue;
                if (!row.repeated && i > 0 && explanation.reason == Reason::NotListed) {
                    Explanation listed = decided(std::string(group.front()), Reason::Row,
                                                 nameOf(keys::combinations.section, row.key) + " has a group with " +
                                                     what + " behind " + shownText(group.front()),
                                                 placeInValue(row, group[i]));
                    listed.lost = std::move(explanation.lost);
                    listed.furtherLost = explanation.furtherLost;
                    explanation = std::move(listed);
                    continue;
                }
                lose(explanation, {Reason::Row, what, placeInValue(row, group[i]),
                                   row.repeated ? "of a repeated key the first value counts"
                                   : i == 0     ? "is the first of its group"
                                                : "an earlier group has it"});
            }
        });
    }
    return explanation;
}

// The value without the product behind the first of any group.
std::string valueWithoutMember(std::string_view value, std::string_view product) {
    std::string text;
    forEachGroup(value, [&](const Group& group) {
        Group kept;
        for (std::size_t i = 0; i < group.size(); ++i) {
            if (i == 0 || group[i] != product) kept.push_back(group[i]);
        }
        text += (text.empty() ? "" : ";") + joined(kept, ',');
    });
    return text;
}

void suggestGroups(const SettingsEntry& row, const std::string& product, const std::string& first, Edits& edits) {
    forEachGroup(row.value, [&](const Group& group) {
        const std::string_view last = group.back();
        if (group.front() == first) edits.replacePiece(row, last, std::string(last) + "," + product);
        if (group.size() < 2 || group[1] != product) return;
        edits.reaching("every other product of the group");
        edits.replacePiece(row, group.front(), first);
        edits.reaching({});
    });
    if (row.value.empty()) edits.setValue(row, first + "," + product);
    edits.setValue(row, first + "," + product + ";" + std::string(row.value));
    edits.setValue(row, std::string(row.value) + ";" + first + "," + product);
}

void suggestCombination(const Question& question, const Wanted& wanted, Edits& edits) {
    const std::string& product = question.text(0);
    const SettingsSection* section = question.settings().findSection(keys::combinations.section);
    if (section == nullptr) {
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
    if (section->entries.empty()) edits.addLast(keys::combinations.section, product, wanted.text() + "," + product);
}

// --- funds that are paid from the lending balance first

// The rows of the platform, in file order. Keys are taken loosely.
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
    std::optional<Place> place;
    internal::splitKeepEmpty(row.value, ',', [&](std::string_view piece) {
        if (piece == fund && !place) place = placeInValue(row, piece);
    });
    // A list of several entries is not for all funds, and may be too long to be held.
    const bool isOneEntry = row.value.find(',') == std::string_view::npos;
    const bool isForAll = isOneEntry && internal::listsAllFunds(internal::fundList(row.value));
    if (place) {
        explanation = decided(true, Reason::Listed, name + " lists " + shownText(fund), place);
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
        const std::string value(rows.back()->value);
        edits.setValue(*rows.back(), value.empty() ? fund : value + "," + fund);
        edits.reaching("every other fund of the platform");
        edits.setValue(*rows.back(), "ALL");
        edits.removeLine(*rows.back());
        return;
    }
    if (rows.empty()) return;
    std::vector<std::string_view> kept;
    internal::splitKeepEmpty(rows.back()->value, ',', [&](std::string_view piece) {
        if (piece != fund) kept.push_back(piece);
    });
    edits.setValue(*rows.back(), joined(kept, ','));
    edits.reaching("every other fund of the platform");
    edits.setValue(*rows.back(), "");
    edits.removeLine(*rows.back());
}

// --- funds whose price is fixed

// What an entry of the market says about the code, and where.
struct FixedPriceEntry {
    internal::MarketCodesEntry entry;
    std::string_view listed;  // the code in it; points nowhere where it is not there

    FixedPriceEntry(const internal::MarketCodesEntry& of, std::string_view code) : entry(of) {
        internal::splitKeepEmpty(entry.codes, ',', [&](std::string_view piece) {
            if (piece == code && listed.data() == nullptr) listed = piece;
        });
    }

    bool isListed() const { return listed.data() != nullptr; }
    Reason reason() const { return isListed() ? Reason::Listed : Reason::NotListed; }
    Place place(const SettingsEntry& row) const { return placeInValue(row, isListed() ? listed : entry.text); }
};

// Hands each entry of the question's market to the sink.
template <typename Sink>
void forEachOfMarket(const Question& question, const SettingsEntry& row, Sink&& sink) {
    if (row.value.empty()) return;
    internal::forEachEntry(row.value, internal::marketCodesEntry, [&](const internal::MarketCodesEntry& entry) {
        if (entry.market == question.text(0)) sink(FixedPriceEntry(entry, question.text(1)));
    });
}

// The last entry of a market holds all its codes.
Explanation explainFixedPrice(const Question& question) {
    const internal::SettingKey& key = keys::fixedPriceFunds;
    const SettingsEntry* row = entryOf(question, key);
    const std::string what = "the code " + shownText(question.text(1)) + " for market " + shownText(question.text(0));
    if (row == nullptr) return decided(false, Reason::KeyAbsent, "there is no key " + nameOf(key));
    std::optional<FixedPriceEntry> last;
    forEachOfMarket(question, *row, [&last](const FixedPriceEntry& entry) { last = entry; });
    const bool isListed = last && last->isListed();
    Explanation explanation = decided(isListed, isListed ? Reason::Listed : Reason::NotListed,
                                      nameOf(key) + (isListed ? " lists " : " does not list ") + what,
                                      last ? last->place(*row) : valuePlace(*row));
    forEachOfMarket(question, *row, [&](const FixedPriceEntry& entry) {
        if (entry.entry.text.data() == last->entry.text.data()) return;
        lose(explanation, [&] {
            return Candidate{entry.reason(), "an earlier entry of the market", entry.place(*row),
                             "overwritten by a later entry of the market"};
        });
    });
    addRepeats(question, key, explanation);
    return explanation;
}

void suggestFixedPrice(const Question& question, const Wanted& wanted, Edits& edits) {
    const internal::SettingKey& key = keys::fixedPriceFunds;
    const SettingsEntry* row = entryOf(question, key);
    const std::string& code = question.text(1);
    const auto flag = wanted.flag();
    if (!flag) return;
    if (*flag) {
        const std::string entry = question.text(0) + ":" + code;
        const bool isAlone = row == nullptr || row->value.empty();
        edits.setValue(key, isAlone ? entry : std::string(row->value) + ";" + entry);
    }
    if (row == nullptr) return;
    internal::forEachEntry(row->value, internal::marketCodesEntry, [&](const internal::MarketCodesEntry& entry) {
        if (entry.market != question.text(0)) return;
        if (*flag) {
            edits.replacePiece(*row, entry.codes, std::string(entry.codes) + "," + code);
            return;
        }
        std::vector<std::string_view> kept;
        internal::splitKeepEmpty(entry.codes, ',', [&](std::string_view piece) {
            if (piece != code) kept.push_back(piece);
        });
        edits.replacePiece(*row, entry.codes, joined(kept, ','));
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

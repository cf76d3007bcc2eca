// Limit checks: answers what is wrong with a row of the limit sections.
// Doors: checkLimitRow(), checkFixedIncome().
// Owns: which section has which table and which fields.
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>
#include <ttplatform/text.h>

#include <algorithm>

#include "traderbase/base/config/internal/limitrows.h"
#include "traderbase/base/config/internal/markets.h"
#include "traderbase/base/config/internal/unitwords.h"
#include "ttconfig/findings/limitquestions.h"
#include "ttconfig/findings/listchecks.h"
#include "ttconfig/findings/numberchecks.h"
#include "ttconfig/findings/valuechecks.h"
#include "ttconfig/text/nearestname.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

struct RowShape {
    LimitTopic topic;
    const LimitField* fields;
    std::size_t count;
};

template <std::size_t Count>
RowShape shapeOf(LimitTopic topic, const LimitRowShape<Count>& shape) {
    return {topic, shape.data(), shape.size()};
}

RowShape shapeOf(const SettingKey& row) {
    if (row.grammar == ValueGrammar::OrderLimitRow) return shapeOf(LimitTopic::OrderLimits, kOrderLimitRow);
    if (row.grammar == ValueGrammar::BlockTradeLimitRow) return shapeOf(LimitTopic::BlockTrades, kBlockTradeLimitRow);
    if (row.grammar == ValueGrammar::StockRateRow) return shapeOf(LimitTopic::StockRates, kStockRateRow);
    const bool isShanghai = isRow(row, keys::connectShanghaiRates);
    return shapeOf(isShanghai ? LimitTopic::ShanghaiConnectRates : LimitTopic::ShenzhenConnectRates, kConnectRateRow);
}

bool hasDigit(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool isUsualUnit(std::string_view unit) {
    return unit == kShares || unit == kFundUnits || unit == kBonds || unit == kLots;
}

// --- values

void checkField(EntryRemarks& remarks, std::string_view field, LimitField kind, bool isLimit) {
    switch (kind) {
        case LimitField::Integer:
            if (!checkLooseNumber(remarks, field, LooseKind::Integer, "the field") || !isLimit) return;
            return checkLeast(remarks, field, 1.0, "lets no order pass; write 1 or more");
        case LimitField::Decimal:
            checkLooseNumber(remarks, field, LooseKind::Decimal, "the field");
            return;
        case LimitField::Text:
            if (isUsualUnit(field)) return;
            remarks.wrong(
                RuleId::UnusualUnit, field,
                fmt::format("is no unit word in use; write {}, {}, {} or {}", kShares, kFundUnits, kBonds, kLots));
            return;
    }
}

// Whether the row is stored at all.
bool checkFields(EntryRemarks& remarks, const LimitField* fields, std::size_t count, bool isLimit) {
    const std::size_t found = fieldCount(remarks.value());
    if (found != count) {
        remarks.wrong(RuleId::WrongFieldCount, remarks.value(), [&] {
            return fmt::format("has {} field{} and not {}, so that the row is passed over", found,
                               found == 1 ? "" : "s", count);
        });
        return false;
    }
    splitKeepEmpty(remarks.value(), ',',
                   [&](std::string_view field) { checkField(remarks, field, *fields++, isLimit); });
    return true;
}

// --- keys

// One item of the key, with its market and item in upper case.
class ItemCheck {
public:
    ItemCheck(EntryRemarks& target, SettingsContext& all, const SettingKey& row, LimitTopic table)
        : remarks(target), context(all), key(row), topic(table) {}

    void check(const LimitItem& item) {
        if (!item.hasDash) {
            remarks.wrong(RuleId::ItemWithoutDash, item.text,
                          "has no \"-\", so that no question finds the row; write the market, \"-\" and a code or "
                          "category");
            return;
        }
        if (causeIn(item.text)) return remarks.wrong(RuleId::UnknownCategory, item.text, "is found by no question");
        const auto [market, name] = tableKey(item);
        if (checkOverwritten(item)) return;
        if (checkReach(item, market, name)) return;
        checkInstrument(item, market, name);
    }

private:
    bool checkOverwritten(const LimitItem& item) {
        const Place here = remarks.placeOf(item.text);
        const Place winner = context.winnersOf(key.section).winner(item);
        if (winner == here) return false;
        const bool isSameRow = winner.line == here.line;
        remarks.say(isSameRow ? RuleId::RepeatedInList : RuleId::RowOverwritten, item.text,
                    isSameRow ? fmt::format("{} stands in this key again; once is enough", shownText(item.text))
                              : fmt::format("{} does not count here: the row at {} overwrites it; take one out",
                                            shownText(item.text), named(winner)),
                    winner);
        return true;
    }

    bool checkReach(const LimitItem& item, const std::string& market, const std::string& name) {
        if (isOfOtherConnect(topic, market)) {
            const SettingKey& other =
                topic == LimitTopic::ShanghaiConnectRates ? keys::connectShenzhenRates : keys::connectShanghaiRates;
            remarks.say(
                RuleId::WrongConnect, item.text,
                fmt::format("{} is of the other connect, whose rates are looked for in [{}]; move the row there",
                            shownText(item.text), other.section));
            return true;
        }
        const bool isOddWord = !name.empty() && codesHaveDigits(market) && !hasDigit(name) && !isCategoryWord(name);
        const std::string why = isOddWord ? std::string() : whyUnreachable(topic, market, name);
        if (isOddWord) {
            remarks.say(RuleId::UnknownCategory, item.item, [&] {
                return fmt::format("{} is no category, and no code of {}, so that no question finds the row{}",
                                   shownText(item.item), market, didYouMean(name, categoryWords()));
            });
        } else if (!why.empty()) {
            remarks.say(RuleId::UnreachableRow, item.text,
                        [&] { return fmt::format("no question reaches {} here: {}", shownText(item.text), why); });
        } else if (name.empty() || market.empty()) {
            remarks.say(RuleId::UnreachableRow, item.text, [&] {
                return fmt::format("no question reaches {} here: there is nothing {} the \"-\"", shownText(item.text),
                                   name.empty() ? "behind" : "in front of");
            });
        } else {
            return false;
        }
        return true;
    }

    bool isKnown(const std::string& market, const std::string& code) const {
        constexpr int kStockTypes[] = {100003, 100024, 100016, 100103, 100004, 100013,
                                       126,    100017, 100021, 124,    100104};
        constexpr int kBaseTypes[] = {1062, 1117, 1172, 1154, 1124, 1136};
        const standin::PlatformData& data = *context.platform;
        return data.instrument(market, code) != nullptr ||
               std::any_of(std::begin(kStockTypes), std::end(kStockTypes),
                           [&](int type) { return data.isStockType(type, market, code); }) ||
               std::any_of(std::begin(kBaseTypes), std::end(kBaseTypes),
                           [&](int type) { return data.isBaseType(type, market, code); });
    }

    void checkInstrument(const LimitItem& item, const std::string& market, const std::string& code) {
        // Platform data types the instruments of stock exchanges; of other markets it need not know each code.
        if (context.platform == nullptr || !isStockExchange(market)) return;
        if (isCategoryWord(code) || isKnown(market, code)) return;
        remarks.say(RuleId::UnknownInstrument, item.text, [&] {
            return fmt::format("the platform data knows no instrument {} of {}; check the code", code, market);
        });
    }

    EntryRemarks& remarks;
    SettingsContext& context;
    const SettingKey& key;
    const LimitTopic topic;
};

}  // namespace

void checkLimitRow(EntryRemarks& remarks, SettingsContext& context, const SettingKey& row) {
    remarks.lookForComment(Semicolons::Comment);
    const RowShape shape = shapeOf(row);
    const bool isLimit = shape.topic == LimitTopic::OrderLimits || shape.topic == LimitTopic::BlockTrades;
    if (!checkFields(remarks, shape.fields, shape.count, isLimit)) return;
    ItemCheck items(remarks, context, row, shape.topic);
    forEachLimitItem(remarks.entry().key, [&items](const LimitItem& item) { items.check(item); });
}

void checkFixedIncome(EntryRemarks& remarks) {
    remarks.lookForComment(Semicolons::Comment);
    if (remarks.value().empty()) return;
    if (!checkFields(remarks, kFixedIncomeRow.data(), kFixedIncomeRow.size(), false)) return;
    splitKeepEmpty(remarks.value(), ',', [&](std::string_view field) {
        checkLeast(remarks, field, 0.0, "is negative, but counts; write 0 or more");
    });
}

}  // namespace ttconfig

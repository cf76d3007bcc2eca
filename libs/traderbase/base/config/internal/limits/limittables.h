#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include <ttplatform/enums.h>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/limits/limitcategories.h"
#include "traderbase/base/config/internal/limits/limitrows.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "traderbase/base/config/internal/words/markets.h"

// What the limit tables are made of, and how each question about them is answered: one description a table, one a
// question, and one walk through the rows. The store walks through the texts of the host's settings reader, the tool
// through views with their places; which row counts is decided here for both.

namespace ttservice::internal {

// --- tables

// The sections whose rows make one table, in the order in which a load reads them.
struct LimitSections {
    const SettingKey* const* first;
    std::size_t count;

    constexpr const SettingKey* const* begin() const { return first; }
    constexpr const SettingKey* const* end() const { return first + count; }
};

struct LimitTableSpec {
    LimitSections sections;
    const LimitField* shape;  // of a row's value
    std::size_t fieldCount;
    std::string_view words;  // the fields of a row, for messages

    template <std::size_t Sections, std::size_t Fields>
    constexpr LimitTableSpec(const SettingKey* const (&keys)[Sections], const LimitRowShape<Fields>& rowShape,
                             std::string_view fieldsInWords)
        : sections{keys, Sections}, shape(rowShape.data()), fieldCount(Fields), words(fieldsInWords) {}
};

inline constexpr const SettingKey* kOrderLimitSections[] = {&keys::orderLimits, &keys::connectShanghaiOrderLimits,
                                                            &keys::connectShenzhenOrderLimits};
inline constexpr const SettingKey* kBlockTradeSections[] = {&keys::blockTradeLimits};
inline constexpr const SettingKey* kStockRateSections[] = {&keys::stockRates};
inline constexpr const SettingKey* kShanghaiConnectRateSections[] = {&keys::connectShanghaiRates};
inline constexpr const SettingKey* kShenzhenConnectRateSections[] = {&keys::connectShenzhenRates};

// One table for three sections: which of them a row came from plays no part in an answer.
inline constexpr LimitTableSpec kOrderLimitTable{kOrderLimitSections, kOrderLimitRow, "quantity,unit"};
inline constexpr LimitTableSpec kBlockTradeTable{kBlockTradeSections, kBlockTradeLimitRow, "quantity,unit,amount"};
inline constexpr LimitTableSpec kStockRateTable{kStockRateSections, kStockRateRow, "six decimals and a whole number"};
inline constexpr LimitTableSpec kShanghaiConnectRateTable{kShanghaiConnectRateSections, kConnectRateRow,
                                                          "fourteen decimals"};
inline constexpr LimitTableSpec kShenzhenConnectRateTable{kShenzhenConnectRateSections, kConnectRateRow,
                                                          "fourteen decimals"};

// In the order in which a load reads them.
inline constexpr const LimitTableSpec* kLimitTables[] = {&kOrderLimitTable, &kBlockTradeTable, &kStockRateTable,
                                                         &kShanghaiConnectRateTable, &kShenzhenConnectRateTable};

// The table that the section's rows go into; null for any other section.
constexpr const LimitTableSpec* limitTableOf(std::string_view section) {
    for (const LimitTableSpec* table : kLimitTables) {
        for (const SettingKey* key : table->sections) {
            if (key->section == section) return table;
        }
    }
    return nullptr;
}

// --- questions

// The category word of an instrument; market and code in upper case.
using LimitCategoryRule = LimitCategory (*)(const std::string& market, const std::string& code,
                                            EBrokerPriceType priceType);

// How an answer comes from a table: by the row of (market, code), then by the row of (market, category), then by the
// default.
struct LimitQuestionSpec {
    std::string_view operation;
    const LimitTableSpec* table;
    LimitCategoryRule category;
    std::string_view hkStandsFor;  // the market that HK is looked up as; empty where HK is a market of its own
    bool looksForCode;             // false: by category alone
    bool insertsDefault;           // the default is kept as the category's row until the next load
    std::size_t firstField;        // the fields of the row that make the answer
    std::size_t fieldCount;
    std::string_view withoutRow;  // these fields where no row fits, as a row would have them
};

// A category rule that does not depend on the price type, nor, where it says so, on the instrument.
template <auto Rule>
LimitCategory atAnyPrice(const std::string& market, const std::string& code, EBrokerPriceType /*priceType*/) {
    if constexpr (std::is_invocable_v<decltype(Rule)>) {
        return Rule();
    } else {
        return Rule(market, code);
    }
}

// clang-format off
inline constexpr LimitQuestionSpec kOrderLimitQuestion{
    "getOrderLimit", &kOrderLimitTable, &orderLimitCategory, {}, true, true, 0, 2, "1000000,股"};
// Block trades go by category alone, and no default is left in their table.
inline constexpr LimitQuestionSpec kBlockTradeQuantityQuestion{
    "getDazongOrderNumLimit", &kBlockTradeTable, &atAnyPrice<blockTradeQuantityCategory>,
    {}, false, false, 0, 2, "1000000,股"};
inline constexpr LimitQuestionSpec kBlockTradeAmountQuestion{
    "getDazongOrderTradeAmountLimit", &kBlockTradeTable, &atAnyPrice<blockTradeAmountCategory>,
    {}, false, false, 2, 1, "1000000"};
inline constexpr LimitQuestionSpec kStockRateQuestion{
    "getRateLimitPtr", &kStockRateTable, &atAnyPrice<stockRateCategory>,
    {}, true, true, 0, 7, "0,0,0,0,0,0,0"};
inline constexpr LimitQuestionSpec kShanghaiConnectRateQuestion{
    "getHGTExchangeRateLimitPtr", &kShanghaiConnectRateTable, &atAnyPrice<shanghaiConnectRateCategory>,
    markets::kHgt, true, true, 0, 14, "0,0,0,0,0,0,0,0,0,0,0,0,0,0"};
inline constexpr LimitQuestionSpec kShenzhenConnectRateQuestion{
    "getSgtExchangeRateLimitPtr", &kShenzhenConnectRateTable, &atAnyPrice<shenzhenConnectRateCategory>,
    markets::kSgt, true, true, 0, 14, "0,0,0,0,0,0,0,0,0,0,0,0,0,0"};
// clang-format on

inline constexpr const LimitQuestionSpec* kLimitQuestions[] = {
    &kOrderLimitQuestion, &kBlockTradeQuantityQuestion,  &kBlockTradeAmountQuestion,
    &kStockRateQuestion,  &kShanghaiConnectRateQuestion, &kShenzhenConnectRateQuestion};

// The market whose rows answer for a market; both in upper case.
constexpr std::string_view marketLookedFor(const LimitQuestionSpec& question, std::string_view market) {
    return !question.hkStandsFor.empty() && market == markets::kHk ? question.hkStandsFor : market;
}

// What a question finds in a table: the row's value, null without one, and the category that was looked for last, empty
// where the code has a row of its own. Market and code in upper case, the market as marketLookedFor() answers it.
template <typename Value>
struct FoundLimit {
    const Value* value;
    std::string_view category;
};

template <const LimitQuestionSpec& Question, typename Value>
FoundLimit<Value> findLimit(const MarketItemTable<Value>& table, const std::string& market, const std::string& code,
                            EBrokerPriceType priceType = {}) {
    if (Question.looksForCode) {
        if (const Value* own = findRow(table, market, code)) return {own, {}};
    }
    const std::string_view category = Question.category(market, code, priceType).word;
    return {findRow(table, market, category), category};
}

// --- fields

// Room for the fields of any table's row.
using LimitFieldTexts = std::array<std::string_view, 14>;

// Hands the field's value to the sink as what its kind says: an int, a double or a std::string_view.
template <typename Sink>
decltype(auto) withFieldValue(LimitField kind, std::string_view field, Sink&& sink) {
    switch (kind) {
        case LimitField::Integer:
            return sink(looseInt(field));
        case LimitField::Decimal:
            return sink(looseDouble(field));
        case LimitField::Text:
            break;
    }
    return sink(field);
}

// Reads the fields of a row, from the first on, into values of the types that its shape has there.
template <const auto& Shape, typename... Values>
void readLimitFields(const LimitFieldTexts& fields, Values&... values) {
    static_assert(sizeof...(Values) == Shape.size(), "a value for each field");
    std::size_t at = 0;
    const auto read = [&](auto& value) {
        const std::string_view field = fields[at++];
        using Value = std::decay_t<decltype(value)>;
        if constexpr (std::is_same_v<Value, int>) {
            value = looseInt(field);
        } else if constexpr (std::is_same_v<Value, double>) {
            value = looseDouble(field);
        } else {
            value = std::string(field);
        }
    };
    (read(values), ...);
}

// --- rows

enum class LimitRowState {
    Counts,
    Repeated,        // its key stands in the section before: the first one's value counts
    WrongFieldCount  // passed over
};

// One row of a table as the walk comes to it. A row of the source has a key, a value and whether its key is repeated.
template <typename Row>
struct LimitTableRow {
    const SettingKey& section;
    const Row& row;
    std::size_t foundFields;
    LimitRowState state;
    const LimitFieldTexts& fields;  // of a row that counts

    bool counts() const { return state == LimitRowState::Counts; }

    // Hands the places that the row is entered at to sink(LimitItem). Of a table's rows for one market and item the
    // last counts, whichever section it is from.
    template <typename Sink>
    void forEachItem(Sink&& sink) const {
        forEachLimitItem(row.key, std::forward<Sink>(sink));
    }
};

// The fields of a value, as many as there is room for; answers how many it has, an empty value one.
std::size_t splitLimitFields(std::string_view value, LimitFieldTexts& fields);

// Hands every row of a table to sink(LimitTableRow), in the order of a load, those that do not count included. The
// source's rows.forEach(section, sink) hands the rows of a section to its sink in file order.
template <typename Rows, typename Sink>
void forEachLimitRow(const LimitTableSpec& table, const Rows& rows, Sink&& sink) {
    LimitFieldTexts fields;
    for (const SettingKey* section : table.sections) {
        rows.forEach(*section, [&](const auto& row) {
            const std::size_t found = splitLimitFields(row.value, fields);
            const LimitRowState state = row.repeated                ? LimitRowState::Repeated
                                        : found != table.fieldCount ? LimitRowState::WrongFieldCount
                                                                    : LimitRowState::Counts;
            sink(LimitTableRow<std::decay_t<decltype(row)>>{*section, row, found, state, fields});
        });
    }
}

}  // namespace ttservice::internal

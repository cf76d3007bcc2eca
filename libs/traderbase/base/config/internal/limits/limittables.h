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

// What the limit tables contain and how questions are answered from them: one description per table, one per question,
// and one walk through the rows. The store walks the texts of the host's settings reader, the tool walks views with
// their places; this header decides for both which row counts.

namespace ttservice::internal {

// --- tables

// The sections whose rows form one table, in load order.
struct LimitSections {
    const SettingKey* const* first;
    std::size_t count;

    constexpr const SettingKey* const* begin() const { return first; }
    constexpr const SettingKey* const* end() const { return first + count; }
};

struct LimitTableSpec {
    LimitSections sections;
    const LimitField* shape;  // shape of a row's value
    std::size_t fieldCount;
    std::string_view words;  // names of a row's fields, for messages

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

// One table for three sections: a row's section does not affect the answers.
inline constexpr LimitTableSpec kOrderLimitTable{kOrderLimitSections, kOrderLimitRow, "quantity,unit"};
inline constexpr LimitTableSpec kBlockTradeTable{kBlockTradeSections, kBlockTradeLimitRow, "quantity,unit,amount"};
inline constexpr LimitTableSpec kStockRateTable{kStockRateSections, kStockRateRow, "six decimals and a whole number"};
inline constexpr LimitTableSpec kShanghaiConnectRateTable{kShanghaiConnectRateSections, kConnectRateRow,
                                                          "fourteen decimals"};
inline constexpr LimitTableSpec kShenzhenConnectRateTable{kShenzhenConnectRateSections, kConnectRateRow,
                                                          "fourteen decimals"};

// In load order.
inline constexpr const LimitTableSpec* kLimitTables[] = {&kOrderLimitTable, &kBlockTradeTable, &kStockRateTable,
                                                         &kShanghaiConnectRateTable, &kShenzhenConnectRateTable};

// The table that contains the section's rows; null if no table does.
constexpr const LimitTableSpec* limitTableOf(std::string_view section) {
    for (const LimitTableSpec* table : kLimitTables) {
        for (const SettingKey* key : table->sections) {
            if (key->section == section) return table;
        }
    }
    return nullptr;
}

// --- questions

// Returns the category word of an instrument. Market and code must be in upper case.
using LimitCategoryRule = LimitCategory (*)(const std::string& market, const std::string& code,
                                            EBrokerPriceType priceType);

// How a table answers a question: by the row of (market, code), otherwise the row of (market, category), otherwise the
// default.
struct LimitQuestionSpec {
    std::string_view operation;
    const LimitTableSpec* table;
    LimitCategoryRule category;
    std::string_view hkStandsFor;  // market under which HK is looked up; empty if HK is a market of its own
    bool looksForCode;             // false: looks up the category only
    bool insertsDefault;           // the default is stored as the category's row until the next load
    std::size_t firstField;        // fields of the row that form the answer
    std::size_t fieldCount;
    std::string_view withoutRow;  // the default for these fields, written as in a row
};

// Adapts a category rule that ignores the price type, or that also ignores the instrument.
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
// Block trades look up the category only, and no default is inserted into their table.
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

// The market under which a market's rows are looked up; both in upper case.
constexpr std::string_view marketLookedFor(const LimitQuestionSpec& question, std::string_view market) {
    return !question.hkStandsFor.empty() && market == markets::kHk ? question.hkStandsFor : market;
}

// The result of a look-up: the row's value, or null, and the category looked up last, which is empty if the code has a
// row of its own. Market and code must be in upper case, the market as returned by marketLookedFor().
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

// Large enough for the fields of any table's row.
using LimitFieldTexts = std::array<std::string_view, 14>;

// Passes the field's value to the sink as the type of its kind: int, double or std::string_view.
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

// Reads consecutive fields of a row, starting at the first, into values of the types given by its shape.
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
    Repeated,        // an earlier row of the section has the same key; that one counts
    WrongFieldCount  // skipped
};

// One row of a table as the walk reaches it. A row of the source has a key, a value and a flag for a repeated key.
template <typename Row>
struct LimitTableRow {
    const SettingKey& section;
    const Row& row;
    std::size_t foundFields;
    LimitRowState state;
    const LimitFieldTexts& fields;  // the fields, if the row counts

    bool counts() const { return state == LimitRowState::Counts; }

    // Passes each table key that the row sets to sink(LimitItem). If several rows set the same market and item, the
    // last one counts, whichever section it is in.
    template <typename Sink>
    void forEachItem(Sink&& sink) const {
        forEachLimitItem(row.key, std::forward<Sink>(sink));
    }
};

// Stores the fields of a value, as many as fit. Returns how many the value has; an empty value has one.
std::size_t splitLimitFields(std::string_view value, LimitFieldTexts& fields);

// Passes every row of a table to sink(LimitTableRow) in load order, including rows that do not count. The source's
// rows.forEach(section, sink) passes a section's rows to its sink in file order.
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

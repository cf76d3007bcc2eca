// Changes of limits: answers for which instruments and categories order limits, block trades and rates differ.
// Doors: tellLimitChanges().
// Owns: nothing; rows are views into the texts, and their values are read where two of them differ.
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp.

#include <algorithm>
#include <array>
#include <utility>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/limits/limitrows.h"
#include "traderbase/base/config/internal/limits/volumelimit.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/differences/changesink.h"
#include "ttconfig/differences/mergedrows.h"
#include "ttconfig/tables/limititems.h"
#include "ttconfig/tables/limitquestions.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using Row = LimitItemRow;

// --- values

// The numbers of a value and its unit word.
struct RowValue {
    std::array<double, 14> numbers{};
    std::size_t count = 0;
    std::string_view unit;
};

template <typename Shape>
RowValue rowValue(std::string_view text, const Shape& shape) {
    RowValue value;
    LimitFields<Shape> fields;
    piecesExactly(text, ',', fields);
    for (std::size_t i = 0; i < shape.size(); ++i) {
        if (shape[i] == LimitField::Text) {
            value.unit = fields[i];
        } else {
            value.numbers[value.count++] =
                shape[i] == LimitField::Integer ? looseInt(fields[i]) : looseDouble(fields[i]);
        }
    }
    return value;
}

bool sameValue(const RowValue& left, const RowValue& right) {
    return left.unit == right.unit &&
           std::equal(left.numbers.begin(), left.numbers.end(), right.numbers.begin(), isSameNumber);
}

RowValue orderLimitValue(std::string_view text) {
    return rowValue(text, kOrderLimitRow);
}

RowValue blockTradeQuantity(std::string_view text) {
    RowValue value = rowValue(text, kBlockTradeLimitRow);
    value.numbers[1] = 0;
    value.count = 1;
    return value;
}

RowValue blockTradeAmount(std::string_view text) {
    const RowValue both = rowValue(text, kBlockTradeLimitRow);
    RowValue value;
    value.numbers[0] = both.numbers[1];
    value.count = 1;
    return value;
}

RowValue stockRateValue(std::string_view text) {
    return rowValue(text, kStockRateRow);
}

RowValue connectRateValue(std::string_view text) {
    return rowValue(text, kConnectRateRow);
}

Answer volumeAnswer(const RowValue& value) {
    return Answer::array({static_cast<int>(value.numbers[0]), std::string(value.unit)});
}

Answer amountAnswer(const RowValue& value) {
    return static_cast<int>(value.numbers[0]);
}

// The numbers of the record; the last of a stock rate is a whole one.
Answer ratesAnswer(const RowValue& value) {
    Answer numbers = Answer::array();
    for (std::size_t i = 0; i < value.count; ++i)
        numbers.push_back(value.numbers[i]);
    if (value.count == kStockRateRow.size()) numbers.back() = static_cast<int>(value.numbers[value.count - 1]);
    return numbers;
}

// --- questions

// What is asked of a table.
struct AskedTable {
    ChangeTopic topic;
    const char* question;
    LimitTopic table;
    RowValue (*value)(std::string_view text);
    Answer (*answer)(const RowValue& value);
    RowValue withoutRow;
};

RowValue volumeWithoutRow() {
    RowValue value;
    value.numbers[0] = kLimitWithoutRow;
    value.count = 1;
    value.unit = kShares;
    return value;
}

RowValue amountWithoutRow() {
    RowValue value = volumeWithoutRow();
    value.unit = {};
    return value;
}

RowValue ratesWithoutRow(std::size_t count) {
    RowValue value;
    value.count = count;
    return value;
}

// One table in both texts.
class LimitChanges {
public:
    LimitChanges(const AskedTable& askedTable, const LimitItemRows& oldRows, const LimitItemRows& newRows,
                 const standin::PlatformData* data, const ChangeSink& sink)
        : topic(askedTable), before(oldRows), after(newRows), platform(data), tell(sink) {}

    void tellAll() {
        mergeRows(before, after, lessLimitItem, [this](const Row& one, const Row* left, const Row* right) {
            if (left != nullptr && right != nullptr && left->entry->value == right->entry->value) return;
            compare(one, left, right);
        });
    }

private:
    // What the categories of one market come to, each value once.
    using CategoryValues = std::vector<RowValue>;

    void compare(const Row& one, const Row* left, const Row* right) {
        const bool isAsked = (left != nullptr && left->item().hasDash) || (right != nullptr && right->item().hasDash);
        const auto [market, item] = tableKey(one.item());
        if (!isAsked || !isReachable(topic.table, market, item)) return;
        const bool isCode = !isCategoryWord(item);
        if (isCode && (left == nullptr || right == nullptr)) return compareCode(market, item, left, right);
        const RowValue old = valueOf(left);
        const RowValue now = valueOf(right);
        if (!sameValue(old, now)) change(market, item, topic.answer(old), topic.answer(now), left, right);
    }

    // Without a row of its own the code goes by its category.
    void compareCode(const std::string& market, const std::string& code, const Row* left, const Row* right) {
        const CategoryValues& others = valuesByCategory(left == nullptr ? before : after, market, code);
        const RowValue own = valueOf(left == nullptr ? right : left);
        if (others.size() == 1 && sameValue(own, others.front())) return;
        const Answer byCategory = others.size() == 1 ? topic.answer(others.front()) : Answer();
        if (left == nullptr) {
            change(market, code, byCategory, topic.answer(own), left, right);
        } else {
            change(market, code, topic.answer(own), byCategory, left, right);
        }
    }

    RowValue valueOf(const Row* row) const {
        return row == nullptr ? topic.withoutRow : topic.value(row->entry->value);
    }

    // What the code comes to by its category, or, where that is not known, by every one that it can have.
    const CategoryValues& valuesByCategory(const LimitItemRows& rows, const std::string& market,
                                           const std::string& code) {
        if (platform != nullptr && knowsInstrument(*platform, market, code)) {
            ownCategories = categoryValues(rows, market, categoryWordsOfCode(topic.table, market, code));
            return ownCategories;
        }
        // Codes come market by market: the categories are looked up once for each.
        if (oldCategories.empty() || market != categoriesOf) {
            categoriesOf = market;
            oldCategories = categoryValues(before, market, categoryWordsOf(topic.table, market));
            newCategories = categoryValues(after, market, categoryWordsOf(topic.table, market));
        }
        return &rows == &before ? oldCategories : newCategories;
    }

    CategoryValues categoryValues(const LimitItemRows& rows, const std::string& market,
                                  const std::vector<std::string_view>& words) const {
        CategoryValues values;
        for (const std::string_view word : words) {
            const RowValue value = valueOf(findLimitItem(rows, market, word));
            const auto same = [&value](const RowValue& known) { return sameValue(known, value); };
            if (std::none_of(values.begin(), values.end(), same)) values.push_back(value);
        }
        return values;
    }

    void change(const std::string& market, const std::string& item, Answer old, Answer now, const Row* left,
                const Row* right) const {
        const auto placeOf = [](const Row* row) { return row == nullptr ? std::nullopt : std::optional(row->place()); };
        tell(changeOf(topic.topic, market + '-' + item, topic.question, {std::move(old), placeOf(left)},
                      {std::move(now), placeOf(right)}));
    }

    const AskedTable& topic;
    const LimitItemRows& before;
    const LimitItemRows& after;
    const standin::PlatformData* platform;
    const ChangeSink& tell;
    std::string categoriesOf;
    CategoryValues oldCategories;
    CategoryValues newCategories;
    CategoryValues ownCategories;
};

// --- tables

// The sections that make one table, and the questions that are answered from it.
void tellTable(const TextPair& texts, const std::vector<const SettingKey*>& sections, std::size_t fields,
               const std::vector<AskedTable>& topics, const ChangeSink& tell) {
    if (std::all_of(sections.begin(), sections.end(),
                    [&texts](const SettingKey* section) { return haveSameEntries(texts, section->section); })) {
        return;
    }
    const LimitItemRows before = limitItems(texts.before, sections, fields);
    const LimitItemRows after = limitItems(texts.after, sections, fields);
    for (const AskedTable& topic : topics)
        LimitChanges(topic, before, after, texts.platform, tell).tellAll();
}

}  // namespace

void tellLimitChanges(const TextPair& texts, const ChangeSink& tell) {
    tellTable(texts, {&keys::orderLimits, &keys::connectShanghaiOrderLimits, &keys::connectShenzhenOrderLimits},
              kOrderLimitRow.size(),
              {{ChangeTopic::OrderLimit, "getOrderLimit", LimitTopic::OrderLimits, orderLimitValue, volumeAnswer,
                volumeWithoutRow()}},
              tell);
    tellTable(texts, {&keys::blockTradeLimits}, kBlockTradeLimitRow.size(),
              {{ChangeTopic::BlockTradeLimit, "getDazongOrderNumLimit", LimitTopic::BlockTrades, blockTradeQuantity,
                volumeAnswer, volumeWithoutRow()},
               {ChangeTopic::BlockTradeLimit, "getDazongOrderTradeAmountLimit", LimitTopic::BlockTradeAmounts,
                blockTradeAmount, amountAnswer, amountWithoutRow()}},
              tell);
    tellTable(texts, {&keys::stockRates}, kStockRateRow.size(),
              {{ChangeTopic::RateLimit, "getRateLimitPtr", LimitTopic::StockRates, stockRateValue, ratesAnswer,
                ratesWithoutRow(kStockRateRow.size())}},
              tell);
    tellTable(texts, {&keys::connectShanghaiRates}, kConnectRateRow.size(),
              {{ChangeTopic::RateLimit, "getHGTExchangeRateLimitPtr", LimitTopic::ShanghaiConnectRates,
                connectRateValue, ratesAnswer, ratesWithoutRow(kConnectRateRow.size())}},
              tell);
    tellTable(texts, {&keys::connectShenzhenRates}, kConnectRateRow.size(),
              {{ChangeTopic::RateLimit, "getSgtExchangeRateLimitPtr", LimitTopic::ShenzhenConnectRates,
                connectRateValue, ratesAnswer, ratesWithoutRow(kConnectRateRow.size())}},
              tell);
}

}  // namespace ttconfig

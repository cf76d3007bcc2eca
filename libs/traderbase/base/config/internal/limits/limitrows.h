#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "traderbase/base/config/internal/limits/marketitem.h"
#include "traderbase/base/config/internal/text/splitting.h"

// The rows of the limit sections. The key names instruments, items separated by ",", each a market, "-" and a code or
// category word; the value gives all of them the same fields, separated by ",". Nothing is trimmed.

namespace ttservice::internal {

// One item of a row's key, as written. It is split at its first "-".
struct LimitItem {
    std::string_view text;
    std::string_view market;
    std::string_view item;
    bool hasDash = false;
};

// Without a "-" market and item are both the whole text. Such a row is kept; a code that equals its market finds it.
LimitItem limitItem(std::string_view text);

// The item's place in a table.
MarketItem tableKey(const LimitItem& item);

// Every item of a key, empty ones included.
template <typename Sink>
void forEachLimitItem(std::string_view key, Sink&& sink) {
    splitKeepEmpty(key, ',', [&sink](std::string_view text) { sink(limitItem(text)); });
}

// How the fields of a value are read: as atoi and atof do, or as they stand.
enum class LimitField { Integer, Decimal, Text };

template <std::size_t Count>
using LimitRowShape = std::array<LimitField, Count>;

inline constexpr LimitRowShape<2> kOrderLimitRow{LimitField::Integer, LimitField::Text};
inline constexpr LimitRowShape<3> kBlockTradeLimitRow{LimitField::Integer, LimitField::Text, LimitField::Integer};
inline constexpr LimitRowShape<7> kStockRateRow{LimitField::Decimal, LimitField::Decimal, LimitField::Decimal,
                                                LimitField::Decimal, LimitField::Decimal, LimitField::Decimal,
                                                LimitField::Integer};
inline constexpr LimitRowShape<14> kConnectRateRow = [] {
    LimitRowShape<14> shape{};
    for (LimitField& field : shape)
        field = LimitField::Decimal;
    return shape;
}();
inline constexpr LimitRowShape<7> kFixedIncomeRow{LimitField::Decimal, LimitField::Integer, LimitField::Integer,
                                                  LimitField::Integer, LimitField::Integer, LimitField::Integer,
                                                  LimitField::Integer};

// The fields of a row of that shape.
template <typename Shape>
using LimitFields = std::array<std::string_view, std::tuple_size_v<Shape>>;

// How many fields a value has; an empty one has one.
std::size_t fieldCount(std::string_view value);

// What there is to say about a row.
enum class LimitRowFinding {
    WrongFieldCount,  // the whole value: the row is passed over
    ItemWithoutDash,  // an item of the key: no question finds it, unless for a code that equals its market
    LooseNumber       // a field that is no number as a whole: its front part counts, or 0 when that is none either
};

struct LimitRowRemark {
    LimitRowFinding finding;
    std::string_view where;  // the piece of the key or value that it is about
};

// Everything there is to say about a key, and about a value of that shape. A value with the wrong number of fields gets
// one remark: its fields are never looked at.
std::vector<LimitRowRemark> examineLimitKey(std::string_view key);
std::vector<LimitRowRemark> examineLimitValue(std::string_view value, const LimitField* shape, std::size_t count);

template <std::size_t Count>
std::vector<LimitRowRemark> examineLimitValue(std::string_view value, const LimitRowShape<Count>& shape) {
    return examineLimitValue(value, shape.data(), shape.size());
}

}  // namespace ttservice::internal

#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "traderbase/base/config/internal/limits/marketitem.h"
#include "traderbase/base/config/internal/text/splitting.h"

// The rows of the limit sections. The key is a list of items separated by ",", each a market, "-" and a code or
// category word. The value gives all of these items the same fields, separated by ",". Nothing is trimmed.

namespace ttservice::internal {

// One item of a row's key, as written, split at its first "-".
struct LimitItem {
    std::string_view text;
    std::string_view market;
    std::string_view item;
    bool hasDash = false;
};

// Without a "-", market and item are both the whole text. Such a row is kept; only a code equal to its market matches
// it.
LimitItem limitItem(std::string_view text);

// The key of the item in a table.
MarketItem tableKey(const LimitItem& item);

// Passes on every item of a key, including empty ones.
template <typename Sink>
void forEachLimitItem(std::string_view key, Sink&& sink) {
    splitKeepEmpty(key, ',', [&sink](std::string_view text) { sink(limitItem(text)); });
}

// How the fields of a value are read: like atoi, like atof, or as written.
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

// The fields of a row with this shape.
template <typename Shape>
using LimitFields = std::array<std::string_view, std::tuple_size_v<Shape>>;

// The number of fields in a value; an empty value has one.
std::size_t fieldCount(std::string_view value);

// What can be wrong with a row.
enum class LimitRowFinding {
    WrongFieldCount,  // the whole value; the row is skipped
    ItemWithoutDash,  // an item of the key; only a code equal to its market matches it
    LooseNumber       // a field that is not entirely a number; its leading number counts, or 0 if there is none
};

struct LimitRowRemark {
    LimitRowFinding finding;
    std::string_view where;  // the part of the key or value concerned
};

// All remarks about a key, or about a value of the given shape. A value with the wrong number of fields gets one remark
// only; its fields are not examined.
std::vector<LimitRowRemark> examineLimitKey(std::string_view key);
std::vector<LimitRowRemark> examineLimitValue(std::string_view value, const LimitField* shape, std::size_t count);

template <std::size_t Count>
std::vector<LimitRowRemark> examineLimitValue(std::string_view value, const LimitRowShape<Count>& shape) {
    return examineLimitValue(value, shape.data(), shape.size());
}

}  // namespace ttservice::internal

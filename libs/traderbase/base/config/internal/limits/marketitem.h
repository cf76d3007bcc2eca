#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

// Tables keyed by market and item, where an item is an instrument code or a category word; both in upper case. They are
// searched with views, so a look-up allocates nothing.

namespace ttservice::internal {

using MarketItem = std::pair<std::string, std::string>;
using MarketItemView = std::pair<std::string_view, std::string_view>;

// Market first, then item.
struct MarketItemLess {
    using is_transparent = void;

    bool operator()(const MarketItemView& left, const MarketItemView& right) const {
        const int atMarket = left.first.compare(right.first);
        return atMarket != 0 ? atMarket < 0 : left.second < right.second;
    }
};

template <typename Value>
using MarketItemTable = std::map<MarketItem, Value, MarketItemLess>;

// The row of (market, item), or null.
template <typename Value>
const Value* findRow(const MarketItemTable<Value>& table, std::string_view market, std::string_view item) {
    const auto found = table.find(MarketItemView(market, item));
    return found == table.end() ? nullptr : &found->second;
}

}  // namespace ttservice::internal

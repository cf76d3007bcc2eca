#pragma once

#include <string>
#include <string_view>

#include <ttplatform/enums.h>

// Which category word an instrument goes by in each limit table, for when the table has no row for its code. Markets
// and codes are given in upper case. Nothing is allocated.

namespace ttservice::internal {

struct LimitCategory {
    std::string_view word;  // one of internal::words
    std::string_view rule;  // the rule that decided, in words
};

LimitCategory orderLimitCategory(const std::string& market, const std::string& code, EBrokerPriceType priceType);

// Block trades know fewer categories for the amount than for the quantity.
LimitCategory blockTradeQuantityCategory(const std::string& market, const std::string& code);
LimitCategory blockTradeAmountCategory(const std::string& market, const std::string& code);

LimitCategory stockRateCategory(const std::string& market, const std::string& code);
LimitCategory shanghaiConnectRateCategory(const std::string& market, const std::string& code);
LimitCategory shenzhenConnectRateCategory();

}  // namespace ttservice::internal

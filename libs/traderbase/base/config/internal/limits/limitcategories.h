#pragma once

#include <string>
#include <string_view>

#include <ttplatform/enums.h>

// The category word that each limit table uses for an instrument when it has no row for the code. Markets and codes
// must be in upper case. Nothing is allocated.

namespace ttservice::internal {

struct LimitCategory {
    std::string_view word;  // a constant of internal::words
    std::string_view rule;  // the rule that decided, in words
};

LimitCategory orderLimitCategory(const std::string& market, const std::string& code, EBrokerPriceType priceType);

// Block trades distinguish fewer categories for the amount than for the quantity.
LimitCategory blockTradeQuantityCategory(const std::string& market, const std::string& code);
LimitCategory blockTradeAmountCategory(const std::string& market, const std::string& code);

LimitCategory stockRateCategory(const std::string& market, const std::string& code);
LimitCategory shanghaiConnectRateCategory(const std::string& market, const std::string& code);
LimitCategory shenzhenConnectRateCategory();

}  // namespace ttservice::internal

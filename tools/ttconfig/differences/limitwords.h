#pragma once

#include <string_view>
#include <vector>

namespace ttconfig {

// The category words by which some instrument of a market may be looked up in a limit table, whatever its types and
// however its order is priced: the words that limitcategories.h can come to for the market.

// The words of a market, which is given in upper case.
using LimitWords = const std::vector<std::string_view>& (*)(std::string_view market);

const std::vector<std::string_view>& orderLimitWords(std::string_view market);
const std::vector<std::string_view>& blockTradeQuantityWords(std::string_view market);
const std::vector<std::string_view>& blockTradeAmountWords(std::string_view market);
const std::vector<std::string_view>& stockRateWords(std::string_view market);
const std::vector<std::string_view>& shanghaiConnectRateWords(std::string_view market);
const std::vector<std::string_view>& shenzhenConnectRateWords(std::string_view market);

// Whether the item, in upper case, is a word of the table on some market. It stands for its class then and is no code.
bool isWordOf(LimitWords words, std::string_view item);

}  // namespace ttconfig

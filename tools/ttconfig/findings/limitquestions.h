#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ttconfig {

// Which rows of a limit table the library's questions look for. Said here in tables and held against the category rules
// themselves by a test.

enum class LimitTopic { OrderLimits, BlockTrades, StockRates, ShanghaiConnectRates, ShenzhenConnectRates };

// Every category word of any table.
const std::vector<std::string_view>& categoryWords();
bool isCategoryWord(std::string_view item);

// Whether a question about some instrument of the market ends at that category word. Market and word in upper case.
bool asksForCategory(LimitTopic topic, std::string_view market, std::string_view word);

// Whether the market, in upper case, is one of the other connect than the table's.
bool isOfOtherConnect(LimitTopic topic, std::string_view market);

// Why no question reaches a row for market and item, both in upper case, in words; empty when one does.
std::string whyUnreachable(LimitTopic topic, std::string_view market, std::string_view item);

// Whether codes of the market always hold a digit, so that a word without one is no code.
bool codesHaveDigits(std::string_view market);

}  // namespace ttconfig

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

// The category that a word which is none was meant to be, such as LOAN for BOND or STOCK for STOK; empty when none is
// near. The word in upper case.
std::string_view categoryMeant(std::string_view word);

// Whether a question about an instrument of the market comes to the category only where the platform types futures
// as shares, bonds or funds. Market and word in upper case.
bool isOddForFutures(LimitTopic topic, std::string_view market, std::string_view word);

// Whether the item, in upper case, is neither a category nor a code: codes of the market always hold a digit, or the
// item is a category with a slip in it.
bool isOddWord(std::string_view market, std::string_view item);

}  // namespace ttconfig

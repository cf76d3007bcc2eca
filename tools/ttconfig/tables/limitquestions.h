#pragma once

#include <standin/platformdata.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/limits/limittables.h"
#include "ttconfig/text/answer.h"

namespace ttconfig {

using ttservice::internal::LimitQuestionSpec;

// Which rows of a limit table the library's questions can reach. Tables here list the category words; a test compares
// them with the category rules themselves. Markets, codes and category words must be in upper case.

// A question about one instrument, and the market, code and category under which its table is searched.
struct AskedLimit {
    // Takes market and code in any letter case.
    AskedLimit(const LimitQuestionSpec& asked, const std::string& askedMarket, const std::string& askedCode,
               int priceType);

    std::string itemOf(std::string_view item) const { return market + '-' + std::string(item); }

    const LimitQuestionSpec& question;
    const std::string market;  // in upper case; HK replaced by the market it stands for
    const std::string code;
    const ttservice::internal::LimitCategory category;
};

// The answer that a row's value gives, or the default if no row fits. For a rate record, the list of its numbers.
Answer limitAnswer(const LimitQuestionSpec& question, std::optional<std::string_view> rowValue);
// Whether the answer is a record.
inline bool isRecord(const LimitQuestionSpec& question) {
    return question.fieldCount > 2;
}

// The category words of all tables. An item that is one of these words is never a code.
const std::vector<std::string_view>& categoryWords();
bool isCategoryWord(std::string_view item);

// Every category word under which an instrument of the market can be looked up, for any instrument type and any price
// type.
const std::vector<std::string_view>& categoryWordsOf(const LimitQuestionSpec& question, std::string_view market);

// Whether the question can reach a row for market and item: the item is the category word of some instrument of the
// market, or it may be a code.
bool isReachable(const LimitQuestionSpec& question, std::string_view market, std::string_view item);

// The category words under which a code is looked up, given its types in the installed platform data: one word, or
// several if the price type matters.
std::vector<std::string_view> categoryWordsOfCode(const LimitQuestionSpec& question, const std::string& market,
                                                  const std::string& code);

// Whether the platform data contain a record or a type for the instrument.
bool knowsInstrument(const standin::PlatformData& platform, const std::string& market, const std::string& code);

// Whether the question is about one connect's rates and the market belongs to the other connect.
bool isOfOtherConnect(const LimitQuestionSpec& question, std::string_view market);

// Whether the item is neither a code nor a category word: every code of the market contains a digit, and the item does
// not.
bool isNeitherCodeNorCategory(std::string_view market, std::string_view item);

// Says why no question reaches a row for market and item; empty if one does. Stricter than isReachable() in one case:
// an option has the category of a share or fund only if the platform data give it that type, and nobody writes a row
// for that, so such a row counts as unreachable.
std::string whyUnreachable(const LimitQuestionSpec& question, std::string_view market, std::string_view item);

// The category that an unknown word probably means, such as LOAN for BOND or STOCK for STOK; empty if no category is
// close.
std::string_view categoryMeant(std::string_view word);

// Whether an instrument of the market has this category only if the platform data type a future as a share, bond or
// fund.
bool isOddForFutures(const LimitQuestionSpec& question, std::string_view market, std::string_view word);

// Whether the item names a product of a futures exchange instead of a category or a code. Codes there name contracts.
bool isFuturesProduct(std::string_view market, std::string_view item);

// Whether the item is probably a mistyped category: it is neither code nor category, or, on a futures exchange, where a
// code need not contain a digit, it is one typo away from a category.
bool isOddWord(std::string_view market, std::string_view item);

}  // namespace ttconfig

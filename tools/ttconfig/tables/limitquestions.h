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

// Which rows of a limit table the library's questions look for. Said here in tables and held against the category rules
// themselves by tests. Markets, codes and category words are given in upper case.

// A question about one instrument, with what its table is searched for.
struct AskedLimit {
    // Market and code as they were passed.
    AskedLimit(const LimitQuestionSpec& asked, const std::string& askedMarket, const std::string& askedCode,
               int priceType);

    std::string itemOf(std::string_view item) const { return market + '-' + std::string(item); }

    const LimitQuestionSpec& question;
    const std::string market;  // in upper case, and HK as what it stands for
    const std::string code;
    const ttservice::internal::LimitCategory category;
};

// The answer that the value of a row gives; without one, where no row fits. Of a rate record its numbers.
Answer limitAnswer(const LimitQuestionSpec& question, std::optional<std::string_view> rowValue);
// Whether it is answered as a record.
inline bool isRecord(const LimitQuestionSpec& question) {
    return question.fieldCount > 2;
}

// Every category word of any table. Such a word stands for its class and is no code.
const std::vector<std::string_view>& categoryWords();
bool isCategoryWord(std::string_view item);

// The words by which some instrument of the market may be looked up, whatever its types and however its order is
// priced.
const std::vector<std::string_view>& categoryWordsOf(const LimitQuestionSpec& question, std::string_view market);

// Whether a question ends at a row for market and item: at the category word of some instrument, or at a code.
bool isReachable(const LimitQuestionSpec& question, std::string_view market, std::string_view item);

// The words by which one code is looked up, by the types that the installed platform data give it: one, or one for each
// kind of price.
std::vector<std::string_view> categoryWordsOfCode(const LimitQuestionSpec& question, const std::string& market,
                                                  const std::string& code);

// Whether the platform data have a record or a type of the instrument.
bool knowsInstrument(const standin::PlatformData& platform, const std::string& market, const std::string& code);

// Whether the market is one of the other connect than the table's.
bool isOfOtherConnect(const LimitQuestionSpec& question, std::string_view market);

// Whether the item is a word where codes always hold a digit, and no category word either.
bool isNeitherCodeNorCategory(std::string_view market, std::string_view item);

// Why no question reaches a row for market and item, in words; empty when one does. Stricter than isReachable() in one
// thing: an option that platform data give the type of a share or of a fund goes by that, which nobody writes a row
// for.
std::string whyUnreachable(const LimitQuestionSpec& question, std::string_view market, std::string_view item);

// The category that a word which is none was meant to be, such as LOAN for BOND or STOCK for STOK; empty when none is
// near.
std::string_view categoryMeant(std::string_view word);

// Whether a question about an instrument of the market comes to the category only where the platform types futures
// as shares, bonds or funds.
bool isOddForFutures(const LimitQuestionSpec& question, std::string_view market, std::string_view word);

// Whether the item, no category, is a product of a futures exchange, whose codes are those of contracts.
bool isFuturesProduct(std::string_view market, std::string_view item);

// Whether the item is most likely meant for a category: it is neither code nor category, or, where codes need hold no
// digit, a category with a slip in it.
bool isOddWord(std::string_view market, std::string_view item);

}  // namespace ttconfig

// Limit questions: says which rows of a limit table each question can reach.
// Owns: the category words of each question.
// Covered by tests/tools/ttconfig/tables/limitquestions_test.cpp.

#include "ttconfig/tables/limitquestions.h"

#include <ttplatform/text.h>

#include <algorithm>
#include <utility>

#include "traderbase/base/config/internal/words/categorywords.h"
#include "traderbase/base/config/internal/words/markets.h"
#include "ttconfig/text/nearestname.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using Words = std::vector<std::string_view>;

// --- the words of each table

// Possible on every market: the rules check for new shares and technology shares before they look at the market.
const Words kAnywhere = {words::kIpo, words::kTechStockLimit, words::kTechStockMarket, words::kTechStockClose,
                         words::kStock};

Words orderWordsWith(std::initializer_list<std::string_view> last) {
    Words all = kAnywhere;
    all.insert(all.end(), {words::kMoneyFund, words::kLoan, words::kPif, words::kFund, words::kEtf, words::kRepurchase,
                           words::kRepurchaseImpawn, words::kRepurchaseBuyOut});
    all.insert(all.end(), last);
    return all;
}

const Words& orderWords(std::string_view market) {
    static const Words kOptions = orderWordsWith({words::kMarket, words::kLimit});
    static const Words kOthers = orderWordsWith({words::kDef});
    if (isShanghaiConnect(market) || isShenzhenConnect(market)) return kAnywhere;
    return isOptionExchange(market) ? kOptions : kOthers;
}

// The words of the other questions. Those for block-trade quantities include those for block-trade amounts.
const Words kBlockTradeQuantityWords = {words::kStock, words::kDirectionalConvertibleBond, words::kPif, words::kLoan,
                                        words::kFund};
const Words kBlockTradeAmountWords = {words::kStock, words::kLoan, words::kFund};
const Words kStockRateWords = {words::kLondonCdr, words::kInnovation, words::kCdr, words::kStock,      words::kLoan,
                               words::kPif,       words::kFund,       words::kEtf, words::kRepurchase, words::kDef};
const Words kConnectRateWords = {words::kStock};
const Words kOtherShanghaiConnectRateWords = {words::kLoan, words::kDef};

bool holds(const Words& list, std::string_view word) {
    return std::find(list.begin(), list.end(), word) != list.end();
}

// --- markets

// The exchange rate limits of a connect look up HK as the connect's own market, so no question reaches an HK row.
bool isAskedUnderAnotherName(const LimitQuestionSpec& question, std::string_view market) {
    return marketLookedFor(question, market) != market;
}

bool isOrderLimit(const LimitQuestionSpec& question) {
    return &question == &kOrderLimitQuestion;
}

// Whether every code of the market contains a digit.
bool codesHaveDigits(std::string_view market) {
    return isStockExchange(market) || isOptionExchange(market) || isShanghaiConnect(market) ||
           isShenzhenConnect(market) || market == markets::kNeeq;
}

bool hasDigit(std::string_view text) {
    return text.find_first_of("0123456789") != std::string_view::npos;
}

bool hasFutures(std::string_view market) {
    return isFuturesExchange(market) || isOneOf(market, markets::kIf, markets::kCffex, markets::kIne);
}

// The category of an option depends on the price type alone, unless the platform gives the option another type.
bool isUsual(const LimitQuestionSpec& question, std::string_view market, std::string_view word) {
    return !isOrderLimit(question) || !isOptionExchange(market) || isOneOf(word, words::kMarket, words::kLimit);
}

// One price type of each kind that the rules for order limits distinguish.
constexpr int kKindsOfPrice[] = {0, 50, 84, 117};

}  // namespace

AskedLimit::AskedLimit(const LimitQuestionSpec& asked, const std::string& askedMarket, const std::string& askedCode,
                       int priceType)
    : question(asked),
      market(marketLookedFor(asked, utils::toUpper(askedMarket))),
      code(utils::toUpper(askedCode)),
      category(asked.category(market, code, static_cast<EBrokerPriceType>(priceType))) {}

Answer limitAnswer(const LimitQuestionSpec& question, std::optional<std::string_view> rowValue) {
    LimitFieldTexts fields;
    splitLimitFields(rowValue.value_or(question.withoutRow), fields);
    const std::string_view* field = fields.data() + (rowValue ? question.firstField : 0);
    const LimitField* kind = question.table->shape + question.firstField;
    const auto answer = [](auto value) {
        if constexpr (std::is_same_v<decltype(value), std::string_view>) {
            return Answer(std::string(value));
        } else {
            return Answer(value);
        }
    };
    if (question.fieldCount == 1) return withFieldValue(*kind, *field, answer);
    Answer all = Answer::array();
    for (std::size_t i = 0; i < question.fieldCount; ++i)
        all.push_back(withFieldValue(kind[i], field[i], answer));
    return all;
}

const std::vector<std::string_view>& categoryWords() {
    static const Words kWords = [] {
        Words all;
        for (const Words* list :
             {&orderWords({}), &orderWords(markets::kSho), &kBlockTradeQuantityWords, &kStockRateWords}) {
            for (const std::string_view word : *list) {
                if (!holds(all, word)) all.push_back(word);
            }
        }
        return all;
    }();
    return kWords;
}

bool isCategoryWord(std::string_view item) {
    return holds(categoryWords(), item);
}

const std::vector<std::string_view>& categoryWordsOf(const LimitQuestionSpec& question, std::string_view market) {
    if (&question == &kBlockTradeQuantityQuestion) return kBlockTradeQuantityWords;
    if (&question == &kBlockTradeAmountQuestion) return kBlockTradeAmountWords;
    if (&question == &kStockRateQuestion) return kStockRateWords;
    if (&question == &kShenzhenConnectRateQuestion) return kConnectRateWords;
    if (&question == &kShanghaiConnectRateQuestion) {
        return isShanghaiConnect(market) ? kConnectRateWords : kOtherShanghaiConnectRateWords;
    }
    return orderWords(market);
}

bool isReachable(const LimitQuestionSpec& question, std::string_view market, std::string_view item) {
    if (market.empty() || item.empty() || isAskedUnderAnotherName(question, market)) return false;
    if (isCategoryWord(item)) return holds(categoryWordsOf(question, market), item);
    return question.looksForCode && !isNeitherCodeNorCategory(market, item);
}

std::vector<std::string_view> categoryWordsOfCode(const LimitQuestionSpec& question, const std::string& market,
                                                  const std::string& code) {
    Words found;
    for (const int price : kKindsOfPrice) {
        const auto word = question.category(market, code, static_cast<EBrokerPriceType>(price)).word;
        if (!holds(found, word)) found.push_back(word);
    }
    return found;
}

bool knowsInstrument(const standin::PlatformData& platform, const std::string& market, const std::string& code) {
    constexpr int kStockTypes[] = {100003, 100024, 100016, 100103, 100004, 100013, 126, 100017, 100021, 124, 100104};
    constexpr int kBaseTypes[] = {1062, 1117, 1172, 1154, 1124, 1136};
    return platform.instrument(market, code) != nullptr ||
           std::any_of(std::begin(kStockTypes), std::end(kStockTypes),
                       [&](int type) { return platform.isStockType(type, market, code); }) ||
           std::any_of(std::begin(kBaseTypes), std::end(kBaseTypes),
                       [&](int type) { return platform.isBaseType(type, market, code); });
}

bool isOfOtherConnect(const LimitQuestionSpec& question, std::string_view market) {
    return (&question == &kShanghaiConnectRateQuestion && isShenzhenConnect(market)) ||
           (&question == &kShenzhenConnectRateQuestion && isShanghaiConnect(market));
}

bool isNeitherCodeNorCategory(std::string_view market, std::string_view item) {
    return !item.empty() && codesHaveDigits(market) && !hasDigit(item) && !isCategoryWord(item);
}

std::string whyUnreachable(const LimitQuestionSpec& question, std::string_view market, std::string_view item) {
    if (isAskedUnderAnotherName(question, market)) {
        const std::string own(question.hkStandsFor);
        return "the market HK is looked up as " + own + "; write " + own + " for HK";
    }
    if (!isCategoryWord(item)) {
        if (question.looksForCode) return {};
        return "block trades go by category alone; write the row of the category, or take it out";
    }
    if (holds(categoryWordsOf(question, market), item) && isUsual(question, market, item)) return {};
    if (isOrderLimit(question) && isOptionExchange(market))
        return "options go by MARKET or LIMIT, as long as the platform gives them no other type; write one";
    if (isOrderLimit(question) && isOneOf(item, words::kMarket, words::kLimit)) {
        return "only the option markets SHO and SZO go by MARKET and LIMIT";
    }
    if (!question.looksForCode) {
        return "block trades know STOCK, LOAN, FUND, PIF and DIRECTIONALCONVERTIBALEBOND and no other category";
    }
    return "instruments of this market never go by that category here; take it out";
}

std::string_view categoryMeant(std::string_view word) {
    // Other names that people use for the categories.
    constexpr std::pair<std::string_view, std::string_view> kOtherNames[] = {
        {"BOND", words::kLoan},       {"TECHSTOCK", words::kTechStockLimit},
        {"BONDS", words::kLoan},      {"DEBT", words::kLoan},
        {"REPO", words::kRepurchase}, {"DEFAULT", words::kDef},
        {"OTHER", words::kDef},       {"OTHERS", words::kDef},
        {"SHARE", words::kStock},     {"SHARES", words::kStock},
        {"EQUITY", words::kStock},    {"MONEY", words::kMoneyFund},
        {"MMF", words::kMoneyFund},   {"CONVERTIBLEBOND", words::kLoan}};
    for (const auto& [name, meant] : kOtherNames) {
        if (name == word) return meant;
    }
    return nearestName(word, categoryWords());
}

bool isOddForFutures(const LimitQuestionSpec& question, std::string_view market, std::string_view word) {
    const bool goesByType = isOrderLimit(question) || &question == &kStockRateQuestion;
    return goesByType && hasFutures(market) && word != words::kDef && isCategoryWord(word);
}

bool isFuturesProduct(std::string_view market, std::string_view item) {
    return hasFutures(market) && !item.empty() && !hasDigit(item) && !isCategoryWord(item);
}

bool isOddWord(std::string_view market, std::string_view item) {
    if (isNeitherCodeNorCategory(market, item)) return true;
    // A word of four or more letters that is one typo away from a category is unlikely to be a futures product.
    return isFuturesProduct(market, item) && item.size() > 3 && !nearestName(item, categoryWords(), 1).empty();
}

}  // namespace ttconfig

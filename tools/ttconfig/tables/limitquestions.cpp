// Limit questions: answers which rows of a limit table any question looks for.
// Doors: those of the header.
// Owns: the category words of each table.
// Covered by tests/tools/ttconfig/limitquestions_test.cpp and differences/differencesoracle_test.cpp.

#include "ttconfig/tables/limitquestions.h"

#include <algorithm>
#include <utility>

#include "traderbase/base/config/internal/limits/limitcategories.h"
#include "traderbase/base/config/internal/words/categorywords.h"
#include "traderbase/base/config/internal/words/markets.h"
#include "ttconfig/text/nearestname.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using Words = std::vector<std::string_view>;

// --- the words of each table

// New shares and technology shares come before the market is looked at.
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

const Words& blockTradeWords() {
    static const Words kWords = {words::kStock, words::kDirectionalConvertibleBond, words::kPif, words::kLoan,
                                 words::kFund};
    return kWords;
}

const Words& blockTradeAmountWords() {
    static const Words kWords = {words::kStock, words::kLoan, words::kFund};
    return kWords;
}

const Words& stockRateWords() {
    static const Words kWords = {words::kLondonCdr, words::kInnovation, words::kCdr, words::kStock,      words::kLoan,
                                 words::kPif,       words::kFund,       words::kEtf, words::kRepurchase, words::kDef};
    return kWords;
}

const Words& shanghaiConnectRateWords(std::string_view market) {
    static const Words kConnect = {words::kStock};
    static const Words kOthers = {words::kLoan, words::kDef};
    return isShanghaiConnect(market) ? kConnect : kOthers;
}

const Words& shenzhenConnectRateWords() {
    static const Words kWords = {words::kStock};
    return kWords;
}

bool holds(const Words& list, std::string_view word) {
    return std::find(list.begin(), list.end(), word) != list.end();
}

// --- markets

bool isConnectTable(LimitTopic topic) {
    return topic == LimitTopic::ShanghaiConnectRates || topic == LimitTopic::ShenzhenConnectRates;
}

// Whoever asks the connects for HK is answered from HGT and from SGT.
bool isAskedUnderAnotherName(LimitTopic topic, std::string_view market) {
    return isConnectTable(topic) && market == markets::kHk;
}

bool isBlockTrade(LimitTopic topic) {
    return topic == LimitTopic::BlockTrades || topic == LimitTopic::BlockTradeAmounts;
}

// Whether codes of the market always hold a digit.
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

// Options are told apart by the price type and by nothing else, as long as the platform gives them no other type.
bool isUsual(LimitTopic topic, std::string_view market, std::string_view word) {
    return topic != LimitTopic::OrderLimits || !isOptionExchange(market) ||
           isOneOf(word, words::kMarket, words::kLimit);
}

// One of each kind of price that the rules for orders tell apart.
constexpr int kKindsOfPrice[] = {0, 50, 84, 117};

}  // namespace

const std::vector<std::string_view>& categoryWords() {
    static const Words kWords = [] {
        Words all;
        for (const Words* list : {&orderWords({}), &orderWords(markets::kSho), &blockTradeWords(), &stockRateWords()}) {
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

const std::vector<std::string_view>& categoryWordsOf(LimitTopic topic, std::string_view market) {
    switch (topic) {
        case LimitTopic::OrderLimits:
            return orderWords(market);
        case LimitTopic::BlockTrades:
            return blockTradeWords();
        case LimitTopic::BlockTradeAmounts:
            return blockTradeAmountWords();
        case LimitTopic::StockRates:
            return stockRateWords();
        case LimitTopic::ShanghaiConnectRates:
            return shanghaiConnectRateWords(market);
        case LimitTopic::ShenzhenConnectRates:
            break;
    }
    return shenzhenConnectRateWords();
}

bool isReachable(LimitTopic topic, std::string_view market, std::string_view item) {
    if (market.empty() || item.empty() || isAskedUnderAnotherName(topic, market)) return false;
    if (isCategoryWord(item)) return holds(categoryWordsOf(topic, market), item);
    return !isBlockTrade(topic) && !isNeitherCodeNorCategory(market, item);
}

std::vector<std::string_view> categoryWordsOfCode(LimitTopic topic, const std::string& market,
                                                  const std::string& code) {
    switch (topic) {
        case LimitTopic::OrderLimits: {
            Words found;
            for (const int price : kKindsOfPrice) {
                const auto word = orderLimitCategory(market, code, static_cast<EBrokerPriceType>(price)).word;
                if (!holds(found, word)) found.push_back(word);
            }
            return found;
        }
        case LimitTopic::BlockTrades:
            return {blockTradeQuantityCategory(market, code).word};
        case LimitTopic::BlockTradeAmounts:
            return {blockTradeAmountCategory(market, code).word};
        case LimitTopic::StockRates:
            return {stockRateCategory(market, code).word};
        case LimitTopic::ShanghaiConnectRates:
            return {shanghaiConnectRateCategory(market, code).word};
        case LimitTopic::ShenzhenConnectRates:
            break;
    }
    return {shenzhenConnectRateCategory().word};
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

bool isOfOtherConnect(LimitTopic topic, std::string_view market) {
    return (topic == LimitTopic::ShanghaiConnectRates && isShenzhenConnect(market)) ||
           (topic == LimitTopic::ShenzhenConnectRates && isShanghaiConnect(market));
}

bool isNeitherCodeNorCategory(std::string_view market, std::string_view item) {
    return !item.empty() && codesHaveDigits(market) && !hasDigit(item) && !isCategoryWord(item);
}

std::string whyUnreachable(LimitTopic topic, std::string_view market, std::string_view item) {
    if (isAskedUnderAnotherName(topic, market)) {
        return topic == LimitTopic::ShanghaiConnectRates ? "the market HK is looked up as HGT; write HGT for HK"
                                                         : "the market HK is looked up as SGT; write SGT for HK";
    }
    if (!isCategoryWord(item)) {
        if (!isBlockTrade(topic)) return {};
        return "block trades go by category alone; write the row of the category, or take it out";
    }
    if (holds(categoryWordsOf(topic, market), item) && isUsual(topic, market, item)) return {};
    if (topic == LimitTopic::OrderLimits && isOptionExchange(market))
        return "options go by MARKET or LIMIT, as long as the platform gives them no other type; write one";
    if (topic == LimitTopic::OrderLimits && isOneOf(item, words::kMarket, words::kLimit)) {
        return "only the option markets SHO and SZO go by MARKET and LIMIT";
    }
    if (isBlockTrade(topic)) {
        return "block trades know STOCK, LOAN, FUND, PIF and DIRECTIONALCONVERTIBALEBOND and no other category";
    }
    return "instruments of this market never go by that category here; take it out";
}

std::string_view categoryMeant(std::string_view word) {
    // What people call them elsewhere.
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

bool isOddForFutures(LimitTopic topic, std::string_view market, std::string_view word) {
    const bool goesByType = topic == LimitTopic::OrderLimits || topic == LimitTopic::StockRates;
    return goesByType && hasFutures(market) && word != words::kDef && isCategoryWord(word);
}

bool isFuturesProduct(std::string_view market, std::string_view item) {
    return hasFutures(market) && !item.empty() && !hasDigit(item) && !isCategoryWord(item);
}

bool isOddWord(std::string_view market, std::string_view item) {
    if (isNeitherCodeNorCategory(market, item)) return true;
    // A word of four letters that is one slip away from a category is no future by accident.
    return isFuturesProduct(market, item) && item.size() > 3 && !nearestName(item, categoryWords(), 1).empty();
}

}  // namespace ttconfig

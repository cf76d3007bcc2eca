// Limit questions: answers which rows of a limit table any question looks for.
// Doors: those of the header.
// Owns: the category words of each table.
// Covered by tests/tools/ttconfig/findings/findingparts_test.cpp.

#include "ttconfig/findings/limitquestions.h"

#include <algorithm>
#include <utility>

#include "traderbase/base/config/internal/categorywords.h"
#include "traderbase/base/config/internal/markets.h"
#include "ttconfig/text/nearestname.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using Words = std::vector<std::string_view>;

const Words& orderWords() {
    static const Words kWords = {words::kStock,
                                 words::kLoan,
                                 words::kFund,
                                 words::kMoneyFund,
                                 words::kEtf,
                                 words::kIpo,
                                 words::kDef,
                                 words::kPif,
                                 words::kTechStockLimit,
                                 words::kTechStockMarket,
                                 words::kRepurchase,
                                 words::kMarket,
                                 words::kLimit,
                                 words::kTechStockClose,
                                 words::kRepurchaseImpawn,
                                 words::kRepurchaseBuyOut};
    return kWords;
}

const Words& blockWords() {
    static const Words kWords = {words::kStock, words::kLoan, words::kFund, words::kPif,
                                 words::kDirectionalConvertibleBond};
    return kWords;
}

const Words& rateWords() {
    static const Words kWords = {words::kStock,      words::kLoan, words::kFund,      words::kEtf,        words::kPif,
                                 words::kRepurchase, words::kCdr,  words::kLondonCdr, words::kInnovation, words::kDef};
    return kWords;
}

bool holds(const Words& list, std::string_view word) {
    return std::find(list.begin(), list.end(), word) != list.end();
}

bool hasDigit(std::string_view text) {
    return text.find_first_of("0123456789") != std::string_view::npos;
}

bool hasFutures(std::string_view market) {
    return isFuturesExchange(market) || isOneOf(market, markets::kIf, markets::kCffex, markets::kIne);
}

bool asksForOrderCategory(std::string_view market, std::string_view word) {
    // Options are told apart by the price type and by nothing else, as long as the platform gives them no other type.
    const bool isOptionWord = word == words::kMarket || word == words::kLimit;
    if (isOptionExchange(market) || isOptionWord) return isOptionExchange(market) && isOptionWord;
    if (isShanghaiConnect(market) || isShenzhenConnect(market)) {
        return isOneOf(word, words::kStock, words::kIpo, words::kTechStockLimit, words::kTechStockMarket,
                       words::kTechStockClose);
    }
    return holds(orderWords(), word);
}

}  // namespace

const std::vector<std::string_view>& categoryWords() {
    static const Words kWords = [] {
        Words all = orderWords();
        for (const Words* list : {&blockWords(), &rateWords()}) {
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

bool asksForCategory(LimitTopic topic, std::string_view market, std::string_view word) {
    switch (topic) {
        case LimitTopic::OrderLimits:
            return asksForOrderCategory(market, word);
        case LimitTopic::BlockTrades:
            return holds(blockWords(), word);
        case LimitTopic::StockRates:
            return holds(rateWords(), word);
        case LimitTopic::ShanghaiConnectRates:
            // HK is looked up as HGT.
            if (market == markets::kHk) return false;
            return isShanghaiConnect(market) ? word == words::kStock : isOneOf(word, words::kLoan, words::kDef);
        case LimitTopic::ShenzhenConnectRates:
            return market != markets::kHk && word == words::kStock;
    }
    return true;
}

bool isOfOtherConnect(LimitTopic topic, std::string_view market) {
    return (topic == LimitTopic::ShanghaiConnectRates && isShenzhenConnect(market)) ||
           (topic == LimitTopic::ShenzhenConnectRates && isShanghaiConnect(market));
}

std::string whyUnreachable(LimitTopic topic, std::string_view market, std::string_view item) {
    const bool isConnect = topic == LimitTopic::ShanghaiConnectRates || topic == LimitTopic::ShenzhenConnectRates;
    if (isConnect && market == markets::kHk) {
        return topic == LimitTopic::ShanghaiConnectRates ? "the market HK is looked up as HGT; write HGT for HK"
                                                         : "the market HK is looked up as SGT; write SGT for HK";
    }
    if (!isCategoryWord(item)) {
        if (topic != LimitTopic::BlockTrades) return {};
        return "block trades go by category alone; write the row of the category, or take it out";
    }
    if (asksForCategory(topic, market, item)) return {};
    if (topic == LimitTopic::OrderLimits && isOptionExchange(market)) return "options go by MARKET or LIMIT; write one";
    if (topic == LimitTopic::OrderLimits && isOneOf(item, words::kMarket, words::kLimit)) {
        return "only the option markets SHO and SZO go by MARKET and LIMIT";
    }
    if (topic == LimitTopic::BlockTrades) {
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

bool isOddWord(std::string_view market, std::string_view item) {
    if (item.empty() || hasDigit(item) || isCategoryWord(item)) return false;
    // A word of four letters that is one slip away from a category is no future by accident.
    if (hasFutures(market)) return item.size() > 3 && !nearestName(item, categoryWords(), 1).empty();
    return isStockExchange(market) || isOptionExchange(market) || isShanghaiConnect(market) ||
           isShenzhenConnect(market) || market == markets::kNeeq;
}

}  // namespace ttconfig

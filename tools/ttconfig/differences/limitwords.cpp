// Limit words: answers which category words can matter on a market.
// Doors: one function a limit table, and isWordOf().
// Owns: the words of each table; a test holds them against the rules of the library.
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp.

#include "ttconfig/differences/limitwords.h"

#include <algorithm>

#include "traderbase/base/config/internal/categorywords.h"
#include "traderbase/base/config/internal/markets.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using Words = std::vector<std::string_view>;

// New shares and technology shares come before the market is looked at.
const Words kAnywhere = {words::kIpo, words::kTechStockLimit, words::kTechStockMarket, words::kTechStockClose,
                         words::kStock};

Words orderWords(std::initializer_list<std::string_view> last) {
    Words all = kAnywhere;
    all.insert(all.end(), {words::kMoneyFund, words::kLoan, words::kPif, words::kFund, words::kEtf, words::kRepurchase,
                           words::kRepurchaseImpawn, words::kRepurchaseBuyOut});
    all.insert(all.end(), last);
    return all;
}

}  // namespace

const Words& orderLimitWords(std::string_view market) {
    static const Words kOptions = orderWords({words::kMarket, words::kLimit});
    static const Words kOthers = orderWords({words::kDef});
    if (isShanghaiConnect(market) || isShenzhenConnect(market)) return kAnywhere;
    return isOptionExchange(market) ? kOptions : kOthers;
}

const Words& blockTradeQuantityWords(std::string_view /*market*/) {
    static const Words kWords = {words::kStock, words::kDirectionalConvertibleBond, words::kPif, words::kLoan,
                                 words::kFund};
    return kWords;
}

// Fewer than for the quantity, as in the rules.
const Words& blockTradeAmountWords(std::string_view /*market*/) {
    static const Words kWords = {words::kStock, words::kLoan, words::kFund};
    return kWords;
}

const Words& stockRateWords(std::string_view /*market*/) {
    static const Words kWords = {words::kLondonCdr, words::kInnovation, words::kCdr, words::kStock,      words::kLoan,
                                 words::kPif,       words::kFund,       words::kEtf, words::kRepurchase, words::kDef};
    return kWords;
}

const Words& shanghaiConnectRateWords(std::string_view market) {
    static const Words kConnect = {words::kStock};
    static const Words kOthers = {words::kLoan, words::kDef};
    return isShanghaiConnect(market) ? kConnect : kOthers;
}

const Words& shenzhenConnectRateWords(std::string_view /*market*/) {
    static const Words kWords = {words::kStock};
    return kWords;
}

bool isWordOf(LimitWords words, std::string_view item) {
    for (const std::string_view market : {std::string_view(), markets::kSho, markets::kHgt}) {
        const Words& some = words(market);
        if (std::find(some.begin(), some.end(), item) != some.end()) return true;
    }
    return false;
}

}  // namespace ttconfig

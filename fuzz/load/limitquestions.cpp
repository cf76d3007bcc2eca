// Queries of the target "load" about limits, rates and bonds.

#include <ttplatform/ratelimitrecords.h>

#include <string>
#include <vector>

#include "fuzz/load/loadquestions.h"
#include "fuzz/support/recordnumbers.h"
#include "fuzz/support/samenumber.h"
#include "fuzz/support/target.h"
#include "traderbase/base/config/shfixincomelimit.h"

namespace fuzz {

namespace {

// One price type for every rule, and one that no rule mentions. Price types matter for options and the technology
// board; for other instruments, two are enough to see that they do not.
std::vector<int> pricesFor(const std::string& market, const std::string& code) {
    if (market == "SHO" || market == "SZO" || code.substr(0, 3) == "688") return {-1, 50, 117, 85, 90};
    return {-1, 50};
}

void askOrderLimits(const Asked& asked, const std::string& market, const std::string& code) {
    const std::string upperMarket = tests::slowUpperCase(market);
    const std::string upperCode = tests::slowUpperCase(code);
    const bool isUpper = market == upperMarket && code == upperCode;
    for (const int priceType : pricesFor(upperMarket, upperCode)) {
        const auto price = static_cast<EBrokerPriceType>(priceType);
        const auto limit = asked.store.getOrderLimit(market, code, price);
        require(limit == asked.slow.orderLimit(market, code, priceType), "order limits agree", code);
        if (isUpper) continue;
        require(limit == asked.store.getOrderLimit(upperMarket, upperCode, price),
                "letter case does not count for limits", code);
    }
    require(asked.store.getDazongOrderNumLimit(market, code) == asked.slow.blockTradeQuantity(market, code),
            "block-trade quantities agree", code);
    require(asked.store.getDazongOrderTradeAmountLimit(market, code) == asked.slow.blockTradeAmount(market, code),
            "block-trade amounts agree", code);
}

void askRates(const Asked& asked, const std::string& market, const std::string& code) {
    asked.handedOut.check(asked.store.getRateLimitPtr(market, code), asked.slow.stockRates(market, code));
    asked.handedOut.check(asked.store.getHGTExchangeRateLimitPtr(market, code),
                          asked.slow.shanghaiConnectRates(market, code));
    asked.handedOut.check(asked.store.getSgtExchangeRateLimitPtr(market, code),
                          asked.slow.shenzhenConnectRates(market, code));
}

}  // namespace

template <typename Record>
void HandedOut::check(const boost::shared_ptr<Record>& record, const SlowRates& expected) {
    require(record != nullptr, "there is always a record");
    require(isSame(numbersOf(*record), expected.numbers), "rates agree");
    require(byRow.emplace(expected.row, record).first->second == record, "one row, one record");
    require(rowOf.emplace(record.get(), expected.row).first->second == expected.row, "another row, another record");
}

void askLimits(const Asked& asked) {
    // A query may insert a default row, which answers later queries of the same category.
    for (const auto& [market, code] : asked.named.instruments) {
        askOrderLimits(asked, market, code);
        askRates(asked, market, code);
    }
}

void askBonds(const Asked& asked) {
    for (int type = -1; type < 8; ++type) {
        const auto limit = asked.store.getSHFixIncomeLimit(static_cast<EBondTradeType>(type));
        const auto expected = asked.slow.fixedIncome.find(type);
        require((limit != nullptr) == (expected != asked.slow.fixedIncome.end()), "fixed-income limits agree on types");
        if (limit) require(isSame(numbersOf(*limit), expected->second), "fixed-income limits agree");
    }
    for (const auto& [code, ratio] : asked.slow.bonds)
        require(isSame(asked.store.getStandardBondUseLimit(code), ratio), "bond ratios agree", code);
    for (const std::string& word : asked.named.words) {
        if (asked.slow.bonds.count(word) > 0) continue;
        require(asked.store.getStandardBondUseLimit(word) == 1.0, "unknown bonds have 1", word);
    }
}

}  // namespace fuzz

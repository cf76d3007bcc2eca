// Queries of the target "load" about products and funds.

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>

#include "fuzz/load/loadquestions.h"
#include "fuzz/support/recordnumbers.h"
#include "fuzz/support/samenumber.h"
#include "fuzz/support/target.h"

namespace fuzz {

namespace {

void askRecords(const Asked& asked) {
    const auto all = asked.store.getAllContractInfo();
    const auto& expected = asked.slow.contracts.records;
    require(all.size() == expected.size(), "as many contracts");
    std::size_t ofCredit = 0;
    for (const auto& [key, contract] : expected) {
        const auto found = all.find(key);
        require(found != all.end() && found->second && isSameContract(*found->second, contract), "contracts agree",
                key);
        ofCredit += contract.isCredit;
        require(asked.store.getContractInfo(contract.product, contract.isCredit) == found->second,
                "a contract is found by its product", key);
    }
    const auto stock = asked.store.getContractInfo(2);
    const auto credit = asked.store.getContractInfo(3);
    require(stock.size() == expected.size() - ofCredit && credit.size() == ofCredit, "each contract has one kind");
    const auto isOfCredit = [](const auto& record) { return record->isCredit; };
    require(
        std::none_of(stock.begin(), stock.end(), isOfCredit) && std::all_of(credit.begin(), credit.end(), isOfCredit),
        "kinds of contracts agree");
    require(asked.store.getContractInfo(1).empty() && asked.store.getContractInfo(4).empty(),
            "there are no other accounts");
}

std::string productOf(const std::map<std::string, std::string>& index, const std::string& type) {
    const auto found = index.find(type);
    return found == index.end() ? std::string() : found->second;
}

}  // namespace

void askContracts(const Asked& asked) {
    askRecords(asked);
    const tests::SlowContracts& slow = asked.slow.contracts;
    for (const std::string& word : asked.named.words) {
        for (const bool isCredit : {false, true}) {
            const std::string key = word + (isCredit ? "_credit" : "_stock");
            require((asked.store.getContractInfo(word, isCredit) != nullptr) == (slow.records.count(key) > 0),
                    "products agree on what is one", word);
            const std::string product = productOf(isCredit ? slow.creditProducts : slow.stockProducts, word);
            require(asked.store.getProductIdbyAlgoName(word, isCredit) == product, "products of types agree", word);
            require(asked.store.getProductIdbyAlgoName(word, isCredit) == product, "asking changes no answer", word);
        }
    }
}

void askProducts(const Asked& asked) {
    const SlowStore& slow = asked.slow;
    for (const std::string& word : asked.named.words) {
        const bool isHttp = std::count(slow.httpProducts.begin(), slow.httpProducts.end(), word) > 0;
        require(asked.store.isHttpProductID(word) == isHttp, "products over HTTP agree", word);
        for (const std::string& product : {word, tests::slowUpperCase(word)}) {
            const auto fee = slow.fees.find(product);
            require(isSame(asked.store.getSubFee(product), fee == slow.fees.end() ? 0.0 : fee->second), "fees agree",
                    product);
        }
        require(asked.store.getSingleMarginProductName(word) == slow.singleMarginProduct(word), "margins agree", word);
        require(asked.store.getTradingTime(word).empty(), "there is no script", word);
    }
    require(asked.store.getAlgoTypes() == slow.algorithmTypes, "algorithm types agree");
    require(asked.store.getBuySellHideAlgoTypes() == slow.buySellHideTypes, "types without buy and sell agree");
    require(asked.store.getT0Strategy() == slow.t0Strategies, "T0 strategies agree");
    require(asked.store.getETFBrokerCLientTag() == slow.etfClient.tag, "tags agree");
    require(asked.store.getETFBrokerCLientQueryTimes() == slow.etfClient.times, "query times agree");
}

void askFunds(const Asked& asked) {
    for (const auto& [market, codes] : asked.slow.fixedPriceFunds) {
        for (const std::string& code : codes)
            require(asked.store.isNeedFixPriceByNonTradeMonetaryFund(market, code), "funds with a fixed price", code);
    }
    for (const auto& [market, code] : asked.named.instruments) {
        const auto codes = asked.slow.fixedPriceFunds.find(market);
        const bool isFixed = codes != asked.slow.fixedPriceFunds.end() && codes->second.count(code) > 0;
        require(asked.store.isNeedFixPriceByNonTradeMonetaryFund(market, code) == isFixed, "fixed prices agree", code);
        for (const int platform : asked.named.platforms) {
            require(asked.store.isMonetaryFundUseSloBalanceFirst(platform, market, code) ==
                        asked.slow.usesSloBalanceFirst(platform, market, code),
                    "funds of the lending balance agree", code);
        }
    }
    for (const std::string& word : asked.named.words) {
        const std::size_t end = std::min<std::size_t>(word.size(), 2);
        const std::string market = word.substr(0, end);
        for (const int platform : asked.named.platforms) {
            require(asked.store.isMonetaryFundUseSloBalanceFirst(platform, market, word.substr(end)) ==
                        asked.slow.usesSloBalanceFirst(platform, market, word.substr(end)),
                    "funds that are named agree", word);
        }
    }
}

}  // namespace fuzz

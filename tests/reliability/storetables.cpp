#include "tests/reliability/storetables.h"

#include <set>
#include <utility>

#include "tests/config/collectorpeer.h"
#include "tests/reliability/answertext.h"

namespace tests {

namespace {

using ttservice::ConfigCollector;
using ttservice::ConfigCollectorPeer;

constexpr int kPlatforms = 6;

// What an operation answers for each platform.
template <typename Ask>
std::string byPlatform(const Ask& ask) {
    std::string text;
    for (int platform = 0; platform < kPlatforms; ++platform)
        text += textOf(ask(platform)) + ' ';
    return text;
}

void addScalars(const ConfigCollector& store, std::map<std::string, std::string>& tables) {
    tables["isShowMaxCanOrder"] = textOf(store.isShowMaxCanOrder());
    tables["getRefLimit"] = textOf(store.getRefLimit());
    tables["getFlowHistoryDays"] = textOf(store.getFlowHistoryDays());
    tables["getHgtSgtPriceDiff"] = store.getHgtSgtPriceDiff();
    tables["isT0ForReturnStockPts"] = byPlatform([&](int p) { return store.isT0ForReturnStockPts(p); });
    tables["isSPXCreditStockPts"] = byPlatform([&](int p) { return store.isSPXCreditStockPts(p); });
    tables["getRenewalPts"] = byPlatform([&](int p) { return store.getRenewalPts(p); });
    tables["getCounterMaxCompactsRespNum"] = byPlatform([&](int p) { return store.getCounterMaxCompactsRespNum(p); });
    tables["useCounterIpwanPos"] = byPlatform([&](int p) { return store.useCounterIpwanPos(p); });
    tables["isMainAccountcalcCompactsBydealPts"] =
        byPlatform([&](int p) { return store.isMainAccountcalcCompactsBydealPts(p); });
    tables["getisSetavailable"] = byPlatform([&](int p) { return store.getisSetavailable(p); });
    tables["getSpecailEnableVolStkExchangeRate"] =
        byPlatform([&](int p) { return store.getSpecailEnableVolStkExchangeRate(p); });
    tables["isNeedCheckAssureEnbuyBalancePts"] =
        byPlatform([&](int p) { return store.isNeedCheckAssureEnbuyBalancePts(p); });
}

const char* const kLocalOverride = "local override of an unknown switch";

void addRunTimeValues(const ConfigCollector& store, std::map<std::string, std::string>& tables) {
    tables[kLocalOverride] = textOf(store.isSomePt("a switch that only the client knows", 1));
    tables["getMaxPermission"] = textOf(store.getMaxPermission("the first permission")) + ' ' +
                                 textOf(store.getMaxPermission("the other permission"));
    tables["getLocalDiskPathHash"] = store.getLocalDiskPathHash();
    tables["getLocalInfoFormat"] = store.getLocalInfoFormat();
    store.getQeTsConfigStr(tables["getQeTsConfigStr"]);
    tables["getTradingTime"] = textOfEach(store.getTradingTime("SSE")) + textOfEach(store.getTradingTime("SZSE"));
}

void addCreditTables(const ConfigCollector& store, std::map<std::string, std::string>& tables) {
    tables["isUseConcentrationRatioPts"] = byPlatform([&](int p) {
        std::pair<double, double> ratios;
        return store.isUseConcentrationRatioPts(p, ratios.first, ratios.second) ? textOf(ratios) : std::string("none");
    });
    tables["isRepayDebtByCollateralSell"] = byPlatform([&](int p) {
        std::string codes;
        for (const char* code : {"600001", "600002", "a code that is longer than any text in place 1",
                                 "a code that is longer than any text in place 2"})
            codes += textOf(store.isRepayDebtByCollateralSell(p, code));
        return codes;
    });
}

void addCatalogues(const ConfigCollector& store, std::map<std::string, std::string>& tables) {
    tables["contracts"] = textOfEach(ConfigCollectorPeer::contracts(store).records);
    tables["contracts by stock type"] = textOfEach(ConfigCollectorPeer::contracts(store).stockProductByType);
    tables["contracts by credit type"] = textOfEach(ConfigCollectorPeer::contracts(store).creditProductByType);
    tables["isHttpProductID"] = textOf(store.isHttpProductID("P1")) + textOf(store.isHttpProductID("P2"));
    tables["getAlgoTypes"] = textOf(store.getAlgoTypes());
    tables["getBuySellHideAlgoTypes"] = textOf(store.getBuySellHideAlgoTypes());
    tables["getT0Strategy"] = textOfEach(store.getT0Strategy());
    tables["notQueryAlgoPermKeys"] = textOf(ConfigCollectorPeer::notQueryAlgoPermKeys(store));
    tables["getSubFee"] = textOfEach(ConfigCollectorPeer::subscriptionFees(store));
    tables["getSingleMarginProductName"] = textOfEach(ConfigCollectorPeer::combinations(store).firstOfGroup);
    tables["ETF broker client"] = store.getETFBrokerCLientTag() + textOf(store.getETFBrokerCLientQueryTimes());
    tables["isMonetaryFundUseSloBalanceFirst"] = textOfEach(ConfigCollectorPeer::sloBalanceFirstFunds(store));
    tables["isNeedFixPriceByNonTradeMonetaryFund"] = textOfEach(ConfigCollectorPeer::fixedPriceFunds(store));
}

void addLimits(const ConfigCollector& store, std::map<std::string, std::string>& tables) {
    tables["orderLimits"] = textOfEach(ConfigCollectorPeer::orderLimits(store));
    tables["blockTradeQuantities"] = textOfEach(ConfigCollectorPeer::blockTradeQuantities(store));
    tables["blockTradeAmounts"] = textOfEach(ConfigCollectorPeer::blockTradeAmounts(store));
    tables["stockRates"] = textOfEach(ConfigCollectorPeer::stockRates(store));
    tables["shanghaiConnectRates"] = textOfEach(ConfigCollectorPeer::shanghaiConnectRates(store));
    tables["shenzhenConnectRates"] = textOfEach(ConfigCollectorPeer::shenzhenConnectRates(store));
    tables["getStandardBondUseLimit"] = textOf(store.getStandardBondUseLimit("bond")) + ' ' +
                                        textOf(store.getStandardBondUseLimit("LONG BOND CODE 01"));
    for (int type = 1; type <= 5; ++type)
        tables["getSHFixIncomeLimit"] += textOf(store.getSHFixIncomeLimit(static_cast<EBondTradeType>(type))) + "; ";
}

}  // namespace

std::map<std::string, std::string> tablesOf(const ConfigCollector& store) {
    std::map<std::string, std::string> tables;
    tables["switches"] = textOfEach(store.getAllpts());
    tables["slots"] = byPlatform([&](int p) { return store.isNeedMaxAmountPts(p); }) +
                      byPlatform([&](int p) { return store.isChangeBrokerId(p); });
    store.getOriginalStr(tables["getOriginalStr"]);
    addScalars(store, tables);
    addRunTimeValues(store, tables);
    addCreditTables(store, tables);
    addCatalogues(store, tables);
    addLimits(store, tables);
    return tables;
}

bool isSetAtRunTime(const std::string& table) {
    static const std::set<std::string> names{kLocalOverride,       "getMaxPermission", "getLocalDiskPathHash",
                                             "getLocalInfoFormat", "getQeTsConfigStr", "getTradingTime"};
    return names.count(table) != 0;
}

std::string combinationsOf(const ConfigCollector& store) {
    const auto& tables = ConfigCollectorPeer::combinations(store);
    return textOfEach(tables.groups) + '/' + textOf(tables.products);
}

std::string settingsOfVersion(int version) {
    std::string text = R"([setting]
needmaxamount=#,#,5
notchangeborokerid=#
a switch that only version # has, under a long name=1,2,3,4,5,6,7,8,#
isshowmaxcanorder=#
refLimit=10#
flowhistorydays=3#
ist0forreturnstock=1:1;2:0;%
isspxcreditmodules=#:1;0;bad
mainaccountcalculatorcompactsbydeal=#:0;1
renewalpts=1:#;2:7;#
counterMaxCompactsRespNum=1:#00;#
usecounteripwanpos=#:0;1
sm3platformids=1:#
setavailable=1:0.#;#
specialenablebalvolumestkexchangerate=1:1.#;0.#
isneedcheckassureenbuybalance=#:1;0
shfixincomelimit=0.#,1,2,3,4,5,#
shloanbiddeallimit=1.#,1,2,3,4,5,#
algomultcontractsetting=P1:a label that is longer than any text in place,0.#,100,#,0;P2:x,1,1,1,1;only #:,
algocontracttypes=P1:TWAP|VWAP #;P2:an algorithm type with a long name #
algohttpproductid=P#,another product with a long name
samrtalgotypes=one #;two;a type with a name that is long
algotypedisablebuysell=three #,four
t0algotypes=S#:a strategy with a name that is long;T:u
etfbrokerclienttag=#:093000,a time that is longer than any text in place #
[HgtSgtPriceDiff]
price_diff=a price difference that is longer than any text in place #
[FUTURE_SUBSCRIBE_PRODUCTS]
cu=0.#
a product with a long name=1.#
[specialCombCompacts]
SHFE=A#,B#,a product with a long name #;C,D#
DCE=E#,F#
[notqueryalgopermission]
a key with a name that is long #=1
[StandardBondUseLimit]
bond=0.#
long bond code 01=0.9#
[CreditSetting]
use_collateral_buy_Concentration_Ratio=1:0.#,0.5;#:1,2
use_collateral_sale_repay_debt=1:60000#,a code that is longer than any text in place #;2:60000#
[MonetaryFundSetting]
fix_price_by_nontrade_monetaryfund=SZSE:15900#,15;a market with a long name:1#;market #:x
[monetaryFundUseSloBalanceFirst]
1=SSE51188#,a fund with a name that is long
#=ALL
)";
    text += R"([StkExchangeOrderLimit]
SSE-STOCK,SZSE-STOCK=#0000,a unit word that is longer than any text in place
SSE-600001=#,u
[HGTExchangeOrderLimit]
HGT-STOCK=#00,u
[SgtExchangeOrderLimit]
a market with a long name-an item with a long name=#1,u
[StkExchangeDazongOrderLimit]
SSE-STOCK,SZSE-STOCK=#0,u,#00
[StkExchangeRateLimit]
SSE-STOCK,SZSE-an item with a long name=1,2,3,4,5,6,#
[HGTExchangeRateLimit]
HGT-STOCK=1,2,3,4,5,6,7,8,9,10,11,12,13,#
[SgtExchangeRateLimit]
SGT-STOCK,SGT-an item with a long name=1,2,3,4,5,6,7,8,9,10,11,12,13,#
)";
    std::string filled;
    for (const char c : text) {
        if (c == '#') {
            filled += std::to_string(version);
        } else if (c == '%') {
            filled += version == 1 ? '1' : '0';
        } else {
            filled += c;
        }
    }
    return filled;
}

}  // namespace tests

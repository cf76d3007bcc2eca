#include "tests/tools/ttconfig/differences/allanswers.h"

#include <ttplatform/ratelimitrecords.h>
#include <ttplatform/text.h>

#include <boost/algorithm/string/case_conv.hpp>
#include <cstdio>

#include "tests/support/standarderror.h"
#include "tests/tools/ttconfig/differences/settingsmaker.h"
#include "traderbase/base/config/contractinfo.h"
#include "traderbase/base/config/internal/limits/limitcategories.h"
#include "traderbase/base/config/internal/store/storeslot.h"
#include "traderbase/base/config/shfixincomelimit.h"
#include "ttconfig/tables/limitquestions.h"

namespace tests {

namespace {

using ttconfig::Answer;
using ttconfig::LimitQuestionSpec;
using ttservice::ConfigCollector;

struct Kind {
    std::vector<int> stockTypes;
    std::vector<int> baseTypes;
};

const std::vector<Kind> kKinds = {
    {{}, {}},       {{}, {1062}},        {{}, {1172}},        {{100003}, {}}, {{100024}, {}},
    {{100016}, {}}, {{100103}, {}},      {{100104}, {}},      {{100004}, {}}, {{100013}, {}},
    {{126}, {}},    {{126, 100021}, {}}, {{100017, 124}, {}}, {{}, {1154}},   {{}, {1124}},
    {{}, {1136}}};

const std::vector<int> kPriceTypes = {0, 50, 117, 84};
const std::vector<std::string> kMarkets = {"SH", "SHO", "HGT", "HK", "NEEQ", "SGT"};
class Asking {
public:
    Asking(ConfigCollector& askedStore, Answers& filledAnswers) : store(askedStore), answers(filledAnswers) {}

    void askPlatforms() {
        for (const int platform : {12, 15, 7, -5, 0, 5, 41, kNobody}) {
            const std::string subject =
                platform == kNobody ? "every other platform: " : "platform " + std::to_string(platform) + ": ";
            askValues(subject, platform);
            askLists(subject, platform);
            askSwitches(subject, platform);
        }
    }

    void askSingles() {
        const auto put = [this](const char* question, const Answer& answer) { set(question, answer); };
        put("isshowmaxcanorder: isShowMaxCanOrder", store.isShowMaxCanOrder());
        put("isshownewcompacts: showNewCompacts", store.showNewCompacts());
        put("useregistrules: useRegistRules", store.useRegistRules());
        put("useregistiporules: useRegistIPORules", store.useRegistIPORules());
        put("shusenewbondrules: useNewBondRules SH", store.useNewBondRules("SH"));
        put("shusenewbondrules: useNewShangHaiLoanRules", store.useNewShangHaiLoanRules());
        put("szusenewbondrules: useNewBondRules SZ", store.useNewBondRules("SZ"));
        put("userglobalref: useGlobalRef", store.useGlobalRef());
        put("refLimit: getRefLimit", store.getRefLimit());
        put("useSplitPageOfStkCompact: useSplitPageOfStkCompact", store.useSplitPageOfStkCompact());
        put("creditCompactDeferT3: isCreditCompactDeferT3", store.isCreditCompactDeferT3());
        put("flowhistorydays: getFlowHistoryDays", store.getFlowHistoryDays());
        put("[HgtSgtPriceDiff] price_diff: getHgtSgtPriceDiff", store.getHgtSgtPriceDiff());
        for (const int type : {2, 3, 4, 5})
            askFixedIncome(type);
    }

    void askNames() {
        for (const std::string& plain : SettingsMaker::names()) {
            for (const std::string& name : {"k" + plain, boost::algorithm::to_upper_copy("k" + plain)}) {
                set("bond " + name + ": getStandardBondUseLimit", store.getStandardBondUseLimit(name));
                set("product " + name + ": getSubFee", store.getSubFee(name));
            }
            set("product " + plain + ": getSingleMarginProductName", store.getSingleMarginProductName(plain));
        }
        for (const std::string market : {"SZSE", "SSE", ""}) {
            std::vector<std::string> codes = SettingsMaker::names();
            codes.insert(codes.end(), {"SZSE", "SSE"});
            for (const std::string& code : codes) {
                set(market + '-' + code + ": isNeedFixPriceByNonTradeMonetaryFund",
                    store.isNeedFixPriceByNonTradeMonetaryFund(market, code));
            }
        }
    }

    void askCatalogue() {
        for (const bool isCredit : {false, true}) {
            const std::string accounts = isCredit ? ", credit accounts: " : ", stock accounts: ";
            for (const std::string& product : SettingsMaker::productIds())
                set("algorithm product " + product + accounts + "getContractInfo", contract(product, isCredit));
            for (const std::string& type : SettingsMaker::algorithmTypes()) {
                set("algorithm type " + type + accounts + "getProductIdbyAlgoName",
                    store.getProductIdbyAlgoName(type, isCredit));
            }
        }
        for (const std::string& product : SettingsMaker::productIds())
            set("algorithm product " + product + ": isHttpProductID", store.isHttpProductID(product));
        Answer pairs = Answer::array();
        for (const auto& pair : store.getT0Strategy())
            pairs.push_back(Answer::array({pair.first, pair.second}));
        set("t0algotypes: getT0Strategy", pairs);
        set("samrtalgotypes: getAlgoTypes", Answer(store.getAlgoTypes()));
        set("algotypedisablebuysell: getBuySellHideAlgoTypes", Answer(store.getBuySellHideAlgoTypes()));
        set("etfbrokerclienttag: getETFBrokerCLientTag", store.getETFBrokerCLientTag());
        set("etfbrokerclienttag: getETFBrokerCLientQueryTimes", Answer(store.getETFBrokerCLientQueryTimes()));
    }

    // Asks about the kind of instrument that the platform currently has.
    void askInstruments() {
        for (const std::string& market : kMarkets) {
            askLimits(market, "ZZZ9");
            for (const std::string& item : SettingsMaker::items())
                askLimits(market, boost::algorithm::to_upper_copy(item));
        }
        for (const int platform : {12, 15, 7, -5, 0, 5, 41}) {
            const std::string question = "platform " + std::to_string(platform) + ": isMonetaryFundUseSloBalanceFirst ";
            add(question + "SSE511880", store.isMonetaryFundUseSloBalanceFirst(platform, "SSE", "511880"));
            add(question + "SZSE1", store.isMonetaryFundUseSloBalanceFirst(platform, "S", "ZSE1"));
            add(question, store.isMonetaryFundUseSloBalanceFirst(platform, "", ""));
        }
    }

    // A money-market fund that is in no list.
    void askAllFunds() {
        for (const int platform : {12, 15, 7, -5, 0, 5, 41}) {
            set("platform " + std::to_string(platform) + ": isMonetaryFundUseSloBalanceFirst ALL",
                store.isMonetaryFundUseSloBalanceFirst(platform, "SSE", "none"));
        }
    }

private:
    void set(const std::string& question, const Answer& answer) { answers[question] = {shown(answer)}; }
    void add(const std::string& question, const Answer& answer) { answers[question].push_back(shown(answer)); }

    void askValues(const std::string& subject, int platform) {
        set(subject + "isT0ForReturnStockPts", store.isT0ForReturnStockPts(platform));
        set(subject + "isSPXCreditStockPts", store.isSPXCreditStockPts(platform));
        set(subject + "isMainAccountcalcCompactsBydealPts", store.isMainAccountcalcCompactsBydealPts(platform));
        set(subject + "getRenewalPts", store.getRenewalPts(platform));
        set(subject + "getCounterMaxCompactsRespNum", store.getCounterMaxCompactsRespNum(platform));
        set(subject + "useCounterIpwanPos", store.useCounterIpwanPos(platform));
        set(subject + "isNeedCheckAssureEnbuyBalancePts", store.isNeedCheckAssureEnbuyBalancePts(platform));
        set(subject + "getSpecailEnableVolStkExchangeRate", store.getSpecailEnableVolStkExchangeRate(platform));
        set(subject + "getisSetavailable", store.getisSetavailable(platform));
        set(subject + "getFinEnableBailRatio", store.getFinEnableBailRatio(platform));
    }

    void askLists(const std::string& subject, int platform) {
        set(subject + "isSetavailable", store.isSetavailable(platform));
        set(subject + "isUseSpecialEnableBalCalcVolume", store.isUseSpecialEnableBalCalcVolume(platform));
        set(subject + "isUseFinEnableBailRatio", store.isUseFinEnableBailRatio(platform));
        set(subject + "isCanQueryETFFromCounter", store.isCanQueryETFFromCounter(platform));
        double first = 0;
        double second = 0;
        const bool there = store.isUseConcentrationRatioPts(platform, first, second);
        set(subject + "isUseConcentrationRatioPts", Answer::array({there, first, second}));
        for (const std::string& code : SettingsMaker::names()) {
            set(subject + "isRepayDebtByCollateralSell " + code, store.isRepayDebtByCollateralSell(platform, code));
        }
    }

    void askSwitches(const std::string& subject, int platform) {
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning) set(subject + #predicate, store.predicate(platform));
#include "traderbase/base/config/platformswitches.def"
        for (const std::string& key : SettingsMaker::unknownKeys())
            set(subject + "isSomePt(\"" + key + "\")", store.isSomePt(key, platform));
    }

    void askFixedIncome(int type) {
        const auto limit = store.getSHFixIncomeLimit(static_cast<EBondTradeType>(type));
        Answer answer;
        if (limit) {
            answer = {{"doubleValue", limit->doubleValue}, {"intValue1", limit->intValue1},
                      {"intValue2", limit->intValue2},     {"intValue3", limit->intValue3},
                      {"intValue4", limit->intValue4},     {"intValue5", limit->intValue5},
                      {"intValue6", limit->intValue6}};
        }
        set("bond trade type " + std::to_string(type) + ": getSHFixIncomeLimit", answer);
    }

    Answer contract(const std::string& product, bool isCredit) const {
        const auto record = store.getContractInfo(product, isCredit);
        if (!record) return {};
        return {{"intValue", record->intValue},   {"doubleValue", record->doubleValue},
                {"longValue", record->longValue}, {"productId", record->productId},
                {"textValue", record->textValue}, {"isCredit", record->isCredit}};
    }

    // A code that no row names stands for its category: the answer is that of the category.
    void addLimit(const LimitQuestionSpec& asked, const std::string& market, const std::string& code,
                  const std::string& category, const std::string& question, const Answer& answer) {
        if (ttconfig::isCategoryWord(code) || !ttconfig::isReachable(asked, market, code)) return;
        add(market + '-' + (code == "ZZZ9" ? category : code) + ": " + question, answer);
    }

    void askLimits(const std::string& market, const std::string& code) {
        using namespace ttservice::internal;
        for (const int price : kPriceTypes) {
            const auto priceType = static_cast<EBrokerPriceType>(price);
            const auto limit = store.getOrderLimit(market, code, priceType);
            addLimit(kOrderLimitQuestion, market, code, std::string(orderLimitCategory(market, code, priceType).word),
                     "getOrderLimit", Answer::array({limit.first, limit.second}));
        }
        if (code == "ZZZ9") askBlockTrades(market, code);
        addLimit(kStockRateQuestion, market, code, std::string(stockRateCategory(market, code).word), "getRateLimitPtr",
                 fields(*store.getRateLimitPtr(market, code)));
        const std::string shanghai = market == "HK" ? "HGT" : market;
        addLimit(kShanghaiConnectRateQuestion, shanghai, code,
                 std::string(shanghaiConnectRateCategory(shanghai, code).word), "getHGTExchangeRateLimitPtr",
                 connectFields(*store.getHGTExchangeRateLimitPtr(market, code)));
        const std::string shenzhen = market == "HK" ? "SGT" : market;
        addLimit(kShenzhenConnectRateQuestion, shenzhen, code, "STOCK", "getSgtExchangeRateLimitPtr",
                 connectFields(*store.getSgtExchangeRateLimitPtr(market, code)));
    }

    void askBlockTrades(const std::string& market, const std::string& code) {
        using namespace ttservice::internal;
        const auto limit = store.getDazongOrderNumLimit(market, code);
        add(market + '-' + std::string(blockTradeQuantityCategory(market, code).word) + ": getDazongOrderNumLimit",
            Answer::array({limit.first, limit.second}));
        add(market + '-' + std::string(blockTradeAmountCategory(market, code).word) +
                ": getDazongOrderTradeAmountLimit",
            store.getDazongOrderTradeAmountLimit(market, code));
    }

    static Answer fields(const CStkExchangeRateLimit& record) {
        return Answer::array(
            {record.rate1, record.rate2, record.rate3, record.rate4, record.rate5, record.rate6, record.count});
    }

    template <typename Record>
    static Answer connectFields(const Record& record) {
        return Answer::array({record.rate1, record.rate2, record.rate3, record.rate4, record.rate5, record.rate6,
                              record.rate7, record.rate8, record.rate9, record.rate10, record.rate11, record.rate12,
                              record.rate13, record.rate14});
    }

    ConfigCollector& store;
    Answers& answers;
};

}  // namespace

std::string shown(const Answer& answer) {
    if (answer.is_number_float()) {
        char digits[40];
        std::snprintf(digits, sizeof digits, "%.17g", answer.get<double>());
        return digits;
    }
    if (!answer.is_structured()) return answer.dump();
    std::string text = "(";
    for (const auto& item : answer.items())
        text += item.key() + ':' + shown(item.value()) + ' ';
    return text + ')';
}

PlatformKinds platformsOfKinds() {
    PlatformKinds all;
    for (const Kind& kind : kKinds) {
        const auto data = std::make_shared<standin::PlatformData>();
        for (const std::string& market : kMarkets) {
            for (const int type : kind.stockTypes)
                data->addStockType(type, market, "*");
            for (const int type : kind.baseTypes)
                data->addBaseType(type, market, "*");
        }
        for (const char* market : {"SSE", "S", ""}) {
            for (const int type : kind.stockTypes)
                data->addStockType(type, market, "*");
        }
        all.push_back(data);
    }
    return all;
}

boost::shared_ptr<ConfigCollector> loadedStore(const TempFolder& folder, const std::string& settings) {
    const StandardError quiet;
    auto store = ttservice::internal::StoreSlot::build();
    ttservice::internal::StoreSlot::exchange(store);
    store->readConfig(folder.write("settings.ini", settings));
    return store;
}

Answers allAnswers(ConfigCollector& store, const PlatformKinds& platformKinds) {
    Answers answers;
    Asking asking(store, answers);
    asking.askPlatforms();
    asking.askSingles();
    asking.askNames();
    asking.askCatalogue();
    for (const auto& kind : platformKinds) {
        standin::PlatformData::install(kind);
        asking.askInstruments();
        if (kind->isStockType(100024, "SSE", "none")) asking.askAllFunds();
    }
    return answers;
}

}  // namespace tests

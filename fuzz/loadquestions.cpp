// The questions of the target "load".

#include "fuzz/loadquestions.h"

#include <ttplatform/ratelimitrecords.h>
#include <ttplatform/text.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/namedin.h"
#include "fuzz/target.h"
#include "tests/support/slowgrammars.h"
#include "traderbase/base/config/internal/platformswitchtable.h"
#include "traderbase/base/config/internal/settingkeys.h"
#include "traderbase/base/config/shfixincomelimit.h"
#include "traderbase/base/config/tradeunit.h"

namespace fuzz {

namespace {

using standin::SettingsText;
using ttservice::ConfigCollector;
using ttservice::internal::SettingKey;
namespace keys = ttservice::internal::keys;

class Asking {
public:
    Asking(ConfigCollector& askedStore, const SettingsText& settings)
        : store(askedStore), text(settings), named(namedIn(settings)) {}

    void askSwitches() const {
        for (const int platform : named.platforms) {
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning) \
    checkSwitch(key, platform, store.predicate(platform), ttservice::internal::SwitchSense::sense);
#include "traderbase/base/config/platformswitches.def"
            const std::string tag = store.getETFBrokerCLientTag();
            require(store.isCanQueryETFFromCounter(platform) == (tag == std::to_string(platform)),
                    "the ETF platform is the tag");
            require(store.isCrtFundTransferUseCreditDetail(platform), "a fixed answer");
        }
        for (const std::string& word : named.words) {
            require(store.getMaxPermission(word) == 0, "no permission was set");
            static_cast<void>(store.isSomePt(word, 12));
            static_cast<void>(store.getPts(word));
        }
    }

    void askSingles() const {
        require(store.isShowMaxCanOrder() == flag(keys::showMaxCanOrder), "flags agree");
        require(store.showNewCompacts() == flag(keys::showNewCompacts), "flags agree");
        require(store.useRegistRules() == flag(keys::registRules), "flags agree");
        require(store.useRegistIPORules() == flag(keys::registIPORules), "flags agree");
        require(store.useNewBondRules("SH") == flag(keys::shangHaiNewBondRules), "flags agree");
        require(store.useNewShangHaiLoanRules() == flag(keys::shangHaiNewBondRules), "flags agree");
        require(store.useNewBondRules("SZ") == flag(keys::shenZhenNewBondRules), "flags agree");
        require(store.useGlobalRef() == flag(keys::globalRef), "flags agree");
        require(store.useSplitPageOfStkCompact() == flag(keys::splitPageOfStkCompact), "flags agree");
        require(store.isCreditCompactDeferT3() == flag(keys::creditCompactDeferT3), "flags agree");
        require(store.getRefLimit() == integer(keys::refLimit, 0), "integers agree");
        require(store.getFlowHistoryDays() == integer(keys::flowHistoryDays, -1), "integers agree");
        require(store.getHgtSgtPriceDiff() == value(keys::hgtSgtPriceDiff), "texts agree");
        require(store.getQuoterAdress().empty() && store.isNeedUseETFOneCode(), "fixed answers");
        require(!store.useNewBondRules("sh"), "markets are compared exactly");
    }

    void askPlatformValues() const {
        const auto t0 = tests::slowPerPlatformList<bool>(value(keys::t0ForReturnStock), true, false, true);
        const auto spx = tests::slowPerPlatformList<bool>(value(keys::spxCredit), false, false, true);
        const auto main =
            tests::slowPerPlatformList<bool>(value(keys::mainAccountCalcCompactsByDeal), true, false, true);
        const auto renewal = tests::slowPerPlatformList<int>(value(keys::renewal), 0, 0, true);
        const auto compacts = tests::slowPerPlatformList<int>(value(keys::counterMaxCompacts), 500, 0, true);
        const auto ipwan = tests::slowPerPlatformList<int>(value(keys::counterIpwanPos), 1, 0, true);
        for (const int platform : named.platforms) {
            require(store.isT0ForReturnStockPts(platform) == at(t0, platform), "values by platform agree");
            require(store.isSPXCreditStockPts(platform) == at(spx, platform), "values by platform agree");
            require(store.isMainAccountcalcCompactsBydealPts(platform) == at(main, platform),
                    "values by platform agree");
            require(store.getRenewalPts(platform) == at(renewal, platform), "values by platform agree");
            require(store.getCounterMaxCompactsRespNum(platform) == at(compacts, platform), "values by platform agree");
            require(store.useCounterIpwanPos(platform) == (at(ipwan, platform) != 0), "values by platform agree");
        }
    }

    void askCredit() const {
        const auto available = tests::slowPerPlatformList<double>(value(keys::setAvailable), 0.0, 0.0, false);
        const auto rate = tests::slowPerPlatformList<double>(value(keys::specialEnableVolRate), 0.0, 0.0, false);
        const auto check =
            tests::slowPerPlatformList<bool>(value(keys::needCheckAssureEnbuyBalance), false, false, false);
        for (const int platform : named.platforms) {
            require(store.getisSetavailable(platform) == at(available, platform), "credit numbers agree");
            require(store.isSetavailable(platform) == lists(available, platform), "credit numbers agree");
            require(store.getSpecailEnableVolStkExchangeRate(platform) == at(rate, platform), "credit numbers agree");
            require(store.isUseSpecialEnableBalCalcVolume(platform) == lists(rate, platform), "credit numbers agree");
            require(store.isNeedCheckAssureEnbuyBalancePts(platform) == at(check, platform), "credit flags agree");
            require(store.getFinEnableBailRatio(platform) == 0.6, "the ratio that no load reads");
            require(!store.isUseFinEnableBailRatio(platform), "the ratio that no load reads");
            checkConcentration(platform);
            checkCollateralSale(platform);
        }
    }

    void askLimits() {
        for (const auto& [market, code] : named.instruments) {
            for (const int priceType : {-1, 50, 117}) {
                const auto limit = store.getOrderLimit(market, code, static_cast<EBrokerPriceType>(priceType));
                require(limit == store.getOrderLimit(utils::toUpper(market), utils::toUpper(code),
                                                     static_cast<EBrokerPriceType>(priceType)),
                        "letter case does not count for limits");
            }
            static_cast<void>(store.getDazongOrderNumLimit(market, code));
            static_cast<void>(store.getDazongOrderTradeAmountLimit(market, code));
            const auto rates = store.getRateLimitPtr(market, code);
            require(rates && rates == store.getRateLimitPtr(market, code), "the same question, the same record");
            const auto shanghai = store.getHGTExchangeRateLimitPtr(market, code);
            require(shanghai && shanghai == store.getHGTExchangeRateLimitPtr(market, code), "the same record");
            const auto shenzhen = store.getSgtExchangeRateLimitPtr(market, code);
            require(shenzhen && shenzhen == store.getSgtExchangeRateLimitPtr(market, code), "the same record");
            askFundsAndUnits(market, code);
        }
        for (int type = 0; type < 8; ++type) {
            const auto limit = store.getSHFixIncomeLimit(static_cast<EBondTradeType>(type));
            require(!limit || (type >= 2 && type <= 5), "four bond trade types have limits");
        }
        checkBonds();
    }

    void askCatalogues() {
        const auto all = store.getAllContractInfo();
        require(store.getContractInfo(2).size() + store.getContractInfo(3).size() == all.size(),
                "a record is for stock or for credit accounts");
        require(store.getContractInfo(4).empty(), "there are no other accounts");
        for (const auto& [key, record] : all) {
            require(record && key == record->productId + (record->isCredit ? "_credit" : "_stock"),
                    "a record stands under its product");
            require(store.getContractInfo(record->productId, record->isCredit) == record, "and is found by it");
        }
        for (const std::string& word : named.words) {
            for (const bool isCredit : {false, true}) {
                const std::string product = store.getProductIdbyAlgoName(word, isCredit);
                require(product.empty() || store.getContractInfo(product, isCredit), "a type has a known product");
                require(store.getProductIdbyAlgoName(word, isCredit) == product, "entering a name changes no answer");
            }
            static_cast<void>(store.isHttpProductID(word));
            static_cast<void>(store.getSubFee(word));
            static_cast<void>(store.getSingleMarginProductName(word));
            require(store.getTradingTime(word).empty(), "there is no script");
        }
        static_cast<void>(store.getAlgoTypes());
        static_cast<void>(store.getBuySellHideAlgoTypes());
        static_cast<void>(store.getT0Strategy());
        static_cast<void>(store.getETFBrokerCLientQueryTimes());
    }

private:
    template <typename Value>
    static Value at(const tests::SlowPerPlatform<Value>& table, int platform) {
        const auto found = table.values.find(platform);
        return found == table.values.end() ? table.fallback : found->second;
    }
    template <typename Value>
    static bool lists(const tests::SlowPerPlatform<Value>& table, int platform) {
        return table.values.count(platform) > 0;
    }

    std::string value(const SettingKey& key) const {
        const standin::SettingsEntry* entry = text.findEntry(key.section, key.key);
        return entry == nullptr ? std::string() : std::string(entry->value);
    }
    int integer(const SettingKey& key, int missing) const {
        return tests::slowStrictNumber<int>(value(key)).value_or(missing);
    }
    bool flag(const SettingKey& key) const {
        return integer(key, 0) == 1;
    }

    void checkSwitch(std::string_view key, int platform, bool answer, ttservice::internal::SwitchSense sense) const {
        const std::vector<int> listed = store.getPts(std::string(key));
        const bool isListed = std::find(listed.begin(), listed.end(), platform) != listed.end();
        require(store.isSomePt(key, platform) == isListed, "a switch is its list", key);
        require(answer == (isListed == (sense == ttservice::internal::SwitchSense::Listed)),
                "a predicate answers in its own sense", key);
    }

    void checkConcentration(int platform) const {
        std::optional<std::pair<double, double>> expected;
        for (const tests::SlowCreditEntry& entry : tests::slowCreditList(value(keys::concentrationRatio))) {
            if (entry.platform != platform || entry.fields.size() < 2) continue;
            expected.emplace(tests::slowLooseDouble(entry.fields[0]), tests::slowLooseDouble(entry.fields[1]));
        }
        double first = -7.0;
        double second = -7.0;
        require(store.isUseConcentrationRatioPts(platform, first, second) == expected.has_value(),
                "concentration ratios agree on who has them");
        if (!expected) expected.emplace(-7.0, -7.0);
        require(isSame(first, expected->first) && isSame(second, expected->second), "concentration ratios agree");
    }

    static bool isSame(double left, double right) {
        return left == right || (std::isnan(left) && std::isnan(right));
    }

    void checkCollateralSale(int platform) const {
        std::set<std::string> codes;
        for (const tests::SlowCreditEntry& entry : tests::slowCreditList(value(keys::collateralSaleRepay))) {
            if (entry.platform == platform) codes.insert(entry.fields.begin(), entry.fields.end());
        }
        codes.erase(std::string());
        for (const std::string& word : named.words) {
            require(store.isRepayDebtByCollateralSell(platform, word) == (codes.count(word) > 0),
                    "collateral-sale codes agree");
        }
    }

    void checkBonds() const {
        std::map<std::string, double> ratios;
        if (const standin::SettingsSection* section = text.findSection("StandardBondUseLimit")) {
            for (const standin::SettingsEntry& entry : section->entries) {
                if (entry.repeated) continue;
                const double ratio = tests::slowStrictNumber<double>(std::string(entry.value)).value_or(1.0);
                ratios.emplace(entry.key, ratio);
                ratios.emplace(tests::slowUpperCase(std::string(entry.key)), ratio);
            }
        }
        for (const auto& [code, ratio] : ratios)
            require(store.getStandardBondUseLimit(code) == ratio, "bond ratios agree", code);
        for (const std::string& word : named.words) {
            if (ratios.count(word) == 0) require(store.getStandardBondUseLimit(word) == 1.0, "unknown bonds have 1");
        }
    }

    void askFundsAndUnits(const std::string& market, const std::string& code) const {
        for (const int platform : named.platforms)
            static_cast<void>(store.isMonetaryFundUseSloBalanceFirst(platform, market, code));
        static_cast<void>(store.isNeedFixPriceByNonTradeMonetaryFund(market, code));
        static_cast<void>(ttservice::getStockUnit(market, code));
        static_cast<void>(ttservice::getStockTradeUnit(market, code));
        for (const int operation : {-1, 57, 1032}) {
            const auto op = static_cast<EOperationType>(operation);
            static_cast<void>(ttservice::isBuyOpt(op));
            static_cast<void>(ttservice::getTradeMinUnit(market, code, op));
            static_cast<void>(ttservice::getUiMinUnit(market, code, false, op));
            static_cast<void>(ttservice::getUiMinUnit(market, code, true, op));
        }
    }

    ConfigCollector& store;
    const SettingsText& text;
    const Named named;
};

}  // namespace

void askEverything(ConfigCollector& store, const SettingsText& text) {
    Asking asking(store, text);
    asking.askSwitches();
    asking.askSingles();
    asking.askPlatformValues();
    asking.askCredit();
    asking.askLimits();
    asking.askCatalogues();
}

}  // namespace fuzz

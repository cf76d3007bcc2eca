// Queries of the target "load" about switches, single values and values by platform.

#include "fuzz/load/loadquestions.h"

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/support/samenumber.h"
#include "fuzz/support/target.h"
#include "tests/support/slowgrammars.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"

namespace fuzz {

namespace {

using ttservice::internal::SettingKey;
using ttservice::internal::SwitchSense;
namespace keys = ttservice::internal::keys;

template <typename Value>
Value at(const tests::SlowPerPlatform<Value>& table, int platform) {
    const auto found = table.values.find(platform);
    return found == table.values.end() ? table.fallback : found->second;
}

template <typename Value>
bool lists(const tests::SlowPerPlatform<Value>& table, int platform) {
    return table.values.count(platform) > 0;
}

int integer(const Asked& asked, const SettingKey& key, int missing) {
    return tests::slowStrictNumber<int>(asked.slow.value(key)).value_or(missing);
}

bool flag(const Asked& asked, const SettingKey& key) {
    return integer(asked, key, 0) == 1;
}

const std::vector<int>& listOf(const Asked& asked, const std::string& key) {
    static const std::vector<int> kNone;
    const auto found = asked.slow.switches.find(key);
    return found == asked.slow.switches.end() ? kNone : found->second;
}

bool isListed(const Asked& asked, const std::string& key, int platform) {
    const std::vector<int>& list = listOf(asked, key);
    return std::find(list.begin(), list.end(), platform) != list.end();
}

void checkSwitch(const Asked& asked, const std::string& key, int platform, bool answer, SwitchSense sense) {
    const bool expected = isListed(asked, key, platform);
    require(asked.store.isSomePt(key, platform) == expected, "a switch is its list", key);
    require(answer == (expected == (sense == SwitchSense::Listed)), "a predicate answers in its own sense", key);
}

void checkConcentration(const Asked& asked, int platform) {
    const auto expected = asked.slow.concentration.find(platform);
    const bool has = expected != asked.slow.concentration.end();
    double first = -7.0;
    double second = -7.5;
    require(asked.store.isUseConcentrationRatioPts(platform, first, second) == has,
            "concentration ratios agree on who has them");
    require(isSame(first, has ? expected->second.first : -7.0) && isSame(second, has ? expected->second.second : -7.5),
            "concentration ratios agree");
}

void checkCollateralSale(const Asked& asked, int platform) {
    const auto codes = asked.slow.collateralSale.find(platform);
    for (const std::string& word : asked.named.words) {
        const bool expected = codes != asked.slow.collateralSale.end() && codes->second.count(word) > 0;
        require(asked.store.isRepayDebtByCollateralSell(platform, word) == expected, "collateral-sale codes agree");
    }
}

}  // namespace

void askSwitches(const Asked& asked) {
    ttservice::ConfigCollector& store = asked.store;
    require(store.getAllpts() == asked.slow.switches, "switches are the keys of the main sections");
    require(store.getETFBrokerCLientTag() == asked.slow.etfClient.tag, "the tags of the ETF client agree");
    for (const int platform : asked.named.platforms) {
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning) \
    checkSwitch(asked, key, platform, store.predicate(platform), SwitchSense::sense);
#include "traderbase/base/config/platformswitches.def"
        require(store.isCanQueryETFFromCounter(platform) == (asked.slow.etfClient.tag == std::to_string(platform)),
                "the ETF platform is the tag");
        require(store.isCrtFundTransferUseCreditDetail(platform), "a fixed answer");
    }
    for (const std::string& word : asked.named.words) {
        require(store.getMaxPermission(word) == 0, "no permission was set");
        require(store.getPts(word) == listOf(asked, word), "lists of switches agree", word);
        for (const int platform : asked.named.platforms)
            require(store.isSomePt(word, platform) == isListed(asked, word, platform), "any key is a switch", word);
    }
}

void askSingles(const Asked& asked) {
    ttservice::ConfigCollector& store = asked.store;
    require(store.isShowMaxCanOrder() == flag(asked, keys::showMaxCanOrder), "flags agree");
    require(store.showNewCompacts() == flag(asked, keys::showNewCompacts), "flags agree");
    require(store.useRegistRules() == flag(asked, keys::registRules), "flags agree");
    require(store.useRegistIPORules() == flag(asked, keys::registIPORules), "flags agree");
    require(store.useNewBondRules("SH") == flag(asked, keys::shangHaiNewBondRules), "flags agree");
    require(store.useNewShangHaiLoanRules() == flag(asked, keys::shangHaiNewBondRules), "flags agree");
    require(store.useNewBondRules("SZ") == flag(asked, keys::shenZhenNewBondRules), "flags agree");
    require(store.useGlobalRef() == flag(asked, keys::globalRef), "flags agree");
    require(store.useSplitPageOfStkCompact() == flag(asked, keys::splitPageOfStkCompact), "flags agree");
    require(store.isCreditCompactDeferT3() == flag(asked, keys::creditCompactDeferT3), "flags agree");
    require(store.getRefLimit() == integer(asked, keys::refLimit, 0), "integers agree");
    require(store.getFlowHistoryDays() == integer(asked, keys::flowHistoryDays, -1), "integers agree");
    require(store.getHgtSgtPriceDiff() == asked.slow.value(keys::hgtSgtPriceDiff), "texts agree");
    require(store.getQuoterAdress().empty() && store.isNeedUseETFOneCode(), "fixed answers");
    require(!store.useNewBondRules("sh"), "markets are compared exactly");
}

void askPlatformValues(const Asked& asked) {
    ttservice::ConfigCollector& store = asked.store;
    const SlowStore& slow = asked.slow;
    for (const int platform : asked.named.platforms) {
        require(store.isT0ForReturnStockPts(platform) == at(slow.t0ForReturnStock, platform), "returned stock agrees");
        require(store.isSPXCreditStockPts(platform) == at(slow.spxCredit, platform), "SPX modules agree");
        require(store.isMainAccountcalcCompactsBydealPts(platform) == at(slow.mainAccount, platform),
                "main accounts agree");
        require(store.getRenewalPts(platform) == at(slow.renewal, platform), "renewals agree");
        require(store.getCounterMaxCompactsRespNum(platform) == at(slow.counterMaxCompacts, platform),
                "numbers of contracts agree");
        require(store.useCounterIpwanPos(platform) == (at(slow.counterIpwan, platform) != 0), "positions agree");
    }
}

void askCredit(const Asked& asked) {
    ttservice::ConfigCollector& store = asked.store;
    const SlowStore& slow = asked.slow;
    for (const int platform : asked.named.platforms) {
        require(isSame(store.getisSetavailable(platform), at(slow.setAvailable, platform)), "balances agree");
        require(store.isSetavailable(platform) == lists(slow.setAvailable, platform), "balances agree on who has them");
        require(isSame(store.getSpecailEnableVolStkExchangeRate(platform), at(slow.specialRate, platform)),
                "exchange rates agree");
        require(store.isUseSpecialEnableBalCalcVolume(platform) == lists(slow.specialRate, platform),
                "exchange rates agree on who has them");
        require(store.isNeedCheckAssureEnbuyBalancePts(platform) == at(slow.checkAssure, platform),
                "credit flags agree");
        require(store.getFinEnableBailRatio(platform) == 0.6, "the ratio that no load reads");
        require(!store.isUseFinEnableBailRatio(platform), "the ratio that no load reads");
        checkConcentration(asked, platform);
        checkCollateralSale(asked, platform);
    }
}

void askEverything(const Asked& asked) {
    askSwitches(asked);
    askSingles(asked);
    askPlatformValues(asked);
    askCredit(asked);
    askLimits(asked);
    askBonds(asked);
    askContracts(asked);
    askProducts(asked);
    askFunds(asked);
}

}  // namespace fuzz

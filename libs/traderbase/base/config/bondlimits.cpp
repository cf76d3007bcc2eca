// Bond limits: answers the order parameters of the fixed-income platform and the usage ratio of standard bonds.
// Entry points: getSHFixIncomeLimit, getStandardBondUseLimit.
// Owns: BondLimitState.
// Covered by tests/config/bondlimits_test.cpp.

#include <utility>

#include <ttplatform/configuration.h>
#include <boost/algorithm/string/case_conv.hpp>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/limits/fixedincome.h"
#include "traderbase/base/config/internal/states/bondlimitstate.h"
#include "traderbase/base/config/internal/states/storestate.h"
#include "traderbase/base/config/internal/store/replacing.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "traderbase/base/config/shfixincomelimit.h"

namespace ttservice {

namespace keys = internal::keys;

// The table is not cleared: when a key is missing or malformed, its type keeps the values of the previous load.
void internal::readSHFixIncomeLimitConfig(const utils::Configuration& configuration, BondLimitState& state) {
    decltype(state.fixedIncome) fresh;
    for (const FixedIncomeKey& key : kFixedIncomeKeys) {
        const std::string value = readText(configuration, *key.key);
        if (auto limit = fixedIncomeLimit(value)) fresh[key.bondTradeType] = std::move(limit);
    }
    replaceEntries(state.fixedIncome, fresh);
}

void internal::readStandardBondUseLimit(const utils::Configuration& configuration, BondLimitState& state) {
    decltype(state.standardBondUse) fresh;
    const std::string section(keys::standardBondUse.section);
    const double fallback = valueWhenMissing<double>(keys::standardBondUse);
    for (const std::string& code : configuration.getProperties(section)) {
        const double ratio = configuration.readDouble(section, code, fallback);
        // emplace, not assignment: if two rows give the same code, the first one counts.
        fresh.emplace(code, ratio);
        fresh.emplace(boost::algorithm::to_upper_copy(code), ratio);
    }
    state.standardBondUse.swap(fresh);
}

boost::shared_ptr<SHFixIncomeLimit> ConfigCollector::getSHFixIncomeLimit(EBondTradeType tradeType) const {
    const auto& limits = state->bonds->fixedIncome;
    const auto found = limits.find(static_cast<int>(tradeType));
    return found == limits.end() ? boost::shared_ptr<SHFixIncomeLimit>() : found->second;
}

// The code is not converted to upper case: a lower-case query does not match an upper-case row.
double ConfigCollector::getStandardBondUseLimit(const std::string& code) const {
    const auto& ratios = state->bonds->standardBondUse;
    const auto found = ratios.find(code);
    return found == ratios.end() ? internal::valueWhenMissing<double>(keys::standardBondUse) : found->second;
}

}  // namespace ttservice

// The instrument whose unit is wanted: the platform queries that several unit rules share.
// Entry points: UnitInstrument, isStepSet().
// Covered by tests/config/tradeunit/.

#include "traderbase/base/config/internal/units/unitinstrument.h"

#include <cmath>

#include <ttplatform/enums.h>
#include <ttplatform/instruments.h>

namespace ttservice::internal {

namespace {

const IDataCenter& dataCenter() {
    return TraderCenter::instance().getDataCenter();
}

}  // namespace

bool UnitInstrument::isOn(std::string_view fixedMarket, int type) const {
    return StockTypeCenter::instance().isTypedStock(type, std::string(fixedMarket), code);
}

bool UnitInstrument::isBase(int type) const {
    return isTypedStock(type, market, code, std::string());
}

bool UnitInstrument::passesMarketTest() const {
    return dataCenter().passesFirstMarketTest(market, code) || dataCenter().passesSecondMarketTest(market, code);
}

boost::shared_ptr<const IInstrumentRecord> UnitInstrument::record() const {
    return dataCenter().getInstrument(market, code);
}

bool UnitInstrument::followsNewBondRules(int op, const UnitSwitches& switches) const {
    return switches.useNewBondRules(market) && isNewRulesBond(market, code, OPT_INVALID, BOND_TRADE_ORDINARY) &&
           op != 30 && op != 31;
}

boost::shared_ptr<const BondRuleRecord> UnitInstrument::bondRule(int op) const {
    return dataCenter().getBondRule(market, code, getBondTradeType(static_cast<EOperationType>(op)));
}

bool isStepSet(int step) {
    return std::fabs(static_cast<double>(step)) > 0.00001;
}

}  // namespace ttservice::internal

// Trade units: answers how an instrument is counted and in which steps it is ordered.
// Entry points: isBuyOpt, getStockUnit, getStockTradeUnit, getTradeMinUnit, getUiMinUnit; the rules are in
// internal/units.
// Covered by tests/config/tradeunit/.

#include "traderbase/base/config/tradeunit.h"

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/units/tradeunitrules.h"
#include "traderbase/base/config/internal/words/buyoperations.h"

namespace ttservice {

namespace {

// The first call of instance() builds the store, so a rule calls it only when it needs a switch.
constexpr internal::UnitSwitches kStoreSwitches{
    [](const std::string& market) { return ConfigCollector::instance()->useNewBondRules(market); },
    [] { return ConfigCollector::instance()->useRegistIPORules(); },
};

}  // namespace

bool isBuyOpt(EOperationType op) {
    return internal::isBuyOperation(op);
}

std::string getStockUnit(const std::string& market, const std::string& code) {
    return std::string(internal::stockUnit(market, code).value);
}

int getStockTradeUnit(const std::string& market, const std::string& code) {
    return internal::stockTradeUnit(market, code).value;
}

int getTradeMinUnit(const std::string& market, const std::string& code) {
    return getTradeMinUnit(market, code, OPT_INVALID);
}

int getTradeMinUnit(const std::string& market, const std::string& code, EOperationType op) {
    return internal::tradeMinUnit(market, code, op, kStoreSwitches).value;
}

int getUiMinUnit(const std::string& market, const std::string& code, bool flag) {
    return getUiMinUnit(market, code, flag, OPT_INVALID);
}

int getUiMinUnit(const std::string& market, const std::string& code, bool flag, EOperationType op) {
    return internal::uiMinUnit(market, code, flag, op, kStoreSwitches).value;
}

}  // namespace ttservice

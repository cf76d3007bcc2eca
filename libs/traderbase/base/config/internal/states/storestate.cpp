// Store state: creates and releases the states of all topics.
// Entry points: StoreState.
// Owns: the order in which they are created.
// Covered by tests/config/configcollector_test.cpp.

#include "traderbase/base/config/internal/states/storestate.h"

#include "traderbase/base/config/internal/states/algorithmtypestate.h"
#include "traderbase/base/config/internal/states/blocktradestate.h"
#include "traderbase/base/config/internal/states/bondlimitstate.h"
#include "traderbase/base/config/internal/states/contractstate.h"
#include "traderbase/base/config/internal/states/creditstate.h"
#include "traderbase/base/config/internal/states/loadstate.h"
#include "traderbase/base/config/internal/states/moneyfundstate.h"
#include "traderbase/base/config/internal/states/orderlimitstate.h"
#include "traderbase/base/config/internal/states/ratelimitstate.h"
#include "traderbase/base/config/internal/states/runtimestate.h"
#include "traderbase/base/config/internal/states/scalarstate.h"
#include "traderbase/base/config/internal/states/specialproductstate.h"
#include "traderbase/base/config/internal/states/tradingtimestate.h"

namespace ttservice::internal {

StoreState::StoreState()
    : load(std::make_unique<LoadState>()),
      scalars(std::make_unique<ScalarState>()),
      runtime(std::make_unique<RuntimeState>()),
      orderLimits(std::make_unique<OrderLimitState>()),
      blockTrades(std::make_unique<BlockTradeState>()),
      rates(std::make_unique<RateLimitState>()),
      bonds(std::make_unique<BondLimitState>()),
      credit(std::make_unique<CreditState>(switches.lock())),
      contracts(std::make_unique<ContractState>()),
      algorithmTypes(std::make_unique<AlgorithmTypeState>()),
      specialProducts(std::make_unique<SpecialProductState>()),
      moneyFunds(std::make_unique<MoneyFundState>()),
      tradingTimes(std::make_unique<TradingTimeState>()) {}

StoreState::~StoreState() = default;

}  // namespace ttservice::internal

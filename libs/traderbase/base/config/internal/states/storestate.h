#pragma once

#include <memory>

#include "traderbase/base/config/internal/switches/platformswitches.h"

namespace utils {
class Configuration;
}

namespace ttservice::internal {

struct LoadState;
struct ScalarState;
struct RuntimeState;
struct OrderLimitState;
struct BlockTradeState;
struct RateLimitState;
struct BondLimitState;
struct CreditState;
struct ContractState;
struct AlgorithmTypeState;
struct SpecialProductState;
struct MoneyFundState;
struct TradingTimeState;

// Everything that a store keeps, a state for each topic. A room includes the header of its own state and no other's, so
// that the others stay incomplete there and out of its reach. What a new setting needs is a member of its topic's
// state.
struct StoreState {
    StoreState();
    StoreState(const StoreState&) = delete;
    StoreState& operator=(const StoreState&) = delete;
    ~StoreState();

    PlatformSwitches switches;  // not behind a pointer: the predicates are asked most
    const std::unique_ptr<LoadState> load;
    const std::unique_ptr<ScalarState> scalars;
    const std::unique_ptr<RuntimeState> runtime;
    const std::unique_ptr<OrderLimitState> orderLimits;
    const std::unique_ptr<BlockTradeState> blockTrades;
    const std::unique_ptr<RateLimitState> rates;
    const std::unique_ptr<BondLimitState> bonds;
    const std::unique_ptr<CreditState> credit;
    const std::unique_ptr<ContractState> contracts;
    const std::unique_ptr<AlgorithmTypeState> algorithmTypes;
    const std::unique_ptr<SpecialProductState> specialProducts;
    const std::unique_ptr<MoneyFundState> moneyFunds;
    const std::unique_ptr<TradingTimeState> tradingTimes;
};

// The section readers, each on the state of its topic.
#define TT_SECTION_READER(reader, topic) \
    void reader(const utils::Configuration& configuration, decltype(StoreState::topic)::element_type& state);
#include "traderbase/base/config/loadorder.def"

// Readers outside the load order: their settings keep what the store is born with. That is meant.
void readETFOneCodeConfig(const utils::Configuration& configuration, ScalarState& state);
void readFinEnableBailRatio(const utils::Configuration& configuration, CreditState& state);

}  // namespace ttservice::internal

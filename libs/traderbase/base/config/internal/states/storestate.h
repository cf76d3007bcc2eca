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

// Everything in a store, one state per topic. A topic's source includes the header of its own state only; all other
// states stay incomplete types there and out of reach. A new setting becomes a member of its topic's state.
struct StoreState {
    StoreState();
    StoreState(const StoreState&) = delete;
    StoreState& operator=(const StoreState&) = delete;
    ~StoreState();

    PlatformSwitches switches;  // not behind a pointer: the predicates are the hot path
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

// The section readers, each filling the state of its topic.
#define TT_SECTION_READER(reader, topic) \
    void reader(const utils::Configuration& configuration, decltype(StoreState::topic)::element_type& state);
#include "traderbase/base/config/loadorder.def"

// Readers deliberately left out of the load order: their settings keep their initial values.
void readETFOneCodeConfig(const utils::Configuration& configuration, ScalarState& state);
void readFinEnableBailRatio(const utils::Configuration& configuration, CreditState& state);

}  // namespace ttservice::internal

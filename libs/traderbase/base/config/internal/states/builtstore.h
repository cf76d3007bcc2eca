#pragma once

#include <memory>
#include <utility>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/states/storestate.h"

namespace ttservice::internal {

// The concrete class of every store. Tests that link the library's objects use it to reach a store's internals; the
// shared library exports none of it.
class BuiltStore : public ConfigCollector {
public:
    explicit BuiltStore(std::unique_ptr<StoreState> initial) : ConfigCollector(std::move(initial)) {}

    using ConfigCollector::getRealNumber;
    using ConfigCollector::getSerialNumber;

    StoreState& keptState() const { return *state; }
};

// The state behind a store.
StoreState& stateOf(const ConfigCollector& store);

}  // namespace ttservice::internal

#pragma once

#include <boost/shared_ptr.hpp>

namespace ttservice {

class ConfigCollector;

namespace internal {

// The slot behind instance(). A load passes its switches to the store in the slot, so code that builds a second store
// to work on must put it into the slot first.
struct StoreSlot {
    // The store that instance() returns; the first call builds it.
    static boost::shared_ptr<ConfigCollector> current();

    // A new store that is not in the slot.
    static boost::shared_ptr<ConfigCollector> build();

    // Puts a store into the slot and returns the previous one. No other thread may use the slot during the call.
    static boost::shared_ptr<ConfigCollector> exchange(boost::shared_ptr<ConfigCollector> store);

private:
    static boost::shared_ptr<ConfigCollector>& slot();
};

}  // namespace internal
}  // namespace ttservice

#pragma once

#include <boost/shared_ptr.hpp>

namespace ttservice {

class ConfigCollector;

namespace internal {

// Where instance() keeps the store. A load hands its switches to the store in the slot, so whoever builds a second one
// to work on puts it in here first.
struct StoreSlot {
    // The store that instance() answers; built by the first caller.
    static boost::shared_ptr<ConfigCollector> current();

    // A new store, known to nobody.
    static boost::shared_ptr<ConfigCollector> build();

    // Puts a store in the slot and gives back the one that was there. Not to be called while others ask.
    static boost::shared_ptr<ConfigCollector> exchange(boost::shared_ptr<ConfigCollector> store);

private:
    static boost::shared_ptr<ConfigCollector>& slot();
};

}  // namespace internal
}  // namespace ttservice

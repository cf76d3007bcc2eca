// The store: how it is created, and what a load does in which order.
// Entry points: instance, readConfig, getOriginalStr; internal::StoreSlot.
// Owns: LoadState.
// Covered by tests/config/configcollector_test.cpp and loadorder_test.cpp.

#include "traderbase/base/config/configcollector.h"

#include <utility>

#include <ttplatform/configuration.h>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/platforms/platformlist.h"
#include "traderbase/base/config/internal/states/builtstore.h"
#include "traderbase/base/config/internal/states/loadstate.h"
#include "traderbase/base/config/internal/states/storestate.h"
#include "traderbase/base/config/internal/store/lastingslot.h"
#include "traderbase/base/config/internal/store/storeslot.h"

namespace ttservice {

static_assert(sizeof(ConfigCollector) == sizeof(void*), "what a setting needs goes into its topic's state");

namespace internal {

namespace {

// A store built after the process's own is gone reads no script and so logs nothing.
boost::shared_ptr<ConfigCollector> buildStore(Lifetime lifetime) {
    boost::shared_ptr<ConfigCollector> store(new BuiltStore(std::make_unique<StoreState>()));
    if (lifetime == Lifetime::Process) store->initMarketTradingTime();
    return store;
}

}  // namespace

StoreState& stateOf(const ConfigCollector& store) {
    return static_cast<const BuiltStore&>(store).keptState();
}

boost::shared_ptr<ConfigCollector>& StoreSlot::slot() {
    return lastingSlot<ConfigCollector>(&StoreSlot::build);
}

boost::shared_ptr<ConfigCollector> StoreSlot::current() {
    const boost::shared_ptr<ConfigCollector>& store = slot();
    return store ? store : buildStore(Lifetime::AfterTheEnd);
}

boost::shared_ptr<ConfigCollector> StoreSlot::build() {
    return buildStore(Lifetime::Process);
}

boost::shared_ptr<ConfigCollector> StoreSlot::exchange(boost::shared_ptr<ConfigCollector> store) {
    slot().swap(store);
    return store;
}

}  // namespace internal

boost::shared_ptr<ConfigCollector> ConfigCollector::instance() {
    return internal::StoreSlot::current();
}

ConfigCollector::ConfigCollector(std::unique_ptr<internal::StoreState> initial) : state(std::move(initial)) {}

ConfigCollector::~ConfigCollector() = default;

void ConfigCollector::readConfig(std::string path) {
    utils::Configuration configuration(std::string(), true);
    configuration.parse(path);
    state->load->path = std::move(path);

    instance()->state->switches.replace(internal::readSwitchLists(configuration, std::string(internal::kMainSection)));

#define TT_SECTION_READER(reader, topic) internal::reader(configuration, *state->topic);
#include "traderbase/base/config/loadorder.def"
    state->load->loaded = true;
}

void ConfigCollector::getOriginalStr(std::string& out) const {
    out = state->load->path;
}

}  // namespace ttservice

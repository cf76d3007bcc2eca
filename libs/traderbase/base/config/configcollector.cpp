// The store: how it comes to be, what a load does and in which order, and the local overrides.
// Doors: instance, readConfig, getOriginalStr, addLocalConfig, setUseLocalConfig; internal::StoreSlot.
// Owns: configPath, loaded, localOverrides.
// Covered by tests/config/configcollector_test.cpp and loadorder_test.cpp.

#include "traderbase/base/config/configcollector.h"

#include <utility>

#include <ttplatform/configuration.h>
#include <boost/make_shared.hpp>

#include "traderbase/base/config/internal/platforms/platformlist.h"
#include "traderbase/base/config/internal/store/lastingslot.h"
#include "traderbase/base/config/internal/store/storeslot.h"

namespace ttservice {

namespace internal {

boost::shared_ptr<ConfigCollector>& StoreSlot::slot() {
    return lastingSlot<ConfigCollector>(&StoreSlot::build);
}

boost::shared_ptr<ConfigCollector> StoreSlot::current() {
    const boost::shared_ptr<ConfigCollector>& store = slot();
    return store ? store : boost::shared_ptr<ConfigCollector>(new ConfigCollector(Lifetime::AfterTheEnd));
}

boost::shared_ptr<ConfigCollector> StoreSlot::build() {
    return boost::shared_ptr<ConfigCollector>(new ConfigCollector(Lifetime::Process));
}

boost::shared_ptr<ConfigCollector> StoreSlot::exchange(boost::shared_ptr<ConfigCollector> store) {
    slot().swap(store);
    return store;
}

}  // namespace internal

boost::shared_ptr<ConfigCollector> ConfigCollector::instance() {
    return internal::StoreSlot::current();
}

ConfigCollector::ConfigCollector(internal::Lifetime lifetime) {
    if (lifetime == internal::Lifetime::Process) init();
}

ConfigCollector::~ConfigCollector() = default;

void ConfigCollector::init() {
    {
        const internal::ReadMostlyMutex::Writer writer(ptsMutex);
        pts.clear();
        switchSlots.clearLists();
    }
    initMarketTradingTime();
}

void ConfigCollector::readConfig(std::string path) {
    using Reader = void (ConfigCollector::*)(const ConfigurationPtr&);
    static constexpr Reader kReaders[] = {
#define TT_SECTION_READER(reader) &ConfigCollector::reader,
#include "traderbase/base/config/loadorder.def"
    };

    const auto configuration = boost::make_shared<utils::Configuration>(std::string(), true);
    configuration->parse(path);
    configPath = std::move(path);

    instance()->setLists(internal::readSwitchLists(*configuration, "setting"));

    for (const Reader reader : kReaders)
        (this->*reader)(configuration);
    loaded = true;
}

void ConfigCollector::getOriginalStr(std::string& out) const {
    out = configPath;
}

void ConfigCollector::addLocalConfig(const std::string& name, bool value) {
    localOverrides[name] = value;
    switchSlots.setOverride(name, value);
}

void ConfigCollector::setUseLocalConfig(const std::map<std::string, bool>& overrides) {
    localOverrides = {overrides.begin(), overrides.end()};
    switchSlots.clearOverrides();
    for (const auto& [name, value] : localOverrides)
        switchSlots.setOverride(name, value);
}

}  // namespace ttservice

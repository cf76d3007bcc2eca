#pragma once

#include <string>
#include <string_view>

#include "tests/support/standarderror.h"
#include "tests/support/tempfile.h"
#include "traderbase/base/config/configcollector.h"

namespace tests {

// Loads settings given as text into the process's store, and keeps the library's own lines out of the test's output.
// Each test runs in a process of its own, so each starts with a fresh store.
class LoadedStore {
public:
    LoadedStore() = default;
    explicit LoadedStore(std::string_view settings) { load(settings); }

    void load(std::string_view settings) {
        const StandardError caught;
        store->readConfig(folder.write("settings.ini", settings));
        complaints = caught.text();
    }

    ttservice::ConfigCollector* operator->() const { return store.get(); }
    ttservice::ConfigCollector& operator*() const { return *store; }

    // What the last load wrote to standard error.
    const std::string& lastComplaints() const { return complaints; }

private:
    TempFolder folder;
    boost::shared_ptr<ttservice::ConfigCollector> store = ttservice::ConfigCollector::instance();
    std::string complaints;
};

}  // namespace tests

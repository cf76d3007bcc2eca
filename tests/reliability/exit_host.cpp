// A host whose own static objects query the library while they are destroyed: one made before the singletons, so it
// outlives them; one made after them; and one that holds what the library gave it.

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/tradeunit.h"

using ttservice::AlgorithmParamConfig;
using ttservice::ConfigCollector;

namespace {

void require(bool holds, const char* what) {
    if (holds) return;
    std::printf("broken: %s\n", what);
    std::fflush(stdout);
    std::_Exit(1);
}

// Checks that every query gets an answer: from the settings if isLoaded, otherwise from the defaults.
void askEverything(bool isLoaded) {
    const auto store = ConfigCollector::instance();
    const auto catalogue = AlgorithmParamConfig::instance();
    require(store != nullptr && catalogue != nullptr, "there is a store and a catalogue");
    require(store->isNeedMaxAmountPts(12) == isLoaded, "a switch answers");
    require(store->getOrderLimit("SSE", "600000", BROKER_PRICE_INVALID).first > 0, "a limit answers");
    require(store->getRateLimitPtr("SSE", "600000") != nullptr, "a rate answers");
    require(ttservice::getTradeMinUnit("SH", "600000") > 0, "a trade unit answers");
    store->setPts({{"needmaxamount", {12, 13}}});
    store->addLocalConfig("needmaxamount", isLoaded);
    require((catalogue->getAlgoParam("x") != nullptr) == isLoaded, "a catalogue answers");
    std::map<std::string, std::string> times;
    catalogue->getMarketTimeMap(times);
}

struct MadeBefore {
    MadeBefore() = default;
    MadeBefore(const MadeBefore&) = delete;
    MadeBefore& operator=(const MadeBefore&) = delete;
    ~MadeBefore() {
        require(held != nullptr && held->isNeedMaxAmountPts(12), "a store that is held stays as it is");
        held.reset();
        askEverything(false);
        askEverything(false);
        loadOnceMore();
        std::puts("all asked");
        std::fflush(stdout);
    }

    // Uses one store throughout: at this stage instance() returns a new one each time.
    void loadOnceMore() const {
        const auto store = ConfigCollector::instance();
        store->readConfig(settings);
        require(store->getFlowHistoryDays() == 5, "a load reads");
        store->initMarketTradingTime(std::map<std::string, std::string>{{"SSE", R"({"93000":50,"113000":49})"}});
        require(store->getTradingTime("SSE").size() == 1, "sessions are taken");
        const auto catalogue = AlgorithmParamConfig::instance();
        catalogue->readCiticConfig(R"({"content":{"name":"y"}})");
        require(catalogue->getAlgoParam("y") != nullptr, "a description is taken");
        catalogue->readCiticConfig("{");
    }

    boost::shared_ptr<ConfigCollector> held;
    std::string settings;
};

struct MadeAfter {
    MadeAfter() = default;
    MadeAfter(const MadeAfter&) = delete;
    MadeAfter& operator=(const MadeAfter&) = delete;
    ~MadeAfter() { askEverything(true); }
};

MadeBefore madeBefore;

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    madeBefore.settings = argv[1];
    madeBefore.held = ConfigCollector::instance();
    AlgorithmParamConfig::instance()->readCiticConfig(R"({"content":{"name":"x"}})");
    static MadeAfter madeAfter;
    ConfigCollector::instance()->readConfig(argv[1]);
    return 0;
}

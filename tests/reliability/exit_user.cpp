// A plug-in of a host: uses both singletons through the shared library.

#include <map>
#include <string>

#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/configcollector.h"

// Returns 0 when every answer was right.
extern "C" __attribute__((visibility("default"))) int useTheLibrary(const char* settings) {
    const auto store = ttservice::ConfigCollector::instance();
    if (store->isNeedMaxAmountPts(12)) return 1;  // state left over from the previous load of the library
    store->readConfig(settings);
    if (!store->isNeedMaxAmountPts(12)) return 2;
    store->initMarketTradingTime(std::map<std::string, std::string>{{"SSE", R"({"93000":50,"113000":49})"}});
    if (store->getTradingTime("SSE").size() != 1) return 3;
    const auto catalogue = ttservice::AlgorithmParamConfig::instance();
    if (!catalogue->getAlgoritmsParams().empty()) return 4;
    catalogue->readCiticConfig(R"({"content":{"name":"x"}})");
    return catalogue->getAlgoParam("x") != nullptr ? 0 : 5;
}

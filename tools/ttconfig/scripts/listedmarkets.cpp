// Listed markets: reads which markets a market-time script lists.
// Entry points: listedMarkets().
// Covered by tests/tools/ttconfig/scripts/marketsessions_test.cpp.

#include "ttconfig/scripts/listedmarkets.h"

#include <mongo/bson/bson.h>

#include <algorithm>

#include "luaconfig/luaconfig.h"
#include "traderbase/base/config/internal/scripts/jsonobject.h"

namespace ttconfig {

std::vector<std::string> listedMarkets(const std::string& path) {
    luabase::LuaConfig script;
    script.init(path);
    std::vector<std::string> markets;
    const auto list = ttservice::internal::readJsonObject(script.getConfig("getMarkets"));
    if (!list) return markets;
    for (mongo::BSONObjIterator field(*list); field.more();) {
        const std::string market = field.next().fieldName();
        if (std::find(markets.begin(), markets.end(), market) == markets.end()) markets.push_back(market);
    }
    return markets;
}

}  // namespace ttconfig

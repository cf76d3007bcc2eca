// Market-time scripts: calls the functions of a script for its markets and their sessions.
// Entry points: readMarketTimes().
// Covered by tests/config/tradingtime_test.cpp and algorithmparamconfig_test.cpp.

#include "traderbase/base/config/internal/scripts/markettimescript.h"

#include <optional>

#include <mongo/bson/bson.h>

#include "luaconfig/internal/tablescript.h"
#include "traderbase/base/config/internal/scripts/jsonobject.h"

namespace bson = mongo;

namespace ttservice::internal {

bool readMarketTimes(luabase::LuaConfig& script, std::map<std::string, std::string>& sessionTexts) {
    const std::string list = luabase::TableScript::getConfig(script, "getMarkets");
    if (list.empty()) return true;
    const std::optional<bson::BSONObj> markets = readJsonObject(list);
    if (!markets) return false;
    for (bson::BSONObjIterator field(*markets); field.more();) {
        const std::string market = field.next().fieldName();
        sessionTexts[market] = luabase::TableScript::getConfig(script, "getMarketTradeDuration", market);
    }
    return true;
}

}  // namespace ttservice::internal

#pragma once

#include <map>
#include <string>

namespace luabase {
class LuaConfig;
}

namespace ttservice::internal {

// The client's market-time script, relative to its working folder.
inline constexpr const char* kMarketTimeScript = "../luaScripts/MarketTime.lua";

// Calls a market-time script for its markets and then, in their order, for the session text of each; if a market is
// named twice, its last text counts. Returns false and changes nothing if the market list is a text but not a JSON
// object. A script without a list is no failure: there is nothing to read. Throws std::bad_alloc when memory runs out,
// including in the script.
bool readMarketTimes(luabase::LuaConfig& script, std::map<std::string, std::string>& sessionTexts);

}  // namespace ttservice::internal

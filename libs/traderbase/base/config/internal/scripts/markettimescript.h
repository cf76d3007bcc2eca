#pragma once

#include <map>
#include <string>

namespace luabase {
class LuaConfig;
}

namespace ttservice::internal {

// Where the client keeps its market-time script, seen from the folder it runs in.
inline constexpr const char* kMarketTimeScript = "../luaScripts/MarketTime.lua";

// Asks a market-time script for its markets and, in their order, for the session text of each; a market named twice
// keeps the last text. False, and nothing changed, when the script's market list is a text but no JSON object; without
// a list there is nothing to read, and that is no failure. Memory that runs out, the script's included, is
// std::bad_alloc.
bool readMarketTimes(luabase::LuaConfig& script, std::map<std::string, std::string>& sessionTexts);

}  // namespace ttservice::internal

// Market trading time: answers when each market is open.
// Entry points: initMarketTradingTime, getTradingTime, getSecondFromGMT.
// Owns: TradingTimeState.
// Covered by tests/config/tradingtime_test.cpp.

#include "luaconfig/internal/tablescript.h"
#include "luaconfig/luaconfig.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/scripts/markettimescript.h"
#include "traderbase/base/config/internal/scripts/tradingsessions.h"
#include "traderbase/base/config/internal/states/storestate.h"
#include "traderbase/base/config/internal/states/tradingtimestate.h"

namespace ttservice {

void ConfigCollector::initMarketTradingTime() {
    initMarketTradingTime(std::string(internal::kMarketTimeScript));
}

void ConfigCollector::initMarketTradingTime(const std::string& scriptPath) {
    luabase::LuaConfig script;
    luabase::TableScript::init(script, scriptPath);
    std::map<std::string, std::string> sessionTexts;
    internal::readMarketTimes(script, sessionTexts);
    initMarketTradingTime(sessionTexts);
}

void ConfigCollector::initMarketTradingTime(const std::map<std::string, std::string>& sessionTexts) {
    if (sessionTexts.empty()) return;
    state->tradingTimes->sessions = internal::buildTradingSessions(sessionTexts);
}

std::vector<std::pair<int, int>> ConfigCollector::getTradingTime(const std::string& market) const {
    const auto& sessions = state->tradingTimes->sessions;
    const auto found = sessions.find(market);
    return found == sessions.end() ? std::vector<std::pair<int, int>>() : found->second;
}

int ConfigCollector::getSecondFromGMT(int t) {
    constexpr int kSecondsOfDay = 86400;
    constexpr int kEightHours = 28800;
    return t % kSecondsOfDay + kEightHours;
}

int ConfigCollector::getRealNumber(int secondOfDay) {
    return internal::secondOfTradingDay(secondOfDay);
}

int ConfigCollector::getSerialNumber(int clockTime) {
    return internal::secondOfTradingDay(internal::secondOfClockTime(clockTime));
}

}  // namespace ttservice

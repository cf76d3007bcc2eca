// Session data: writes when the markets of the market-time script trade.
// Entry points: writeSessionData().
// Covered by tests/tools/ttconfig/report/reportdata_test.cpp.

#include <standin/filebytes.h>

#include <string>
#include <vector>

#include "traderbase/base/config/configcollector.h"
#include "ttconfig/report/datawriters.h"
#include "ttconfig/scripts/listedmarkets.h"

namespace ttconfig {

namespace {

using ttservice::ConfigCollector;

void writeMarket(JsonStream& json, const std::string& market) {
    json.beginArray();
    json.text(market);
    json.beginArray();
    for (const auto& [start, end] : ConfigCollector::instance()->getTradingTime(market)) {
        json.beginArray();
        json.integer(start);
        json.integer(end);
        json.endArray();
    }
    json.endArray();
    json.endArray();
}

// Why there are no sessions; empty when there are.
std::string readMarkets(const std::string& script, std::vector<std::string>& markets) {
    std::string bytes;
    const standin::FileProblem problem = standin::readFileBytes(script, bytes);
    if (problem != standin::FileProblem::kNone) {
        return "No trading sessions: the market-time script " + script + ": " + standin::fileProblemText(problem) +
               ". Run the report from the folder that the client runs in.";
    }
    markets = listedMarkets(script);
    if (markets.empty()) {
        return "No trading sessions: the market-time script " + script +
               " lists no markets; ttconfig script check tells why.";
    }
    ConfigCollector::instance()->initMarketTradingTime(script);
    return {};
}

}  // namespace

void writeSessionData(JsonStream& json, const ReportInput& input) {
    std::vector<std::string> markets;
    const std::string trouble = readMarkets(input.marketTimeScript, markets);
    json.name("sessions");
    json.beginObject();
    json.name("script");
    json.text(input.marketTimeScript);
    json.name("trouble");
    json.text(trouble);
    json.name("markets");
    json.beginArray();
    for (const std::string& market : markets)
        writeMarket(json, market);
    json.endArray();
    json.endObject();
}

}  // namespace ttconfig

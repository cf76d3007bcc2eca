// ttconfig sessions: shows when the markets trade.
// Entry points: runSessions().
// Covered by tests/tools/ttconfig/scripts/marketsessions_test.cpp.

#include "ttconfig/scripts/marketsessions.h"

#include <algorithm>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/scripts/markettimescript.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/scripts/listedmarkets.h"
#include "ttconfig/scripts/requirescript.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/clocktext.h"
#include "ttconfig/text/nearestname.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/table.h"

namespace ttconfig {

namespace {

using ttservice::ConfigCollector;
using Sessions = std::vector<std::pair<int, int>>;

void requireListed(const std::string& market, const std::vector<std::string>& listed, const std::string& path) {
    if (std::find(listed.begin(), listed.end(), market) != listed.end()) return;
    const std::vector<std::string_view> names(listed.begin(), listed.end());
    throw Fault(kExitUsage, path + " lists no market " + shownText(market) + didYouMean(market, names));
}

bool isOpen(const Sessions& sessions, int second) {
    return std::any_of(sessions.begin(), sessions.end(),
                       [second](const auto& session) { return session.first <= second && second < session.second; });
}

std::string sessionsText(const Sessions& sessions) {
    std::string text;
    for (const auto& [start, end] : sessions)
        text += (text.empty() ? "" : ", ") + clockText(start) + "-" + clockText(end);
    return text.empty() ? "none" : text;
}

Answer sessionsJson(const Sessions& sessions) {
    Answer list = Answer::array();
    for (const auto& [start, end] : sessions)
        list.push_back({start, end});
    return list;
}

// One row per market: its name, whether it trades at the given time (if any), and its sessions.
Table marketTable(const std::vector<std::string>& markets, std::optional<int> second, Format format) {
    Table table{"sessions", "", {"market"}, {}};
    if (second) table.columns.push_back("open");
    table.columns.push_back("sessions");
    for (const std::string& market : markets) {
        const Sessions sessions = ConfigCollector::instance()->getTradingTime(market);
        std::vector<Answer> row{market};
        if (second && format == Format::Json) row.push_back(isOpen(sessions, *second));
        if (second && format != Format::Json) row.push_back(isOpen(sessions, *second) ? "open" : "closed");
        row.push_back(format == Format::Json ? sessionsJson(sessions) : Answer(sessionsText(sessions)));
        table.rows.push_back(std::move(row));
    }
    return table;
}

}  // namespace

void runSessions(const CommandLine& commandLine, Output& output) {
    std::optional<int> second;
    if (commandLine.at) {
        second = secondOfClockText(*commandLine.at);
        if (!second) throw Fault(kExitUsage, "--at " + *commandLine.at + ": write the time as HH:MM:SS");
    }
    carryOut(commandLine.shared);
    const std::string path = commandLine.script.value_or(ttservice::internal::kMarketTimeScript);
    requireScript(path);
    const std::vector<std::string> listed = listedMarkets(path);
    if (listed.empty()) std::cerr << "ttconfig: " << path << " lists no markets; ttconfig script check tells why\n";
    for (const std::string& market : commandLine.words)
        requireListed(market, listed, path);
    if (commandLine.script) ConfigCollector::instance()->initMarketTradingTime(path);
    const Table table = marketTable(commandLine.words.empty() ? listed : commandLine.words, second, commandLine.format);
    output.write(commandLine.format == Format::Json ? answerJson(tableJson(table)) + '\n' : tableText(table));
}

}  // namespace ttconfig

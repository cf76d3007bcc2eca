// Trading sessions: builds them from a market's clock times and status codes.
// Entry points: buildTradingSessions(), sessionStatus(), secondOfClockTime(), secondOfTradingDay().
// Covered by tests/config/internal/scripts/tradingsessions_test.cpp.

#include "traderbase/base/config/internal/scripts/tradingsessions.h"

#include <algorithm>
#include <optional>

#include <mongo/bson/bson.h>

#include "logging/guardedlog.h"
#include "traderbase/base/config/internal/scripts/jsonobject.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace bson = mongo;

namespace ttservice::internal {

namespace {

constexpr int kSecondsOfDay = 86400;
constexpr int kNightTradingStart = 73800;  // 20:30:00

// A market's points: the status at each clock time, and the order in which the text names the clock times.
struct Points {
    std::map<int, int> statusAt;
    std::vector<int> named;  // a clock time named twice appears twice
};

int truncated(double number) {
    const bool fits = number > -2147483649.0 && number < 2147483648.0;
    return fits ? static_cast<int>(number) : 0;
}

Points readPoints(const std::string& text) {
    Points points;
    const std::optional<bson::BSONObj> object = readJsonObject(text);
    if (!object) return points;
    for (bson::BSONObjIterator field(*object); field.more();) {
        const bson::BSONElement element = field.next();
        const int clockTime = looseInt(element.fieldName());
        points.statusAt[clockTime] = sessionStatus(element);
        points.named.push_back(clockTime);
    }
    return points;
}

void logPoints(const std::string& market, const Points& points) {
    if (points.named.size() < 2) return;
    writeIfPossible([&] {
        if (!debugWanted(kTradingTimeChannel)) return;
        std::vector<std::pair<int, int>> shifted;
        for (const int clockTime : points.named)
            shifted.emplace_back(secondOfTradingDay(secondOfClockTime(clockTime)), points.statusAt.at(clockTime));
        std::stable_sort(shifted.begin(), shifted.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        logDebug(kTradingTimeChannel, "points market {0}", market);
        for (const auto& [second, status] : shifted)
            logDebug(kTradingTimeChannel, "points = {0}  status {1}", second, status);
    });
}

// Goes through the day in clock order, starting at midnight. Evening times are not shifted here: a close after midnight
// comes before the open it belongs to, finds no open session and is ignored.
TradingSessions sessionsOf(const Points& points) {
    TradingSessions sessions;
    int start = -1;
    for (const auto& [clockTime, status] : points.statusAt) {
        const int second = secondOfClockTime(clockTime);
        if (status == kSessionOpens) {
            start = second;  // even if a session is open: it starts again here
        } else if ((status == kSessionCloses || status == kSessionClosesToo) && start >= 0) {
            sessions.emplace_back(start, second);
            start = -1;
        }
    }
    if (start >= 0) sessions.emplace_back(start, kSecondsOfDay);
    return sessions;
}

}  // namespace

int sessionStatus(const bson::BSONElement& value) {
    switch (value.type()) {
        case bson::NumberInt:
            return value._numberInt();
        case bson::NumberLong:
            return static_cast<int>(value._numberLong());  // deliberately the low 32 bits
        case bson::NumberDouble:
            return truncated(value._numberDouble());
        default:
            return 0;
    }
}

int secondOfClockTime(int clockTime) {
    return clockTime / 10000 * 3600 + clockTime % 10000 / 100 * 60 + clockTime % 100;
}

int secondOfTradingDay(int secondOfDay) {
    return secondOfDay >= kNightTradingStart ? secondOfDay - kSecondsOfDay : secondOfDay;
}

std::map<std::string, TradingSessions> buildTradingSessions(const std::map<std::string, std::string>& sessionTexts) {
    std::map<std::string, TradingSessions> table;
    for (const auto& [market, text] : sessionTexts) {
        const Points points = readPoints(text);
        logPoints(market, points);
        TradingSessions sessions = sessionsOf(points);
        if (!sessions.empty()) table.emplace(market, std::move(sessions));
    }
    return table;
}

}  // namespace ttservice::internal

#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace mongo {
class BSONElement;
}

// Trading sessions from the texts in which scripts describe them. A market's text is a JSON object: its names are clock
// times written HHMMSS, with or without leading zeros ("93000"), and its values are status codes.

namespace ttservice::internal {

inline constexpr int kSessionOpens = 50;
inline constexpr int kSessionCloses = 49;
inline constexpr int kSessionClosesToo = 54;

// The start and end of each session, in seconds since midnight, in clock order.
using TradingSessions = std::vector<std::pair<int, int>>;

// The sessions of each market that has any; a text that is not a JSON object gives none. A session still open at the
// end of the day closes at midnight, and the part of a night session after midnight is not a session of its own. Logs
// each market's points to the debug file if channel 535 is on.
std::map<std::string, TradingSessions> buildTradingSessions(const std::map<std::string, std::string>& sessionTexts);

// The status code given by a value: an int, a double without its fraction, or the low 32 bits of a wide integer; 0 for
// a double outside the range of int and for every other type.
int sessionStatus(const mongo::BSONElement& value);

// Seconds since midnight of a clock time written HHMMSS: 93000 is 34200.
int secondOfClockTime(int clockTime);

// Converts a second of the day to one of the trading day. From 20:30:00 on it belongs to the next trading day and is
// negative, so that the night session comes before the morning.
int secondOfTradingDay(int secondOfDay);

}  // namespace ttservice::internal

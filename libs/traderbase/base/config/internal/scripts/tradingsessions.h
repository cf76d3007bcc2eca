#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace mongo {
class BSONElement;
}

// Trading sessions out of the texts in which scripts describe them. A market's text is a JSON object: the names are
// clock times written HHMMSS, leading zeros or not ("93000"), the values are status codes.

namespace ttservice::internal {

inline constexpr int kSessionOpens = 50;
inline constexpr int kSessionCloses = 49;
inline constexpr int kSessionClosesToo = 54;

// First and last second of each session, in seconds since midnight, in clock order.
using TradingSessions = std::vector<std::pair<int, int>>;

// The sessions of each market that has any. A market whose text is no JSON object has none. One that is open at the end
// of the day closes at midnight, and what a night session does after midnight is no session of its own. Writes each
// market's points to the debug file when channel 535 wants them.
std::map<std::string, TradingSessions> buildTradingSessions(const std::map<std::string, std::string>& sessionTexts);

// The status code that a value stands for: an int, a double without its fraction, the low 32 bits of a wide integer; 0
// for a double that no int holds and for every other type.
int sessionStatus(const mongo::BSONElement& value);

// Seconds since midnight of a clock time written HHMMSS: 93000 is 34200.
int secondOfClockTime(int clockTime);

// A second of the day as one of the trading day: from 20:30:00 on it belongs to the next one and is negative, so that
// the night session stands before the morning.
int secondOfTradingDay(int secondOfDay);

}  // namespace ttservice::internal

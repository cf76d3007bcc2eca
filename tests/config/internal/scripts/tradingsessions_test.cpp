#include "traderbase/base/config/internal/scripts/tradingsessions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <log4cxx/logger.h>

#include <map>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "standin/logsetup.h"
#include "tests/support/commalocale.h"
#include "tests/support/slowsessions.h"

using standin::LogCapture;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using ttservice::internal::buildTradingSessions;
using ttservice::internal::secondOfClockTime;
using ttservice::internal::TradingSessions;

namespace {

TradingSessions sessionsOf(const std::string& text) {
    const auto table = buildTradingSessions({{"M", text}});
    return table.empty() ? TradingSessions() : table.at("M");
}

}  // namespace

TEST(TradingSessions, LastFromAnOpenToTheNextCloseInClockOrder) {
    const std::tuple<const char*, TradingSessions> rows[] = {
        {R"({"93000": 50, "113000": 49, "130000": 50, "150000": 49})", {{34200, 41400}, {46800, 54000}}},
        {R"({"93000": 50, "150000": 54})", {{34200, 54000}}},
        {R"({"93000": 50})", {{34200, 86400}}},
        // in clock order, not as written: the second close closes nothing
        {R"({"113000": 49, "93000": 50, "150000": 49})", {{34200, 41400}}},
        // the close after midnight comes first and closes nothing
        {R"({"210000": 50, "23000": 49, "90000": 50, "101500": 49})", {{32400, 36900}, {75600, 86400}}},
        {R"({"093000": 50, "0150000": 54})", {{34200, 54000}}},
        {R"({"0": 50, "235959": 49})", {{0, 86399}}},
        {R"({"000000": 50})", {{0, 86400}}},
        {R"({"93015": 50, "93016": 49})", {{34215, 34216}}},
        {R"({"93000": 50, "93000": 49})", {}},
        {R"({"93000": 49, "93000": 50})", {{34200, 86400}}},
        {R"({"93000": 50, "093000": 12, "100000": 49})", {}},
        {R"({})", {}},
    };
    for (const auto& [text, sessions] : rows)
        EXPECT_EQ(sessionsOf(text), sessions) << text;
}

TEST(TradingSessions, BeginAnewWhenOpenedTwice) {
    EXPECT_EQ(sessionsOf(R"({"90000": 50, "93000": 50, "100000": 49})"), (TradingSessions{{34200, 36000}}));
}

TEST(TradingSessions, IgnoreOtherCodes) {
    for (const char* code : {"0", "12", "48", "51", "53", "55", "-50", "100"}) {
        EXPECT_EQ(sessionsOf(std::string(R"({"90000": 50, "93000": )") + code + R"(, "100000": 49})"),
                  (TradingSessions{{32400, 36000}}))
            << code;
        EXPECT_EQ(sessionsOf(std::string(R"({"90000": )") + code + "}"), TradingSessions()) << code;
    }
}

TEST(TradingSessions, ReadStatusCodesByTheirType) {
    const std::tuple<const char*, int> rows[] = {
        // a double is truncated
        {"50.0", 50},
        {"50.9", 50},
        {"49.99", 49},
        {"5e1", 50},
        {"-0.5", 0},
        // and is ignored when no int can hold it
        {"1e300", 0},
        {"-1e300", 0},
        {"4294967346.0", 0},
        {"2147483648.0", 0},
        {"NaN", 0},
        {"Infinity", 0},
        {"-Infinity", 0},
        // only the low 32 bits of a wide integer count
        {"4294967346", 50},
        {"-4294967246", 50},
        {"9223372036854775807", -1},
        // every other type counts as 0
        {"\"50\"", 0},
        {"true", 0},
        {"null", 0},
        {"{}", 0},
        {"[50]", 0},
        {"Date(50)", 0},
    };
    for (const auto& [status, meaning] : rows) {
        const TradingSessions open = sessionsOf(std::string(R"({"90000": )") + status + "}");
        EXPECT_EQ(!open.empty(), meaning == 50) << status;
        const TradingSessions closed = sessionsOf(std::string(R"({"90000": 50, "100000": )") + status + "}");
        const int end = meaning == 49 ? 36000 : 86400;
        const int start = meaning == 50 ? 36000 : 32400;
        EXPECT_EQ(closed, (TradingSessions{{start, end}})) << status;
    }
}

TEST(TradingSessions, ReadClockTimesAsAtoiDoes) {
    const std::tuple<const char*, TradingSessions> rows[] = {
        {R"({"noon": 50})", {{0, 86400}}},
        {R"({"": 50, "100": 49})", {{0, 60}}},
        {R"({" 93000": 50, "+100000": 49})", {{34200, 36000}}},
        {R"({"93000abc": 50, "10:00:00": 49})", {{34200, 86400}}},
        {R"({"1e5": 50})", {{1, 86400}}},
        {R"({"-93000": 50, "100000": 49})", {}},  // a negative time opens nothing
        {R"({"96199": 50})", {{9 * 3600 + 61 * 60 + 99, 86400}}},
        {R"({"250000": 50})", {{90000, 86400}}},
    };
    for (const auto& [text, sessions] : rows)
        EXPECT_EQ(sessionsOf(text), sessions) << text;
}

TEST(TradingSessions, KeepEveryOtherMarketWhenOneTextIsWrong) {
    for (const char* wrong :
         {"not JSON", "{", "[50]", "[{\"93000\": 50}]", "5", "null", " ", "", "{\"93000\": }", "{}"}) {
        const auto table = buildTradingSessions(
            {{"A", R"({"93000": 50, "150000": 49})"}, {"B", wrong}, {"C", R"({"90000": 50, "150000": 54})"}});
        EXPECT_THAT(table,
                    ElementsAre(Pair("A", ElementsAre(Pair(34200, 54000))), Pair("C", ElementsAre(Pair(32400, 54000)))))
            << wrong;
    }
    const auto table = buildTradingSessions({{"A", R"({"93000": 50})"}, {"B", std::string(1000000, '[')}});
    EXPECT_EQ(table.size(), 1U);
}

TEST(TradingSessions, AgreeWithAWalkThroughEverySecond) {
    std::mt19937 random(20240609);
    const auto below = [&random](int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); };
    constexpr int kCodes[] = {50, 50, 49, 54, 12, 0};
    for (int round = 0; round < 300; ++round) {
        std::map<int, int> statusAt;
        std::string text = "{";
        for (int point = below(8); point > 0; --point) {
            const int clockTime = below(24) * 10000 + below(60) * 100 + below(3) * 29;
            const int code = kCodes[below(6)];
            statusAt[clockTime] = code;
            if (text.size() > 1) text += ",";
            text += "\"" + std::to_string(clockTime) + "\":" + std::to_string(code);
        }
        text += "}";
        EXPECT_EQ(sessionsOf(text), tests::slowSessions(statusAt)) << text;
    }
}

TEST(TradingSessions, ReadTheSameUnderALocaleWithADecimalComma) {
    const tests::CommaLocale locale;
    if (!locale.isSet()) GTEST_SKIP() << "no locale with a decimal comma can be made here";
    EXPECT_EQ(sessionsOf(R"({"93000":50,"113000":49.5,"130000":50.0,"150000":54})"),
              (TradingSessions{{34200, 41400}, {46800, 54000}}));
}

TEST(TradingSessions, LogTheirPointsWithTheEveningFirst) {
    const LogCapture log;
    standin::setFileLogEnabled(535, true);
    buildTradingSessions({{"SHFE", R"({"90000": 50, "23000": 49, "210000": 50, "203000": 12, "202959": 11})"},
                          {"CFFEX", R"({"93000": 50, "150000": 49})"}});
    EXPECT_THAT(log.messages(),
                ElementsAre("points market CFFEX", "points = 34200  status 50", "points = 54000  status 49",
                            "points market SHFE", "points = -12600  status 12", "points = -10800  status 50",
                            "points = 9000  status 49", "points = 32400  status 50", "points = 73799  status 11"));
    for (const standin::LogLine& line : log.lines()) {
        EXPECT_EQ(line.level, "DEBUG");
        EXPECT_EQ(line.logger, "TTDbgFile");
    }
}

TEST(TradingSessions, LogOnlyMarketsWithTwoPointsOrMore) {
    const LogCapture log;
    standin::setFileLogEnabled(535, true);
    buildTradingSessions({{"NONE", "{}"}, {"ONE", R"({"93000": 50})"}, {"BROKEN", "{"}});
    EXPECT_THAT(log.messages(), IsEmpty());
    // one clock time named twice: two points, both with the status that counts in the end
    buildTradingSessions({{"TWICE", R"({"93000": 50, "093000": 49.7})"}});
    EXPECT_THAT(log.messages(),
                ElementsAre("points market TWICE", "points = 34200  status 49", "points = 34200  status 49"));
}

TEST(TradingSessions, LogNothingWhenTheChannelOrLevelIsOff) {
    const LogCapture log;
    const std::map<std::string, std::string> texts = {{"M", R"({"93000": 50, "150000": 49})"}};
    standin::setEveryFileLogEnabled(true);
    standin::setFileLogEnabled(535, false);
    buildTradingSessions(texts);
    EXPECT_THAT(log.messages(), IsEmpty());
    standin::setFileLogEnabled(535, true);
    const auto logger = log4cxx::Logger::getLogger("TTDbgFile");
    const log4cxx::LevelPtr before = logger->getLevel();
    logger->setLevel(log4cxx::Level::getInfo());
    buildTradingSessions(texts);
    EXPECT_THAT(log.messages(), IsEmpty());
    logger->setLevel(before);
    buildTradingSessions(texts);
    EXPECT_EQ(log.messages().size(), 3U);
}

TEST(TradingSessions, CountSecondsSinceMidnight) {
    const std::tuple<int, int> rows[] = {{0, 0},          {1, 1},          {59, 59},
                                         {100, 60},       {93000, 34200},  {150000, 54000},
                                         {235959, 86399}, {240000, 86400}, {-93000, -34200}};
    for (const auto& [clockTime, second] : rows)
        EXPECT_EQ(secondOfClockTime(clockTime), second) << clockTime;
}

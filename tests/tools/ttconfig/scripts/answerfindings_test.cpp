#include "ttconfig/scripts/answerfindings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "ttconfig/text/clocktext.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using ttconfig::clockText;
using ttconfig::marketListFindings;
using ttconfig::secondOfClockText;
using ttconfig::sessionTextFindings;
using ttconfig::vendorTextFindings;

std::vector<std::string> listFindings(const std::string& text) {
    std::vector<std::string> markets;
    return marketListFindings(text, markets);
}

}  // namespace

TEST(AnswerFindings, SayNothingAboutGoodSessionTexts) {
    for (const char* text : {
             R"({"93000": 50, "113000": 49, "130000": 50, "150000": 49})",
             R"({"093000": 50, "150000": 54, "91500": 12})",
             R"({"210000": 50, "23000": 49, "90000": 50, "101500": 49})",  // closes after midnight
             R"({"0": 50})",                                               // round the clock
             R"({"0": 50, "60000": 49, "70000": 50})",                     // open through midnight
             R"({"90000": 12})",
             "{}",
         }) {
        EXPECT_THAT(sessionTextFindings(text), IsEmpty()) << text;
    }
}

TEST(AnswerFindings, FollowTheOpensAndClosesOfADay) {
    const std::tuple<const char*, const char*> rows[] = {
        {R"({"93000": 50})", "the session that opens at 09:30:00 never closes; it counts as open until midnight"},
        {R"({"93000": 50, "113000": 49, "130000": 50})", "the session that opens at 13:00:00 never closes"},
        {R"({"150000": 49})", "closed at 15:00:00 without having been opened"},
        {R"({"93000": 50, "113000": 49, "150000": 54})", "closed at 15:00:00 without having been opened"},
        {R"({"23000": 49, "93000": 50, "150000": 49})", "closed at 02:30:00 without having been opened"},
        {R"({"10000": 49, "23000": 49, "210000": 50})", "closed at 02:30:00 without having been opened"},
        {R"({"93000": 50, "100000": 50, "113000": 49})", "opened again at 10:00:00; the session of 09:30:00 is lost"},
    };
    for (const auto& [text, finding] : rows)
        EXPECT_THAT(sessionTextFindings(text), ElementsAre(StartsWith(finding))) << text;
}

TEST(AnswerFindings, NameKeysThatAreNotClockTimes) {
    const std::tuple<const char*, const char*> rows[] = {
        {"noon", "\"noon\" is no clock time HHMMSS; it counts as 00:00:00"},
        {"09:30:00", "\"09:30:00\" is no clock time HHMMSS; it counts as 00:00:09"},
        {"", "\"\" is no clock time HHMMSS; it counts as 00:00:00"},
        {"240000", "\"240000\" is no clock time HHMMSS; it counts as 24:00:00"},
        {"250000", "\"250000\" is no clock time HHMMSS; it counts as second 90000"},
        {"96000", "\"96000\" is no clock time HHMMSS; it counts as 10:00:00"},
        {"93060", "\"93060\" is no clock time HHMMSS; it counts as 09:31:00"},
        {"0093000", "\"0093000\" is no clock time HHMMSS; it counts as 09:30:00"},
        {"-93000", "\"-93000\" is no clock time HHMMSS; it counts as second -34200"},
    };
    for (const auto& [name, finding] : rows)
        EXPECT_THAT(sessionTextFindings("{\"" + std::string(name) + "\": 12}"), ElementsAre(finding));
    EXPECT_THAT(sessionTextFindings(R"({"93000": 12, "093000": 12})"),
                ElementsAre("09:30:00 is given twice; the last status counts"));
}

TEST(AnswerFindings, NameValuesThatAreNotStatuses) {
    const std::tuple<const char*, const char*> rows[] = {
        {"\"50\"", "at \"93000\": the status \"50\" is no whole number of 32 bits and counts as 0"},
        {"true", "at \"93000\": the status true is no whole number of 32 bits and counts as 0"},
        {"12.5", "at \"93000\": the status 12.5 is no whole number of 32 bits and counts as 12"},
        {"4294967308", "at \"93000\": the status 4294967308 is no whole number of 32 bits and counts as 12"},
    };
    for (const auto& [status, finding] : rows)
        EXPECT_THAT(sessionTextFindings("{\"93000\": " + std::string(status) + "}"), ElementsAre(finding));
}

TEST(AnswerFindings, SayWhereATextIsNotJson) {
    const std::tuple<std::string, const char*> rows[] = {
        {"", "answers an empty text"},
        {"{\"93000\": 50", "the answer is no JSON object: line 1, column 13: syntax error"},
        {"{\n\"93000\" 50}", "the answer is no JSON object: line 2, column 10: syntax error"},
        {"not JSON", "the answer is no JSON object: line 1, column 2: syntax error"},
        {"[50]", "the answer is no JSON object"},
        {"5", "the answer is no JSON object"},
        {std::string(200, '['), "the answer is no JSON object: nested too deep"},
        {std::string(1000000, '['), "the answer is no JSON object: nested too deep"},
        {"{'93000': 12}", "the answer is no strict JSON, though the client takes it: line 1, column 2"},
        {"{} and more", "the answer is no strict JSON, though the client takes it: line 1, column 4"},
        {std::string("{}\0x", 4), "the answer is cut at its NUL byte"},
    };
    for (const auto& [text, finding] : rows) {
        for (const auto& findings : {sessionTextFindings(text), listFindings(text), vendorTextFindings(text)}) {
            ASSERT_FALSE(findings.empty()) << text.substr(0, 50);
            EXPECT_THAT(findings[0], StartsWith(finding));
            EXPECT_LT(findings[0].size(), 300U);
        }
    }
}

TEST(AnswerFindings, ListMarketsOnce) {
    std::vector<std::string> markets;
    EXPECT_THAT(marketListFindings(R"({"B": 1, "A": 1, "B": 2})", markets),
                ElementsAre("market \"B\" is listed twice"));
    EXPECT_THAT(markets, ElementsAre("B", "A"));
    EXPECT_THAT(listFindings("{}"), ElementsAre("no market is listed"));
    EXPECT_THAT(listFindings(R"({"A": 1, "B": {}})"), IsEmpty());
}

TEST(AnswerFindings, RequireContentFromVendors) {
    const std::tuple<const char*, const char*> rows[] = {
        {"{}", "the answer has no member \"content\""},
        {R"({"Content": {}})", "the answer has no member \"content\""},
        {R"({"content": 5})", "\"content\" is neither an object nor a list: 5"},
        {R"({"content": "x"})", "\"content\" is neither an object nor a list: \"x\""},
        {R"({"content": {"name": 5}})", "\"content\" makes no record: "},
    };
    for (const auto& [text, finding] : rows)
        EXPECT_THAT(vendorTextFindings(text), ElementsAre(StartsWith(finding))) << text;
    EXPECT_THAT(vendorTextFindings(R"({"content": {"name": "x"}})"), IsEmpty());
    EXPECT_THAT(vendorTextFindings(R"({"content": []})"), IsEmpty());
}

TEST(ClockText, IsReadAndWritten) {
    const std::tuple<const char*, int> rows[] = {
        {"00:00:00", 0}, {"09:30:00", 34200}, {"23:59:59", 86399}, {"21:00", 75600}, {"00:01", 60}};
    for (const auto& [text, second] : rows)
        EXPECT_EQ(secondOfClockText(text), second) << text;
    for (const char* text : {"", "9:30:00", "09:30:0", "24:00:00", "09:60:00", "09:30:60", "09-30-00", "0930:00",
                             "-1:00", " 9:30", "09:30:00 ", "aa:bb", "09:3a"}) {
        EXPECT_FALSE(secondOfClockText(text)) << text;
    }
    EXPECT_EQ(clockText(0), "00:00:00");
    EXPECT_EQ(clockText(34215), "09:30:15");
    EXPECT_EQ(clockText(86400), "24:00:00");
    EXPECT_EQ(clockText(86401), "second 86401");
    EXPECT_EQ(clockText(-1), "second -1");
}

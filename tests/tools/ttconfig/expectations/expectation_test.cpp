// Lines of an expectation file: what they ask, and what can be wrong with them.

#include "ttconfig/expectations/expectation.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAreArray;
using ttconfig::Expectation;
using ttconfig::MalformedLine;
using ttconfig::readExpectation;

TEST(ExpectationLine, IsAQuestionAnEqualSignAndAnAnswer) {
    const struct {
        const char* line;
        std::vector<std::string> words;
        const char* expected;
    } rows[] = {
        {"isNeedMaxAmountPts 12 = true", {"isNeedMaxAmountPts", "12"}, "true"},
        {"isNeedMaxAmountPts 12=true", {"isNeedMaxAmountPts", "12"}, "true"},
        {"\t a  b\t=\t c  d \r", {"a", "b"}, "c  d"},
        {"a =", {"a"}, ""},
        {"a = # why", {"a"}, ""},
        {"a = b # why", {"a"}, "b"},
        {"a = b#c", {"a"}, "b#c"},
        {"a = \"b # c\" # d", {"a"}, "\"b # c\""},
        {"a = b=c", {"a"}, "b=c"},
        {"a \"b = c\" \"\" = d", {"a", "b = c", ""}, "d"},
        {R"(a "\"\u80a1\"" = d)", {"a", "\"股\""}, "d"},
        {R"(a ["b = c", "]"] {"d": [1, 2]} = e)", {"a", R"(["b = c", "]"])", R"({"d": [1, 2]})"}, "e"},
        {"a -5 = x", {"a", "-5"}, "x"},
        {"\"a\" = x", {"a"}, "x"},
    };
    for (const auto& row : rows) {
        std::vector<MalformedLine> malformed;
        const auto found = readExpectation(row.line, 7, malformed);
        ASSERT_TRUE(found) << row.line;
        EXPECT_TRUE(malformed.empty()) << row.line;
        EXPECT_THAT(found->words, ElementsAreArray(row.words)) << row.line;
        EXPECT_EQ(found->expected, row.expected) << row.line;
        EXPECT_EQ(found->place.line, 7U);
    }
}

TEST(ExpectationLine, BlankLinesAndCommentsAskNothing) {
    for (const char* line : {"", "  \t\r", "# a = b", "   # a = b", "#"}) {
        std::vector<MalformedLine> malformed;
        EXPECT_FALSE(readExpectation(line, 1, malformed)) << line;
        EXPECT_TRUE(malformed.empty()) << line;
    }
}

TEST(ExpectationLine, AMalformedOneIsReportedWithItsColumn) {
    const struct {
        const char* line;
        unsigned column;
        const char* message;
    } rows[] = {
        {"a b", 4, "no = and expected answer behind the question"},
        {"a b # = c", 5, "no = and expected answer behind the question"},
        {"  = c", 3, "no question in front of the ="},
        {"a \"b = c", 3, "a quoted text without its end"},
        {"a \"b\"c = d", 3, "\"\\\"b\\\"c\" is no JSON string"},
        {"a \"\\", 3, "a quoted text without its end"},
        {"a [b = c", 3, "a bracket without its end"},
        {"a = b \"c", 7, "a quoted text without its end"},
    };
    for (const auto& row : rows) {
        std::vector<MalformedLine> malformed;
        EXPECT_FALSE(readExpectation(row.line, 3, malformed)) << row.line;
        ASSERT_EQ(malformed.size(), 1U) << row.line;
        EXPECT_EQ(malformed[0].place.line, 3U);
        EXPECT_EQ(malformed[0].place.column, row.column) << row.line;
        EXPECT_EQ(malformed[0].message, row.message) << row.line;
    }
}

TEST(ExpectationLine, TellsWhereEachWordStands) {
    std::vector<MalformedLine> malformed;
    const auto found = readExpectation("  a  \"b c\" d = e", 1, malformed);
    ASSERT_TRUE(found);
    ASSERT_EQ(found->places.size(), 3U);
    EXPECT_EQ(found->places[0].column, 3U);
    EXPECT_EQ(found->places[1].column, 6U);
    EXPECT_EQ(found->places[2].column, 12U);
}

TEST(ExpectationLine, AnyBytesAreBearable) {
    std::vector<MalformedLine> malformed;
    std::string line(1000000, '[');
    EXPECT_FALSE(readExpectation(line, 1, malformed));
    line = "a = " + std::string(1000000, '\xFF');
    EXPECT_TRUE(readExpectation(line, 1, malformed));
    for (int byte = 0; byte < 256; ++byte) {
        for (const std::string pattern : {"a*", "*a = b", "a = *", "\"*\" = *", "a [*"}) {
            std::string text = pattern;
            for (char& c : text)
                c = c == '*' ? static_cast<char>(byte) : c;
            malformed.clear();
            EXPECT_LE((readExpectation(text, 1, malformed) ? 1U : 0U) + malformed.size(), 1U) << text;
        }
    }
}

}  // namespace

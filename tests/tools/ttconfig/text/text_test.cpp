// How values, names and tables are shown.

#include <gmock/gmock.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "ttconfig/text/answertext.h"
#include "ttconfig/text/nearestname.h"
#include "ttconfig/text/nesting.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/table.h"

namespace {

using ttconfig::Answer;
using ttconfig::Argument;
using ttconfig::Table;

TEST(NearestName, IsTheOneWithTheFewestDifferences) {
    const std::vector<std::string_view> names = {"getRefLimit", "getRenewalPts", "isNeedMaxAmountPts", "setPts",
                                                 "getPts"};
    const std::pair<const char*, const char*> rows[] = {
        {"getReflimit", "getRefLimit"},
        {"GETPTS", "getPts"},
        {"getPst", "getPts"},
        {"setPt", "setPts"},
        {"isNeedMaxAmount", "isNeedMaxAmountPts"},
        {"getRefLimits", "getRefLimit"},
        {"completelyDifferent", ""},
        {"", ""},
    };
    for (const auto& [misspelt, expected] : rows)
        EXPECT_EQ(ttconfig::nearestName(misspelt, names), expected) << misspelt;
    EXPECT_EQ(ttconfig::nearestName(std::string(100000, 'x'), names), "");
    EXPECT_EQ(ttconfig::didYouMean("setPt", names), "; did you mean setPts?");
    EXPECT_EQ(ttconfig::didYouMean("zzz", names), "");
}

TEST(Nesting, CountsWhatIsOpenAtOnceOutsideTexts) {
    const std::string deepest = std::string(100, '[') + std::string(100, ']');
    EXPECT_FALSE(ttconfig::isNestedTooDeep(deepest));
    EXPECT_TRUE(ttconfig::isNestedTooDeep("[" + deepest + "]"));
    EXPECT_TRUE(ttconfig::isNestedTooDeep(std::string(1000000, '[')));
    EXPECT_TRUE(ttconfig::isNestedTooDeep(std::string(101, '{')));
    std::string wide;
    for (int i = 0; i < 1000; ++i)
        wide += "[],{},";
    EXPECT_FALSE(ttconfig::isNestedTooDeep(wide));
    EXPECT_FALSE(ttconfig::isNestedTooDeep("\"" + std::string(1000, '[') + "\""));
    EXPECT_FALSE(ttconfig::isNestedTooDeep("\"a\\\"" + std::string(1000, '[') + "\""));
    EXPECT_TRUE(ttconfig::isNestedTooDeep("\"a\\\\\"" + std::string(1000, '[')));
    EXPECT_FALSE(ttconfig::isNestedTooDeep("\"\\"));
    EXPECT_FALSE(ttconfig::isNestedTooDeep(""));
}

TEST(ShownText, IsQuotedCutAndValid) {
    EXPECT_EQ(ttconfig::shownText("a\"b\n"), R"("a\"b\n")");
    EXPECT_EQ(ttconfig::shownText(std::string(100, 'x')), "\"" + std::string(60, 'x') + "...\"");
    EXPECT_EQ(ttconfig::shownText("\xFF"), "\"\xEF\xBF\xBD\"");
    EXPECT_EQ(ttconfig::cutText("ab股", 4), "ab...");
    EXPECT_EQ(ttconfig::cutText("ab股", 5), "ab股");
    EXPECT_EQ(ttconfig::shownJson(Argument::parse("1.5")), "1.5");
    EXPECT_EQ(ttconfig::shownJson(Argument::array({1})), "an array");
    EXPECT_EQ(ttconfig::shownJson(Argument::object()), "an object");
    EXPECT_EQ(ttconfig::shownJson(nullptr), "null");
}

TEST(ShownText, HasNoControlCharacterThatATerminalObeys) {
    EXPECT_EQ(ttconfig::shownText("a\x1B\x7F"), R"("a\u001b\u007f")");
    EXPECT_EQ(ttconfig::shownText("\xC2\x86\xC2\x9B\xC2\x9F\xC2\xA0"), "\"\\u0086\\u009b\\u009f\xC2\xA0\"");
    EXPECT_EQ(ttconfig::onOneLine("a\x1B\x7F\n\xC2\x9Bz\xC2\xA0\xC2"), "a????z\xC2\xA0\xEF\xBF\xBD");
}

TEST(ShownText, FileNamesAreUnchangedExceptForControlCharacters) {
    EXPECT_EQ(ttconfig::visibleText("a \"b\" \\ 股.ini"), "a \"b\" \\ 股.ini");
    EXPECT_EQ(ttconfig::visibleText("\x1b[2J\n\t\x7F\xC2\x85."), "\\u001b[2J\\n\\t\\u007f\\u0085.");
    EXPECT_EQ(ttconfig::visibleText("\xFF"), "\xEF\xBF\xBD");
    EXPECT_EQ(ttconfig::visibleText(""), "");
}

TEST(ShownText, WithReplacedBytesKeepsEveryOtherByte) {
    EXPECT_EQ(ttconfig::withReplacedBytes("a\"\\\n\xE8\x82\xA1"), "a\"\\\n\xE8\x82\xA1");
    EXPECT_EQ(ttconfig::withReplacedBytes("a\x80z"), "a\xEF\xBF\xBDz");
    EXPECT_EQ(ttconfig::withReplacedBytes(""), "");
}

TEST(AnswerJson, OfATextAloneIsWhatTheJsonLibraryWrites) {
    for (const char* text : {"", "plain", "a\"b\\c", "股", "line\nend \x01 \x7F", "\xC2\x80 \xF0\x9F\x98\x80"})
        EXPECT_EQ(ttconfig::textJson(text), ttconfig::answerJson(text));
    std::mt19937 random(7);
    const std::string bytes = std::string("ab\"\\\n\x7F\xC2\x80\xE8\x82\xA1\xF0\x9F\xED\xA0\xFF") + '\0';
    for (int round = 0; round < 5000; ++round) {
        std::string text;
        for (auto length = random() % 12; length > 0; --length)
            text += bytes[random() % bytes.size()];
        ASSERT_EQ(ttconfig::textJson(text), ttconfig::answerJson(text)) << round;
    }
}

TEST(AnswerText, IsOneReadableWord) {
    const std::pair<const char*, const char*> rows[] = {
        {"true", "true"},
        {"-1", "-1"},
        {"-9223372036854775808", "-9223372036854775808"},
        {"18446744073709551615", "18446744073709551615"},
        {"0.5", "0.5"},
        {"null", "none"},
        {"\"a text, as it stands\"", "a text, as it stands"},
        {"[12,15,102]", "12,15,102"},
        {"[]", ""},
        {"[1000000,\"股\"]", "1000000,股"},
        {"[[34200,41400],[46800,54000]]", "[34200,41400],[46800,54000]"},
        {"{\"b\":[1],\"a\":{\"x\":null}}", "b:[1],a:{x:none}"},
    };
    for (const auto& [json, expected] : rows)
        EXPECT_EQ(ttconfig::answerText(Answer::parse(json)), expected) << json;
}

TEST(Tables, AreAlignedByWhatATerminalShows) {
    EXPECT_EQ(ttconfig::displayWidth("abc"), 3U);
    EXPECT_EQ(ttconfig::displayWidth("é"), 1U);
    EXPECT_EQ(ttconfig::displayWidth("100股"), 5U);
    EXPECT_EQ(ttconfig::displayWidth("\xFF\x80"), 2U);
    const Table table{"t", "Title", {"a", "b"}, {{"股", 1}, {"xyz", "two"}, {"", ""}}};
    EXPECT_EQ(ttconfig::tableText(table), "Title\n  股   1\n  xyz  two\n\n");
}

TEST(Tables, WithoutATitleHaveHeadings) {
    const Table table{"t", "", {"name", "b"}, {{"x", 1}}};
    EXPECT_EQ(ttconfig::tableText(table), "name  b\nx     1\n");
}

TEST(Tables, LongOnesAreCutWithANote) {
    const Table table{"t", "T", {"a"}, {{1}, {2}, {3}}};
    EXPECT_EQ(ttconfig::tableText(table, 1), "T\n  1\n  ... and 2 more\n");
    EXPECT_EQ(ttconfig::tableText(table, 3), "T\n  1\n  2\n  3\n");
}

TEST(Tables, AsJsonAreObjectsWithTheColumnsNames) {
    const Table table{"t", "T", {"b", "a"}, {{1, Answer::array({2})}}};
    EXPECT_EQ(ttconfig::answerJson(ttconfig::tableJson(table)), R"([{"b":1,"a":[2]}])");
}

TEST(Tables, AsMarkdownEscapeTheColumnSign) {
    const Table table{"t", "T", {"a", "b"}, {{"x|y", "p|q|"}, {"", ""}}};
    EXPECT_EQ(ttconfig::tableMarkdown(table, 1), "| a | b |\n|---|---|\n| `x\\|y` | p\\|q\\| |\n| | |\n");
}

}  // namespace

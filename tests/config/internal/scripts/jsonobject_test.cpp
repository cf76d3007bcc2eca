#include "traderbase/base/config/internal/scripts/jsonobject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mongo/db/json.h>

#include <algorithm>
#include <array>
#include <optional>
#include <random>
#include <regex>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "tests/support/commalocale.h"

namespace bson = mongo;

using ttservice::internal::kDeepestJson;
using ttservice::internal::parseJson;
using ttservice::internal::preparedJson;
using ttservice::internal::readJsonObject;
using ttservice::internal::RefusedJson;

namespace {

std::string repeated(const std::string& piece, int times) {
    std::string text;
    for (int time = 0; time < times; ++time)
        text += piece;
    return text;
}

// Names, types and values of all fields, in order.
std::vector<std::string> fieldsOf(const bson::BSONObj& object) {
    std::vector<std::string> fields;
    for (bson::BSONObjIterator field(object); field.more();)
        fields.push_back(field.next().toString());
    return fields;
}

// What a parser reads from a text; nothing when it throws.
template <typename Parser>
std::optional<bson::BSONObj> outcome(const Parser& parser, const std::string& text) {
    try {
        return parser(text).getOwned();
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

bool same(const std::optional<bson::BSONObj>& one, const std::optional<bson::BSONObj>& other) {
    if (one.has_value() != other.has_value()) return false;
    return !one || one->binaryEqual(*other);
}

bson::BSONObj parseAlone(const std::string& text) {
    return bson::fromjson(text);
}

// Numbers in every form, and everything that can surround them.
constexpr std::array<const char*, 42> kPieces = {
    "{",     "}",     "[",       "]",       ":",     ",",      " ",          "\n",      "\"a\":",   "'b':", "c:",
    "$d_1:", "\"\"",  "\"1.5\"", "'x'",     "/1.5/", "/\"[/i", "0",          "1",       "12",       "1.5",  "-2.25",
    "+3.5",  "5.",    ".5",      ".",       "-",     "1e3",    "1.5e3",      "2.5E-3",  "1.5e+2",   "1e",   "1.5e",
    "0x1F",  "00012", "NaN",     "Date(5)", "true",  "null",   "4294967296", "1.5e400", "-Infinity"};

std::string randomText(std::mt19937& random) {
    std::string text = "{";
    const int pieces = std::uniform_int_distribution<int>(0, 12)(random);
    for (int piece = 0; piece < pieces; ++piece)
        text += kPieces[std::uniform_int_distribution<std::size_t>(0, kPieces.size() - 1)(random)];
    return text + "}";
}

// An object with a list of values; most of these texts parse.
std::string randomObject(std::mt19937& random) {
    std::string text = "{\"v\":[";
    const int values = std::uniform_int_distribution<int>(1, 6)(random);
    for (int value = 0; value < values; ++value) {
        if (value > 0) text += ",";
        text += kPieces[std::uniform_int_distribution<std::size_t>(17, kPieces.size() - 1)(random)];
    }
    return text + "]}";
}

}  // namespace

TEST(JsonObject, TakesObjectsAlone) {
    const std::tuple<const char*, bool> rows[] = {
        {"{}", true},
        {"{\"93000\": 50}", true},
        {" \t\r\n{\"a\": 1}", true},
        {"", true},  // an empty text is the empty object
        {"[]", false},
        {"[{\"a\": 1}]", false},
        {" [1]", false},
        {" ", false},
        {"null", false},
        {"5", false},
        {"\"text\"", false},
        {"{", false},
        {"}", false},
        {"{\"a\"}", false},
        {"{\"a\": }", false},
        {"{\"a\": 1,}", false},
        {"{\"a\": 1", false},
        {"{\"a: 1}", false},
        {"{1: 2}", false},
        {"not JSON", false},
        {"{\"$oid\": \"x\"}", false},
    };
    for (const auto& [text, taken] : rows)
        EXPECT_EQ(readJsonObject(text).has_value(), taken) << text;
}

TEST(JsonObject, KeepsFieldsInTheirOrderRepeatedOnesIncluded) {
    const auto object = readJsonObject(R"({"b": 1, "a": "x", "b": 2, "": true})");
    ASSERT_TRUE(object);
    EXPECT_THAT(fieldsOf(*object), testing::ElementsAre("b: 1", "a: \"x\"", "b: 2", ": true"));
    EXPECT_EQ(object->getField("b").numberInt(), 1);
}

TEST(JsonObject, TakesMoreThanJson) {
    for (const char* text : {"{a: 1}", "{'a': 'b'}", "{a: NaN}", "{a: 0x10}", "{a: Date(5)}", "{a: /b/i}",
                             "{\"a\": 1} and what follows", "{\"a\": 1}}"}) {
        EXPECT_TRUE(readJsonObject(text)) << text;
    }
    EXPECT_TRUE(readJsonObject(std::string("{\"a\": 1}\0{{{{", 12)));
    EXPECT_FALSE(readJsonObject(std::string("{\"a\": \0 1}", 10)));
}

TEST(JsonObject, KeepsIntegersApartFromDecimals) {
    const std::tuple<const char*, bson::BSONType, double> rows[] = {
        {"50", bson::NumberInt, 50.0},
        {"-7", bson::NumberInt, -7.0},
        {"0", bson::NumberInt, 0.0},
        {"2147483647", bson::NumberInt, 2147483647.0},
        {"2147483648", bson::NumberLong, 2147483648.0},
        {"-2147483649", bson::NumberLong, -2147483649.0},
        {"9223372036854775807", bson::NumberLong, 9223372036854775807.0},
        {"9223372036854775808", bson::NumberDouble, 9223372036854775808.0},
        {"50.0", bson::NumberDouble, 50.0},
        {"50.", bson::NumberDouble, 50.0},
        {".5", bson::NumberDouble, 0.5},
        {"-0.5", bson::NumberDouble, -0.5},
        {"1.25e3", bson::NumberDouble, 1250.0},
        {"1.25E-3", bson::NumberDouble, 0.00125},
        {"1e2", bson::NumberDouble, 100.0},
        {"0.1", bson::NumberDouble, 0.1},
        {"3.141592653589793", bson::NumberDouble, 3.141592653589793},
        {"1.7976931348623157e308", bson::NumberDouble, 1.7976931348623157e308},
        {"0.0000000000000000000000000000000000012e-250", bson::NumberDouble, 1.2e-286},
    };
    const auto check = [&rows](const char* locale) {
        for (const auto& [number, type, value] : rows) {
            const auto object =
                readJsonObject(std::string("{\"v\":") + number + ",\"w\":[" + number + "," + number + "]}");
            ASSERT_TRUE(object) << number << locale;
            EXPECT_EQ(object->getField("v").type(), type) << number << locale;
            EXPECT_EQ(object->getField("v").numberDouble(), value) << number << locale;
            EXPECT_EQ(object->getField("w").embeddedObject().nFields(), 2) << number << locale;
        }
    };
    check(" with a point");
    const tests::CommaLocale locale;
    if (!locale.isSet()) GTEST_SKIP() << "no locale with a decimal comma can be made here";
    check(" with a comma");
}

TEST(JsonObject, RefusesNumbersThatNoDoubleHolds) {
    for (const char* number : {"1e400", "1.5e400", "-1.5e99999999999999999999"})
        EXPECT_FALSE(readJsonObject(std::string("{\"v\":") + number + "}")) << number;
}

TEST(JsonObject, ReadsNumbersTooSmallForADoubleAsZero) {
    for (const char* number : {"1e-400", "-1e-320", "1.5e-99999999999999999999", "0.0", "0e5", "4.9e-324"}) {
        const auto object = readJsonObject(std::string("{\"v\":") + number + ",\"w\":7}");
        ASSERT_TRUE(object) << number;
        EXPECT_EQ((*object)["v"].type(), bson::NumberDouble) << number;
        EXPECT_EQ((*object)["v"]._numberDouble(), 0.0) << number;
        EXPECT_EQ((*object)["w"]._numberInt(), 7) << number;
    }
}

TEST(JsonObject, IgnoresEverythingAfterTheObject) {
    for (const std::string& behind :
         {std::string(101, '['), std::string("\"a\\u0000\":1"), std::string("}]{ 1e999 garbage")}) {
        const auto object = readJsonObject("{\"93000\":50} " + behind);
        ASSERT_TRUE(object) << behind;
        EXPECT_EQ((*object)["93000"]._numberInt(), 50) << behind;
    }
}

TEST(JsonObject, JoinsEscapedSurrogatePairs) {
    const auto object = readJsonObject(R"({"\ud83d\ude00":"a\uD83D\uDE00\u4e2d","\\ud83d\\ude00":1})");
    ASSERT_TRUE(object);
    EXPECT_EQ((*object)["\xF0\x9F\x98\x80"].str(), "a\xF0\x9F\x98\x80\xE4\xB8\xAD");
    EXPECT_EQ((*object)["\\ud83d\\ude00"]._numberInt(), 1);
}

TEST(JsonObject, WorksThePointIntoTheExponent) {
    const std::tuple<const char*, const char*> rows[] = {
        {"", ""},
        {"1.5", "15e-1 "},
        {"-1.5e3", "-15e2 "},
        {"1.5E+10", "15e9 "},
        {"0.25e-3", "025e-5 "},
        {"5.", "5e0 "},
        {".5", "5e-1 "},
        {"1,2", "1 , 2 "},
        {"-,5", "-, 5 "},
        {"[\xD9\xAB"
         "5]",
         "[\xD9 \xAB 5 ]"},
        {"1e5,", "1e5 , "},
        {"0x1F,", "0x1F , "},
        {"0x1.8", "0x1 8e-1 "},
        {"1e", "1e "},
        {"1.5e", "15e-1 e"},
        {".", ". "},
        {"a1.5b", "a1.5b"},
        {"\"1.5,\\\"2.5\"", "\"1.5,\\\"2.5\""},
        {"'1.5'1.5", "'1.5'15e-1 "},
        {"/1.5/", "/1.5/"},
        {"\"1.5", "\"1.5"},
        {"\"1.5\\", "\"1.5\\"},
    };
    for (const auto& [text, prepared] : rows)
        EXPECT_EQ(preparedJson(text), prepared) << text;
}

TEST(JsonObject, ReadsWhatTheParserAloneWouldRead) {
    std::mt19937 random(20240607);
    const std::regex hexadecimalFraction("0x[0-9A-Fa-f]*\\.");  // the only form refused on purpose
    int parsed = 0;
    for (int round = 0; round < 40000; ++round) {
        const std::string text = round % 2 == 0 ? randomText(random) : randomObject(random);
        if (std::regex_search(text, hexadecimalFraction)) continue;
        const auto expected = outcome(parseAlone, text);
        EXPECT_TRUE(same(outcome(parseJson, text), expected)) << text;
        parsed += expected ? 1 : 0;
    }
    EXPECT_GT(parsed, 5000);
}

TEST(JsonObject, ReadsTheSameUnderALocaleWithADecimalComma) {
    std::mt19937 random(20240608);
    std::vector<std::string> texts;
    std::vector<std::optional<bson::BSONObj>> expected;
    for (int round = 0; round < 10000; ++round) {
        texts.push_back(round % 2 == 0 ? randomText(random) : randomObject(random));
        expected.push_back(outcome(parseJson, texts.back()));
    }
    const tests::CommaLocale locale;
    if (!locale.isSet()) GTEST_SKIP() << "no locale with a decimal comma can be made here";
    // Shows that it matters: on its own, the parser takes the comma of a list for a decimal point.
    EXPECT_FALSE(same(outcome(parseAlone, "{\"v\":[1,5]}"), outcome(parseJson, "{\"v\":[1,5]}")));
    for (std::size_t at = 0; at < texts.size(); ++at)
        EXPECT_TRUE(same(outcome(parseJson, texts[at]), expected[at])) << texts[at];
}

TEST(JsonObject, RefusesTextsThatAreNestedTooDeep) {
    const std::tuple<const char*, const char*, const char*> shapes[] = {
        {"{\"a\":", "{}", "}"},
        {"{'a':", "{}", "}"},
        {"{a:[", "[]", "]}"},
        {"{\"]}\":", "{}", "}"},
        {"{\"a\":{\"$ref\":\"x\",\"$id\":", "[]", "}}"},
    };
    for (const auto& [open, core, close] : shapes) {
        const std::string opening = open;
        const auto isOpen = [](char c) { return c == '{' || c == '['; };
        const int levels = static_cast<int>(std::count_if(opening.begin(), opening.end(), isOpen));
        const int fits = (kDeepestJson - 1) / levels;
        EXPECT_TRUE(readJsonObject(repeated(open, fits) + core + repeated(close, fits))) << open;
        EXPECT_FALSE(readJsonObject(repeated(open, fits + 1) + core + repeated(close, fits + 1))) << open;
    }
    EXPECT_EQ(kDeepestJson, 100);
    EXPECT_THROW(parseJson(repeated("[", 101) + repeated("]", 101)), RefusedJson);
    EXPECT_NO_THROW(parseJson(repeated("[", 100) + repeated("]", 100)));
}

TEST(JsonObject, CountsOnlyLevelsThatAreOpenAtOnce) {
    EXPECT_TRUE(readJsonObject("{\"a\":[" + repeated("[{}],", 5000) + "[]]}"));
    EXPECT_TRUE(readJsonObject("{\"a\":\"" + repeated("[{(", 5000) + "\"}"));
    EXPECT_TRUE(readJsonObject("{'a':'\\'" + repeated("\"[{(", 5000) + "'}"));
    EXPECT_TRUE(readJsonObject("{\"a\":\"\\\\\",\"b\":\"" + repeated("[", 5000) + "\"}"));
}

// On its own, the parser would recurse into each of these until the stack overflows.
TEST(JsonObject, RefusesHiddenDepth) {
    const std::string deep = repeated("{\"a\":", 1000000);
    EXPECT_FALSE(readJsonObject(deep));
    EXPECT_FALSE(readJsonObject("{\"a\":" + repeated("[", 1000000)));
    EXPECT_FALSE(readJsonObject("{\"a\":" + repeated("DBRef(\"x\",", 1000000)));
    EXPECT_FALSE(readJsonObject("{a: /\"/, \"b\":" + deep));
    EXPECT_FALSE(readJsonObject("{a: /\\/\"/, \"b\":" + deep));
    EXPECT_FALSE(readJsonObject("{'\"': 1, \"b\":" + deep));
    EXPECT_FALSE(readJsonObject("{\"\\\\\": 1, \"b\":" + deep));
    EXPECT_THROW(parseJson(repeated("[", 1000000)), RefusedJson);
}

TEST(JsonObject, RefusesNamesWithANul) {
    for (const char* text :
         {"{\"\\u0000\": 1}", "{\"a\\u0000\\u0010b\" : 1}", "{'\\u0000':1}", "{\"x\":{\"\\u0000\":1}}"})
        EXPECT_THROW(parseJson(text), RefusedJson) << text;
    for (const char* text : {"{\"a\": \"\\u0000\"}", "{\"\\\\u0000\": 1}", "{\"\\u0001\": 1}"})
        EXPECT_NO_THROW(parseJson(text)) << text;
}

TEST(JsonObject, ThrowsStandardExceptions) {
    for (const char* text : {"{", "x", "{\"a\":tru}", "[1,", "{\"a\":1e999}"})
        EXPECT_THROW(parseJson(text), std::exception) << text;
}

TEST(JsonObject, IsReadByManyThreadsAtOnceFromTheFirstFailureOn) {
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 8; ++thread) {
        threads.emplace_back([] {
            for (int round = 0; round < 200; ++round) {
                EXPECT_FALSE(readJsonObject("{\"a\":"));
                EXPECT_TRUE(readJsonObject("{\"a\":1.5}"));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

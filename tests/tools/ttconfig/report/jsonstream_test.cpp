#include "ttconfig/report/jsonstream.h"

#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>
#include <random>
#include <string>

#include "ttconfig/text/showntext.h"

namespace {

using ttconfig::JsonStream;
using ttconfig::markupText;
using Json = nlohmann::json;

constexpr const char* kReplacement = "\xEF\xBF\xBD";

template <typename Write>
std::string written(Write&& write) {
    std::string text;
    JsonStream json([&text](std::string_view piece) { text += piece; });
    write(json);
    json.flush();
    return text;
}

std::string writtenText(std::string_view value) {
    return written([value](JsonStream& json) { json.text(value); });
}

TEST(JsonStream, TextComesBackAsItWas) {
    const std::string nul("a\0b", 3);
    for (const std::string& text :
         {std::string(), std::string("plain"), std::string("quote \" and \\ backslash"),
          std::string("tab\tand\nline\r"), std::string("\xE8\x82\xA1 \xF0\x9F\x98\x80"),
          std::string("\xE2\x80\xA8\xE2\x80\xA9"), std::string("\x7F"), nul,
          std::string("</script><script>alert(1)</script>"), std::string("<!-- <script>"), std::string(200000, 'x')}) {
        EXPECT_EQ(Json::parse(writtenText(text)).get<std::string>(), text);
    }
}

TEST(JsonStream, NothingInATextCanEndTheScriptElement) {
    for (const char* text : {"</script>", "</SCRIPT", "<!--", "-->", "]]>", "&lt;"}) {
        EXPECT_EQ(writtenText(text).find_first_of("<>&"), std::string::npos) << text;
    }
}

TEST(JsonStream, InvalidUtf8IsReplaced) {
    const std::string r = kReplacement;
    const std::pair<std::string, std::string> rows[] = {
        {"\xFF", r},
        {"a\x80z", "a" + r + "z"},
        {"\xC0\xAF", r + r},                  // an overlong form
        {"\xE0\x80\xAF", r + r + r},          // the same with three bytes
        {"\xED\xA0\x80", r + r + r},          // half of a surrogate pair
        {"\xF4\x90\x80\x80", r + r + r + r},  // beyond the last character
        {"\xE8\x82", r + r},                  // cut off
        {"\xE8\x82<", r + r + "<"},
        {"\xF8\x88\x80\x80\x80", r + r + r + r + r},
    };
    for (const auto& [text, shown] : rows)
        EXPECT_EQ(Json::parse(writtenText(text)).get<std::string>(), shown) << Json(shown);
}

TEST(JsonStream, AnyBytesMakeJsonWithoutMarkup) {
    std::mt19937 random(7);
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (auto length = random() % 12; length > 0; --length)
            text +=
                static_cast<char>(random() % 4 == 0 ? "<>&/!-\"\\"[random() % 8] : static_cast<char>(random() % 256));
        const std::string json = writtenText(text);
        ASSERT_EQ(json.find_first_of("<>&"), std::string::npos);
        const std::string back = Json::parse(json).get<std::string>();
        // A text that is UTF-8 is unchanged.
        if (ttconfig::withReplacedBytes(text) == text) {
            ASSERT_EQ(back, text);
        }
    }
}

TEST(JsonStream, WritesNestedValues) {
    const std::string text = written([](JsonStream& json) {
        json.beginObject();
        json.name("list");
        json.beginArray();
        json.integer(std::numeric_limits<std::int64_t>::min());
        json.decimal(0.0000565);
        json.beginArray();
        json.endArray();
        json.beginObject();
        json.name("deep");
        json.flag(true);
        json.name("none");
        json.null();
        json.endObject();
        json.written("[1,2]");
        json.endArray();
        json.name("<name>");
        json.flag(false);
        json.endObject();
    });
    const Json expected = {{"list",
                            {std::numeric_limits<std::int64_t>::min(),
                             0.0000565,
                             Json::array(),
                             {{"deep", true}, {"none", nullptr}},
                             {1, 2}}},
                           {"<name>", false}};
    EXPECT_EQ(Json::parse(text), expected);
}

TEST(JsonStream, MembersAndElementsOfTheOuterLevelsStartLines) {
    const std::string text = written([](JsonStream& json) {
        json.beginObject();
        json.name("a");
        json.beginArray();
        json.beginArray();
        json.integer(1);
        json.integer(2);
        json.endArray();
        json.integer(3);
        json.endArray();
        json.endObject();
    });
    EXPECT_EQ(text, "{\n\"a\":[\n[1,2],\n3]}");
}

TEST(JsonStream, NumbersThatJsonCannotWriteAreTexts) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(written([&](JsonStream& json) { json.decimal(infinity); }), "\"inf\"");
    EXPECT_EQ(written([&](JsonStream& json) { json.decimal(-infinity); }), "\"-inf\"");
    EXPECT_TRUE(Json::parse(written([&](JsonStream& json) { json.decimal(infinity - infinity); })).is_string());
}

TEST(MarkupText, StandsForItselfBetweenTagsAndInAttributes) {
    EXPECT_EQ(markupText("a<b>&\"c'\xFF"), std::string("a&lt;b&gt;&amp;&quot;c&#39;") + kReplacement);
    EXPECT_EQ(markupText("\xE8\x82\xA1"), "\xE8\x82\xA1");
}

}  // namespace

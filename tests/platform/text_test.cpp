#include "ttplatform/text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace utils {
namespace {

using namespace std::string_literals;

TEST(ToUpper, RaisesTheLettersAToZAndKeepsEveryOtherByte) {
    const std::pair<std::string, std::string> rows[] = {
        {"", ""},         {"hk", "HK"}, {"Sz-000001a", "SZ-000001A"}, {"`az{", "`AZ{"},
        {"股份", "股份"}, {"é", "é"},   {"ß\xff", "ß\xff"},           {"a\0b"s, "A\0B"s},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(toUpper(text), expected) << text;
}

}  // namespace
}  // namespace utils

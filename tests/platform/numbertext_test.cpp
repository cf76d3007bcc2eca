#include "standin/numbertext.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <locale>
#include <random>
#include <string>
#include <utility>

namespace standin {
namespace {

using namespace std::string_literals;

TEST(ReadInt32, TakesAnOptionalSignAndDecimalDigits) {
    const std::pair<std::string, int> rows[] = {
        {"0", 0},
        {"7", 7},
        {"12", 12},
        {"+5", 5},
        {"-5", -5},
        {"-0", 0},
        {"+0", 0},
        {"007", 7},
        {"-007", -7},
        {"2147483647", 2147483647},
        {"-1", -1},
        {"+12", 12},
        {"00000000000", 0},
        {"0000000000012", 12},
        {"-2147483648", -2147483647 - 1},
    };
    for (const auto& [text, expected] : rows) {
        int number = 77;
        EXPECT_TRUE(readInt32(text, number)) << text;
        EXPECT_EQ(number, expected) << text;
    }
}

TEST(ReadInt32, RefusesEverythingElseAndLeavesTheNumberAlone) {
    const std::string rows[] = {
        "",   "+",  "-",   "+-5", "-+5",        "++5",         "--5", " 5",   "5 ",
        "5x", "x5", "1.0", "1e3", "0x10",       "1,000",       "1_0", "5\0"s, "\0"s,
        "股", "٣",  "1 2", "+ 5", "2147483648", "-2147483649", "1'0", "true", "99999999999999999999"};
    for (const std::string& text : rows) {
        int number = 77;
        EXPECT_FALSE(readInt32(text, number)) << text;
        EXPECT_EQ(number, 77) << text;
    }
}

TEST(ReadDecimal, TakesSignDigitsPointAndExponent) {
    const std::pair<std::string, double> rows[] = {
        {"0", 0.0},
        {"1", 1.0},
        {"-0.5", -0.5},
        {"2.5e3", 2500.0},
        {"+1.25", 1.25},
        {"1.", 1.0},
        {".5", 0.5},
        {"-.5", -0.5},
        {"1E2", 100.0},
        {"1e+2", 100.0},
        {"1e-2", 0.01},
        {"00.10", 0.1},
        {"+0", 0.0},
        {"0e999999999999999999999", 0.0},
        {"0.1", 0.1},
        {"1e22", 1e22},
        {"123456789012345678901234567890", 123456789012345678901234567890.0},
        {"1.7976931348623157e308", std::numeric_limits<double>::max()},
        {"4.9e-324", std::numeric_limits<double>::denorm_min()},
    };
    for (const auto& [text, expected] : rows) {
        double number = 77;
        EXPECT_TRUE(readDecimal(text, number)) << text;
        EXPECT_EQ(number, expected) << text;
    }
    double negativeZero = 77;
    EXPECT_TRUE(readDecimal("-0", negativeZero));
    EXPECT_TRUE(std::signbit(negativeZero));
}

TEST(ReadDecimal, RefusesEverythingElseAndLeavesTheNumberAlone) {
    const std::string rows[] = {"",      "+",      "-",   ".",        "+.",    "e5",  ".e5", "1e",   "1e+",
                                "1e-",   "--1",    "+-1", "1..2",     "1.2.3", " 1",  "1 ",  "1x",   "inf",
                                "-inf",  "nan",    "NAN", "infinity", "0x10",  "1p3", "1,5", "1.5f", "1e2.5",
                                "1e2e3", "1.5\0"s, "1_0", "1e 5",     "股",    "1d5"};
    for (const std::string& text : rows) {
        double number = 77;
        EXPECT_FALSE(readDecimal(text, number)) << text;
        EXPECT_EQ(number, 77) << text;
    }
}

TEST(ReadDecimal, RefusesWhatIsTooLargeAndRoundsWhatIsTooSmall) {
    const std::string large[] = {"1e309",
                                 "-1e309",
                                 "1.8e308",
                                 "1e999999999999999999999999",
                                 "0.0000001e400",
                                 "1" + std::string(400, '0'),
                                 "." + std::string(400, '0') + "1e1000"};
    for (const std::string& text : large) {
        double number = 77;
        EXPECT_FALSE(readDecimal(text, number)) << text;
        EXPECT_EQ(number, 77) << text;
    }
    const std::string small[] = {"1e-400",
                                 "-1e-400",
                                 "1e-999999999999999999999999",
                                 "2.4e-324",
                                 "0." + std::string(400, '0') + "1",
                                 "1" + std::string(400, '0') + "e-1000"};
    for (const std::string& text : small) {
        double number = 77;
        EXPECT_TRUE(readDecimal(text, number)) << text;
        EXPECT_EQ(number, 0.0) << text;
        EXPECT_EQ(std::signbit(number), text[0] == '-') << text;
    }
}

// The C library, in the "C" locale of a new test, reads the same numbers; it accepts more texts.
TEST(ReadDecimal, AgreesWithTheCLibraryOnGeneratedNumbers) {
    std::mt19937 random(1);
    const auto upTo = [&random](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
    for (int round = 0; round < 20000; ++round) {
        std::string text = upTo(2) == 0 ? "-" : "";
        for (int digits = upTo(20); digits >= 0; --digits)
            text += static_cast<char>('0' + upTo(9));
        if (upTo(1) == 0) {
            text += '.';
            for (int digits = upTo(20); digits > 0; --digits)
                text += static_cast<char>('0' + upTo(9));
        }
        if (upTo(1) == 0) text += "e" + std::to_string(upTo(700) - 350);
        const double expected = std::strtod(text.c_str(), nullptr);
        double number = 77;
        ASSERT_EQ(readDecimal(text, number), std::isfinite(expected)) << text;
        ASSERT_EQ(number, std::isfinite(expected) ? expected : 77) << text;
    }
}

class CommaForPoint : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(ReadDecimal, IgnoresTheLocale) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaForPoint));
    double number = 0;
    int whole = 0;
    EXPECT_TRUE(readDecimal("1234.5", number));
    EXPECT_EQ(number, 1234.5);
    EXPECT_FALSE(readDecimal("1,5", number));
    EXPECT_TRUE(readInt32("1234", whole));
    EXPECT_FALSE(readInt32("1.234", whole));
    std::locale::global(before);
}

TEST(ReadDecimal, IgnoresTheLocaleOfTheCLibraryToo) {
    const char* found = nullptr;
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "German_Germany.1252"}) {
        if (found == nullptr) found = std::setlocale(LC_ALL, name);
    }
    if (found == nullptr) GTEST_SKIP() << "no locale with a decimal comma is installed here (such as de_DE.UTF-8)";
    ASSERT_EQ(std::localeconv()->decimal_point[0], ',');
    double number = 0;
    EXPECT_TRUE(readDecimal("1234.5", number));
    EXPECT_EQ(number, 1234.5);
    EXPECT_FALSE(readDecimal("1,5", number));
}

}  // namespace
}  // namespace standin

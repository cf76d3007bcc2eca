#include "traderbase/base/config/internal/text/strictnumbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <random>
#include <string>
#include <vector>

#include <boost/lexical_cast.hpp>

using namespace ttservice::internal;

namespace {

// A text of a few characters from the alphabet, so that numbers and near misses are equally common.
std::string randomText(std::mt19937& random, const std::string& alphabet, std::size_t longest) {
    std::string text(random() % (longest + 1), ' ');
    for (char& c : text)
        c = alphabet[random() % alphabet.size()];
    return text;
}

struct CommaPoint : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

}  // namespace

TEST(StrictInt, TakesASignAndDigitsAndNothingElse) {
    const std::vector<std::pair<std::string, int>> numbers = {
        {"0", 0},
        {"12", 12},
        {"-5", -5},
        {"+5", 5},
        {"007", 7},
        {"-0", 0},
        {"2147483647", 2147483647},
        {"-2147483648", std::numeric_limits<int>::min()},
        {"+0000000000000000000012", 12},
    };
    for (const auto& [text, value] : numbers)
        EXPECT_EQ(strictInt(text), value) << text;
    for (const char* text :
         {"",    " ",    " 12", "12 ", "1.0", "1,2", "0x10",       "abc",         "12a",
          "+",   "-",    "+-5", "-+5", "--5", "++5", "2147483648", "-2147483649", "99999999999999999999",
          "1e3", "12:1", "\t7"}) {
        EXPECT_EQ(strictInt(text), std::nullopt) << text;
    }
    EXPECT_EQ(strictInt(std::string_view("1\0", 2)), std::nullopt);
}

TEST(StrictInt, AgreesWithBoostsConversion) {
    std::mt19937 random(20240101);
    int numbers = 0;
    for (int i = 0; i < 100000; ++i) {
        const std::string text = randomText(random, "0123456789+- ", 11);
        int expected = 0;
        const bool isNumber = boost::conversion::try_lexical_convert(text, expected);
        numbers += isNumber;
        ASSERT_EQ(strictInt(text), isNumber ? std::optional<int>(expected) : std::nullopt) << '"' << text << '"';
    }
    EXPECT_GT(numbers, 5000);
}

TEST(StrictBool, TakesZerosAndAFinalZeroOrOne) {
    for (const char* text : {"1", "01", "+1", "0001", "+001"})
        EXPECT_EQ(strictBool(text), true) << text;
    for (const char* text : {"0", "00", "+0", "-0", "-000"})
        EXPECT_EQ(strictBool(text), false) << text;
    for (const char* text : {"", "true", "false", "2", "-1", "-01", "10", "11", "+", "-", "1 ", " 1", "0x1", "1.0"}) {
        EXPECT_EQ(strictBool(text), std::nullopt) << text;
    }
}

TEST(StrictBool, AgreesWithBoostsConversion) {
    std::mt19937 random(20240102);
    int numbers = 0;
    for (int i = 0; i < 100000; ++i) {
        const std::string text = randomText(random, "0001+- 2", 6);
        bool expected = false;
        const bool isNumber = boost::conversion::try_lexical_convert(text, expected);
        numbers += isNumber;
        ASSERT_EQ(strictBool(text), isNumber ? std::optional<bool>(expected) : std::nullopt) << '"' << text << '"';
    }
    EXPECT_GT(numbers, 5000);
}

TEST(StrictDouble, TakesADecimalNumberAsAWhole) {
    const std::vector<std::pair<std::string, double>> numbers = {
        {"0", 0},        {"0.6", 0.6},     {"-1.5", -1.5}, {"+1.5", 1.5}, {".5", 0.5},   {"5.", 5},
        {"2.5e3", 2500}, {"2.5E-1", 0.25}, {"1e+2", 100},  {"007", 7},    {"1e-999", 0},
    };
    for (const auto& [text, value] : numbers)
        EXPECT_EQ(strictDouble(text), value) << text;
    for (const char* text : {"",   " ",   " 1",  "1 ",  "1,5",  "abc", "1x",   ".",     "+",      "-",     "+-1", "1e",
                             "1E", "1e+", "1e-", "inf", "-inf", "nan", "0x10", "1e999", "-1e999", "1.2.3", "true"}) {
        EXPECT_EQ(strictDouble(text), std::nullopt) << text;
    }
}

TEST(StrictDouble, AgreesWithBoostsConversionOnOrdinaryNumbers) {
    std::mt19937 random(20240103);
    int numbers = 0;
    for (int i = 0; i < 100000; ++i) {
        const std::string text = randomText(random, "0123456789..+-eE ", 8);
        double expected = 0;
        const bool isNumber = boost::conversion::try_lexical_convert(text, expected);
        numbers += isNumber;
        ASSERT_EQ(strictDouble(text), isNumber ? std::optional<double>(expected) : std::nullopt) << '"' << text << '"';
    }
    EXPECT_GT(numbers, 5000);
}

TEST(LooseNumbers, ReadAsTheCLibraryReads) {
    EXPECT_EQ(looseInt(""), 0);
    EXPECT_EQ(looseInt("abc"), 0);
    EXPECT_EQ(looseInt("  42abc"), 42);
    EXPECT_EQ(looseInt("-7.9"), -7);
    EXPECT_EQ(looseInt("+3"), 3);
    EXPECT_EQ(looseLong("9000000000x"), 9000000000LL);
    EXPECT_EQ(looseLong("none"), 0);
    EXPECT_EQ(looseDouble(" \t1.5abc"), 1.5);
    EXPECT_EQ(looseDouble("0x10"), 16);
    EXPECT_EQ(looseDouble("none"), 0);
    EXPECT_EQ(looseDouble("1e999"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(looseDouble("-1e999"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(looseDouble("0.0001e-400"), 0);
    EXPECT_TRUE(std::isnan(looseDouble("nan")));
}

TEST(LooseNumbers, KeepTheLowHalfOfWhatIsTooLarge) {
    EXPECT_EQ(looseInt("2147483647"), 2147483647);
    EXPECT_EQ(looseInt("2147483648"), -2147483647 - 1);
    EXPECT_EQ(looseInt("3000000000"), -1294967296);
    EXPECT_EQ(looseInt("4294967297"), 1);
    EXPECT_EQ(looseInt("-4294967297"), -1);
    EXPECT_EQ(looseInt("99999999999999999999"), -1);
    EXPECT_EQ(looseInt("-99999999999999999999"), 0);
    EXPECT_EQ(looseLong("99999999999999999999"), std::numeric_limits<long long>::max());
    EXPECT_EQ(looseLong("-99999999999999999999"), std::numeric_limits<long long>::min());
}

TEST(LooseNumbers, AgreeWithTheCLibraryOnGeneratedTexts) {
    std::mt19937 random(20240104);
    for (int i = 0; i < 200000; ++i) {
        const std::string text = randomText(random, i % 2 ? "0123456789..+-eE \t," : "01xXfFpP.+-inaNty", 10);
        const double expected = std::strtod(text.c_str(), nullptr);
        const double value = looseDouble(text);
        ASSERT_TRUE(value == expected || (std::isnan(value) && std::isnan(expected))) << '"' << text << '"';
        ASSERT_EQ(std::signbit(value), std::signbit(expected)) << '"' << text << '"';
        if (text.size() < 10) {
            ASSERT_EQ(looseInt(text), std::strtol(text.c_str(), nullptr, 10)) << '"' << text << '"';
        }
    }
}

TEST(LooseNumbers, AgreeWithTheCLibraryAtTheEndsOfTheRange) {
    for (const char* text : {"1e308",
                             "1.8e308",
                             "17976931348623157e292",
                             "17976931348623159e292",
                             "1e309",
                             "0.00001e315",
                             "123456789e300",
                             "5e-324",
                             "2e-324",
                             "1e-323",
                             "0.0001e-320",
                             "100000e-330",
                             "0e999",
                             "0.0",
                             "-0",
                             "0x1p1023",
                             "0x1p1024",
                             "0x.8p-1074",
                             "0x1p-1080",
                             "0x0p99999",
                             "0x1ep-99999",
                             "0x1ep-1080",
                             "-0x.d2cE7p+99999",
                             "0xep99999",
                             "0x.0ep-99999",
                             "1e99999999999999",
                             "1e-99999999999999"}) {
        EXPECT_EQ(looseDouble(text), std::strtod(text, nullptr)) << text;
    }
}

TEST(LooseNumbers, AgreeWithTheCLibraryOnExponentsOfTwoSigns) {
    for (const char* text : {"0x1p+-5", "0X1.8P+-3", "-0x1p+-1", "0x1p-+5", "0x1p++5", "0x1p--5", "0x1p+-", "0x.8p+-5,",
                             "0x1p+5", "0x1p5", "1e+-5", "1e-+5"}) {
        EXPECT_EQ(looseDouble(text), std::strtod(text, nullptr)) << text;
    }
    EXPECT_EQ(looseDouble("0x1p+-5"), 1);
}

TEST(Numbers, DoNotDependOnTheLocale) {
    std::setlocale(LC_ALL, "de_DE.UTF-8");  // only where it is installed; the next line works everywhere
    std::locale::global(std::locale(std::locale::classic(), new CommaPoint));
    EXPECT_EQ(strictDouble("1.5"), 1.5);
    EXPECT_EQ(strictDouble("1,5"), std::nullopt);
    EXPECT_EQ(looseDouble("1.5"), 1.5);
    EXPECT_EQ(looseDouble("1,5"), 1);
    EXPECT_EQ(strictInt("1.000"), std::nullopt);
    EXPECT_EQ(strictInt("1000"), 1000);
    EXPECT_EQ(strictBool("1"), true);
}

#include "ttplatform/configuration.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/tempfile.h"

namespace utils {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Configuration, IsEmptyUntilItParses) {
    const tests::TempFolder folder;
    // The arguments of the constructor have no effect, not even a readable path.
    const Configuration configuration(folder.write("a.ini", "[s]\nk=1\n"), true);
    EXPECT_THAT(configuration.getProperties("s"), IsEmpty());
    EXPECT_EQ(configuration.read("s", "k"), "");
    EXPECT_EQ(configuration.readInt("s", "k", 7), 7);
    EXPECT_EQ(configuration.readDouble("s", "k", 7.5), 7.5);
}

TEST(Configuration, ReadsInAnyOrder) {
    const tests::TempFolder folder;
    Configuration configuration;
    ASSERT_TRUE(configuration.parse(folder.write("a.ini", "[s]\na=1\nb=2\na=3\n[t]\na=4\nb=5\nc=6\n[s]\nc=7\nb=8\n")));
    const std::vector<std::vector<std::string>> rows = {{"s", "a", "1"}, {"s", "b", "2"}, {"s", "c", "7"},
                                                        {"t", "a", "4"}, {"t", "b", "5"}, {"t", "c", "6"},
                                                        {"s", "d", ""},  {"u", "a", ""},  {"", "a", ""}};
    for (const auto& first : rows) {
        for (const auto& second : rows) {
            for (const auto& third : rows) {
                for (const auto& row : {first, second, third})
                    ASSERT_EQ(configuration.read(row[0], row[1]), row[2]) << row[0] << " " << row[1];
            }
        }
    }
    // Puts another file behind the same object.
    ASSERT_TRUE(configuration.parse(folder.write("b.ini", "[s]\nb=9\n")));
    EXPECT_EQ(configuration.read("s", "b"), "9");
    EXPECT_EQ(configuration.read("s", "a"), "");
}

TEST(Configuration, ListsKeysOnceInFileOrderAndReadsTheFirstValue) {
    const tests::TempFolder folder;
    Configuration configuration;
    EXPECT_TRUE(configuration.parse(folder.write("a.ini", "z=0\n[s]\nb=1\na=2\nb=3\n[t]\nc=4\n[s]\nd=5\na=6\n")));
    EXPECT_THAT(configuration.getProperties("s"), ElementsAre("b", "a", "d"));
    EXPECT_THAT(configuration.getProperties("t"), ElementsAre("c"));
    EXPECT_THAT(configuration.getProperties("S"), IsEmpty());
    EXPECT_THAT(configuration.getProperties(""), IsEmpty());
    EXPECT_EQ(configuration.read("s", "b"), "1");
    EXPECT_EQ(configuration.read("s", "a"), "2");
    EXPECT_EQ(configuration.read("s", "c"), "");
    EXPECT_EQ(configuration.read("none", "a"), "");
}

TEST(Configuration, ReadsStrictNumbersAndElseTheFallback) {
    const tests::TempFolder folder;
    Configuration configuration;
    ASSERT_TRUE(configuration.parse(folder.write(
        "a.ini", "[s]\ni= +12 \nbad=12x\nempty=\nlarge=2147483648\nd = -2.5e3\nint=1.0\ninf=inf\nbig=1e400\n")));
    EXPECT_EQ(configuration.readInt("s", "i", 7), 12);
    EXPECT_EQ(configuration.readDouble("s", "i", 7), 12.0);
    EXPECT_EQ(configuration.readDouble("s", "d", 7), -2500.0);
    for (const char* key : {"bad", "empty", "large", "d", "int", "inf", "missing"}) {
        EXPECT_EQ(configuration.readInt("s", key, 7), 7) << key;
    }
    for (const char* key : {"bad", "empty", "inf", "big", "missing"}) {
        EXPECT_EQ(configuration.readDouble("s", key, 7), 7.0) << key;
    }
}

TEST(Configuration, ParseReplacesWhatWasReadBefore) {
    const tests::TempFolder folder;
    Configuration configuration;
    EXPECT_TRUE(configuration.parse(folder.write("a.ini", "[s]\na=1\n")));
    EXPECT_TRUE(configuration.parse(folder.write("b.ini", "[s]\nb=2\n")));
    EXPECT_THAT(configuration.getProperties("s"), ElementsAre("b"));
    EXPECT_FALSE(configuration.parse(folder.path("none.ini")));
    EXPECT_THAT(configuration.getProperties("s"), IsEmpty());
}

TEST(Configuration, ParseTakesAnyPathTextWithoutAnException) {
    const tests::TempFolder folder;
    const std::string file = folder.write("a.ini", "[s]\na=1\n");
    const std::string rows[] = {"",
                                folder.path("none.ini"),
                                folder.path(""),
                                ".",
                                file + "\0"s,
                                file + "\0x"s,
                                "\0"s,
                                std::string(5000, 'x'),
                                std::string(3000000, '/'),
                                file + "/below",
                                "{\"content\":{\"name\":\"algo/one\"}}",
                                "\xff\xfe",
                                "\n"};
    for (const std::string& path : rows) {
        Configuration configuration;
        EXPECT_NO_THROW(EXPECT_FALSE(configuration.parse(path)) << path.substr(0, 60));
        EXPECT_THAT(configuration.getProperties("s"), IsEmpty());
    }
}

}  // namespace
}  // namespace utils

// What a load writes to standard error, held back or passed on.

#include "ttconfig/settings/quietload.h"

#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

// What gets through when the texts are written one after the other.
std::string passedOn(const std::vector<std::string>& texts) {
    const std::ostringstream screen;
    std::streambuf* const before = std::cerr.rdbuf(screen.rdbuf());
    {
        const ttconfig::QuietLoad quiet;
        for (const std::string& text : texts)
            std::cerr << text << std::flush;
    }
    std::cerr.rdbuf(before);
    return screen.str();
}

TEST(QuietLoad, KeepsLinesAboutPiecesBackAndPassesTheOthersOn) {
    const std::string bad = "get bson value error, bad lexical cast\n";
    EXPECT_EQ(passedOn({bad, "one\n", bad + bad, "two\n" + bad}), "one\ntwo\n");
    EXPECT_EQ(passedOn({}), "");
    EXPECT_EQ(passedOn({"\n"}), "\n");
}

TEST(QuietLoad, TakesLinesThatComeInPieces) {
    EXPECT_EQ(passedOn({"get bson ", "value error, x", "\na", "b\nc"}), "ab\nc\n");
    std::vector<std::string> bytes;
    for (const char byte : std::string("get bson value error, x\nget\n"))
        bytes.emplace_back(1, byte);
    EXPECT_EQ(passedOn(bytes), "get\n");
}

}  // namespace

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "tests/support/allocations.h"
#include "tests/support/store.h"
#include "traderbase/base/config/configcollector.h"

using ttservice::ConfigCollector;

namespace {

const std::string kSample = TT_SOURCE_DIR "/samples/settings.ini";

// Every load adds to the combination groups, on purpose, so the settings here have them in a section that nothing
// reads.
std::string sampleWithoutCombinations() {
    std::ifstream file(kSample, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    std::string text = bytes.str();
    const std::string header = "[specialCombCompacts]";
    const std::size_t at = text.find(header);
    EXPECT_NE(at, std::string::npos);
    return at == std::string::npos ? text : text.replace(at, header.size(), "[nobody reads this]");
}

}  // namespace

TEST(Memory, LoadingAgainAndAgainHoldsNoMore) {
    tests::StandardError caught;
    const tests::TempFolder folder;
    const std::string path = folder.write("settings.ini", sampleWithoutCombinations());
    const auto store = ConfigCollector::instance();
    store->readConfig(path);
    store->readConfig(path);
    const tests::Allocations counted;
    for (int i = 0; i < 1000; ++i) {
        store->readConfig(path);
        caught.clear();
    }
    EXPECT_LE(counted.held(), 0);
}

TEST(Memory, AskingHoldsNothing) {
    tests::StandardError caught;
    const auto store = ConfigCollector::instance();
    store->readConfig(kSample);
    const tests::Allocations counted;
    for (int platform = 0; platform < 1000; ++platform) {
        store->isNeedMaxAmountPts(platform);
        store->isSomePt("a key that no file has and that is longer than any text kept in place", platform);
        store->getPts("a key that no file has and that is longer than any text kept in place");
        store->getCounterMaxCompactsRespNum(platform);
        store->getMaxPermission("no such permission, under a name longer than any text kept in place");
        store->getAllpts();
    }
    EXPECT_EQ(counted.held(), 0);
}

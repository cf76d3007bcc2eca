// Settings files that are missing, too large or not files at all. The library answers with whatever could be read, and
// never waits.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/clientfolder.h"
#include "tests/support/sanitizers.h"
#include "tests/support/standarderror.h"
#include "traderbase/base/config/configcollector.h"

using tests::ClientFolder;
using tests::TempFolder;
using ttservice::ConfigCollector;

namespace fs = std::filesystem;

namespace {

// Ends the test if a load hangs.
class Deadline {
public:
    explicit Deadline(unsigned seconds) { alarm(seconds); }
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;
    ~Deadline() { alarm(0); }
};

constexpr unsigned kLongestLoad = 240;

constexpr unsigned kAtOnce = 20;
constexpr int kDefaultDays = -1;

// Checks the result of loading a file with at most one setting: that setting, the defaults, the path, and no messages.
void expectDaysAfterLoading(const std::string& path, int days, unsigned longest) {
    const Deadline deadline(longest);
    const tests::StandardError caught;
    const auto store = ConfigCollector::instance();
    store->readConfig(path);
    std::string original;
    store->getOriginalStr(original);
    EXPECT_EQ(original, path);
    EXPECT_EQ(store->getFlowHistoryDays(), days);
    EXPECT_EQ(store->getCounterMaxCompactsRespNum(1), 500);
    EXPECT_EQ(store->getAllpts().size(), days == kDefaultDays ? 0U : 1U);
    EXPECT_EQ(caught.text(), "");
}

void expectDefaultsAfterLoading(const std::string& path, unsigned longest = kLongestLoad) {
    expectDaysAfterLoading(path, kDefaultDays, longest);
}

// A file of that size: one setting, followed by NULs only.
void writeSparse(const std::string& path, std::uintmax_t size) {
    std::ofstream(path, std::ios::binary) << "[setting]\nflowhistorydays=5\n";
    fs::resize_file(path, size);
}

}  // namespace

TEST(FileFaults, AMissingFileGivesDefaults) {
    const ClientFolder client;
    const TempFolder folder;
    expectDefaultsAfterLoading(folder.path("missing.ini"));
    expectDefaultsAfterLoading("");
    expectDefaultsAfterLoading(std::string("a\0b", 3));
    expectDefaultsAfterLoading(std::string(100000, 'x'));
}

TEST(FileFaults, ADirectoryGivesDefaults) {
    const ClientFolder client;
    const TempFolder folder;
    expectDefaultsAfterLoading(folder.path(""));
}

TEST(FileFaults, AnUnreadableFileGivesDefaults) {
    const ClientFolder client;
    const TempFolder folder;
    const std::string path = folder.write("settings.ini", "[setting]\nflowhistorydays=5\n");
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    constexpr uid_t kNobody = 65534;  // root can read every file
    if (geteuid() == 0) {
        ASSERT_EQ(seteuid(kNobody), 0);
    }
    expectDefaultsAfterLoading(path);
    if (getuid() == 0) {
        ASSERT_EQ(seteuid(0), 0);
    }
}

TEST(FileFaults, ANamedPipeWithoutAWriterIsNotWaitedFor) {
    const ClientFolder client;
    const TempFolder folder;
    const std::string path = folder.path("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    expectDefaultsAfterLoading(path, kAtOnce);
}

TEST(FileFaults, DevicesAreNotRead) {
    const ClientFolder client;
    for (const char* path : {"/dev/zero", "/dev/full", "/dev/stdin"}) {
        if (fs::exists(path)) expectDefaultsAfterLoading(path);
    }
}

TEST(FileFaults, NothingButNulsGivesDefaults) {
    const ClientFolder client;
    const TempFolder folder;
    expectDefaultsAfterLoading(folder.write("settings.ini", std::string(1 << 20, '\0')));
}

TEST(FileFaults, AGigabyteIsReadToItsEnd) {
    const ClientFolder client;
    const TempFolder folder;
    const std::string path = folder.path("settings.ini");
    // The file is read into memory as a whole; under a sanitizer that would take several times as much.
    writeSparse(path, tests::kUnderSanitizer ? 100000000 : 1000000000);
    expectDaysAfterLoading(path, 5, kLongestLoad);
    EXPECT_EQ(ConfigCollector::instance()->getHgtSgtPriceDiff(), "");
    std::ofstream(path, std::ios::binary | std::ios::app) << "\n[HgtSgtPriceDiff]\nprice_diff=the end\n";
    expectDaysAfterLoading(path, 5, kLongestLoad);
    EXPECT_EQ(ConfigCollector::instance()->getHgtSgtPriceDiff(), "the end");
}

TEST(FileFaults, MoreThanAGibibyteIsNotEvenOpened) {
    const ClientFolder client;
    const TempFolder folder;
    const std::string path = folder.path("settings.ini");
    for (const std::uintmax_t size : {(std::uintmax_t{1} << 30) + 1, std::uintmax_t{1} << 43}) {
        writeSparse(path, size);
        expectDefaultsAfterLoading(path, kAtOnce);
    }
}

TEST(FileFaults, ALineOfAHundredMegabytesIsOneValue) {
    const ClientFolder client;
    const TempFolder folder;
    const std::size_t size = 100000000;
    const std::string path = folder.path("settings.ini");
    {
        std::ofstream file(path, std::ios::binary);
        file << "[HgtSgtPriceDiff]\nprice_diff=" << std::string(size, 'x') << "\n[setting]\nflowhistorydays=5\n";
    }
    const Deadline deadline(kLongestLoad);
    const tests::StandardError caught;
    const auto store = ConfigCollector::instance();
    store->readConfig(path);
    EXPECT_EQ(store->getHgtSgtPriceDiff().size(), size);
    EXPECT_EQ(store->getFlowHistoryDays(), 5);
    {
        std::ofstream file(path, std::ios::binary);
        file << "[setting]\nneedmaxamount=" << std::string(size, ',') << "7\nflowhistorydays=6\n";
    }
    store->readConfig(path);
    EXPECT_EQ(store->getPts("needmaxamount"), std::vector<int>{7});
    EXPECT_EQ(store->getFlowHistoryDays(), 6);
}

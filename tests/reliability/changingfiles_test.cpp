// Settings files that change while the library loads them: it loads only what was in them.

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "tests/reliability/changingfile.h"
#include "tests/support/clientfolder.h"
#include "tests/support/sanitizers.h"
#include "tests/support/standarderror.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/store/storeslot.h"

using tests::ClientFolder;
using tests::CutLoad;
using tests::SwitchLists;
using tests::TempFolder;
using ttservice::internal::StoreSlot;

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kSwitches = 2047;
constexpr int kMostLoads = 2000;  // a handful shows everything, unless the machine is busy
constexpr int kLeastReplaced = tests::kUnderSanitizer ? 60 : 300;
constexpr unsigned kLongestLoad = 240;

// What a load into an empty store finds. A load that hangs ends the test.
SwitchLists loaded(const std::string& path) {
    const auto store = StoreSlot::build();
    StoreSlot::exchange(store);
    alarm(kLongestLoad);
    store->readConfig(path);
    alarm(0);
    return store->getAllpts();
}

}  // namespace

// The file is whole when it is opened and truncated afterwards, so a short load was cut off while reading.
TEST(FileFaults, AFileThatIsTruncatedWhileReadGivesWhatWasThere) {
    const ClientFolder client;
    const TempFolder folder;
    const tests::StandardError caught;
    const std::vector<int> list(8, 7);
    const std::string text = tests::pagesOfSwitches(kSwitches, list);
    const SwitchLists whole = tests::listsOfPages(kSwitches, list);
    std::map<CutLoad, int> seen;
    for (int load = 0; load < kMostLoads && (load < 100 || (seen[CutLoad::Short] < 10 && seen[CutLoad::Damaged] < 10));
         ++load) {
        const std::string path = folder.write("settings.ini", text);
        const std::size_t cutPage = 1 + static_cast<std::size_t>(load) * 389 % kSwitches;
        SwitchLists lists;
        {
            const tests::WhenOpened cut(
                path, 1, [&] { fs::resize_file(path, cutPage * tests::kPageSize + tests::kPageSize / 2); });
            lists = loaded(path);
        }
        const CutLoad judged = tests::judgedCutLoad(lists, whole, cutPage);
        ASSERT_NE(judged, CutLoad::Illegal) << lists.size() << " switches of a file cut off in page " << cutPage;
        ++seen[judged];
    }
    EXPECT_GE(seen[CutLoad::Short], 10);
    // Happens now and then, not every time.
    EXPECT_LT(seen[CutLoad::Damaged], seen[CutLoad::Short]);
    std::cout << seen[CutLoad::Whole] << " whole loads, " << seen[CutLoad::Short] << " short ones, "
              << seen[CutLoad::Damaged] << " damaged\n";
}

// The usual way to replace a file: write it beside the old one, then rename it.
TEST(FileFaults, AFileThatIsReplacedWhileReadIsTheOldOrTheNewOne) {
    const ClientFolder client;
    const TempFolder folder;
    const tests::StandardError caught;
    const SwitchLists first = tests::listsOfPages(kSwitches, {1, 2});
    const SwitchLists second = tests::listsOfPages(kSwitches / 2, {3, 4, 5});
    const tests::Replacing replacing(folder, tests::pagesOfSwitches(kSwitches, {1, 2}),
                                     tests::pagesOfSwitches(kSwitches / 2, {3, 4, 5}));
    int firsts = 0;
    int seconds = 0;
    int disturbed = 0;
    for (int load = 0; load < kMostLoads && (load < kLeastReplaced || firsts < 10 || seconds < 10 || disturbed < 10);
         ++load) {
        const long before = replacing.times();
        const SwitchLists lists = loaded(replacing.path());
        if (replacing.times() > before + 1) ++disturbed;
        const bool isFirst = lists == first;
        ASSERT_TRUE(isFirst || lists == second) << lists.size() << " switches of neither file or of both";
        ++(isFirst ? firsts : seconds);
    }
    EXPECT_GE(firsts, 10);
    EXPECT_GE(seconds, 10);
    EXPECT_GE(disturbed, 10);
    std::cout << firsts << " and " << seconds << " loads, during " << disturbed << " of them it was replaced, "
              << replacing.times() << " times in all\n";
}

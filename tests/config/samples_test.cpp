#include <gtest/gtest.h>

#include <set>
#include <string>

#include "standin/settingstext.h"
#include "tests/support/standarderror.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"

using ttservice::ConfigCollector;
namespace internal = ttservice::internal;

namespace {

const std::string kSample = TT_SOURCE_DIR "/samples/settings.ini";

bool isSwitch(std::string_view key) {
    for (const auto& row : internal::kPlatformSwitches) {
        if (row.key == key) return true;
    }
    return false;
}

}  // namespace

TEST(SampleSettings, UseManySwitchesOverManyPlatforms) {
    const tests::StandardError caught;
    const auto store = ConfigCollector::instance();
    store->readConfig(kSample);
    std::set<int> platforms;
    int inUse = 0;
    for (const auto& row : internal::kPlatformSwitches) {
        const auto listed = store->getPts(std::string(row.key));
        inUse += !listed.empty();
        platforms.insert(listed.begin(), listed.end());
    }
    EXPECT_GE(inUse, 40);
    EXPECT_GE(platforms.size(), 25U);
    EXPECT_TRUE(store->isNeedMaxAmountPts(12));
}

TEST(SampleSettings, HoldExactlyTheKeysThatAnswerQuestions) {
    standin::SettingsText text;
    ASSERT_EQ(standin::SettingsText::load(kSample, text), standin::FileProblem::kNone);
    for (const internal::SettingKey& row : internal::kSettingKeys) {
        const bool isThere =
            row.key == "*" ? text.findSection(row.section) != nullptr : text.findEntry(row.section, row.key) != nullptr;
        EXPECT_EQ(isThere, !row.feeds.empty()) << row.section << " / " << row.key;
    }
}

TEST(SampleSettings, HoldNothingUnread) {
    standin::SettingsText text;
    ASSERT_EQ(standin::SettingsText::load(kSample, text), standin::FileProblem::kNone);
    EXPECT_TRUE(text.ignoredLines().empty());
    EXPECT_TRUE(text.entriesOutside().empty());
    for (const standin::SettingsSection& section : text.sections()) {
        for (const standin::SettingsEntry& entry : section.entries) {
            bool known = section.name == "setting" && isSwitch(entry.key);
            for (const internal::SettingKey& row : internal::kSettingKeys) {
                known = known || (row.section == section.name && (row.key == entry.key || row.key == "*"));
            }
            EXPECT_TRUE(known) << section.name << " / " << entry.key << ", line " << entry.line;
            EXPECT_FALSE(entry.repeated) << section.name << " / " << entry.key << ", line " << entry.line;
        }
    }
}

TEST(SampleSettings, CauseOneComplaintPerValueThatIsNotAPlatformList) {
    standin::SettingsText text;
    ASSERT_EQ(standin::SettingsText::load(kSample, text), standin::FileProblem::kNone);
    std::string expected;
    for (const standin::SettingsEntry& entry : text.findSection("setting")->entries) {
        std::string_view rest = entry.value;
        while (!rest.empty()) {
            const std::string_view piece = rest.substr(0, rest.find(','));
            rest.remove_prefix(std::min(piece.size() + 1, rest.size()));
            if (piece.find_first_not_of("0123456789-") != std::string_view::npos) expected += tests::kBadValueLine;
        }
    }
    const tests::StandardError caught;
    ConfigCollector::instance()->readConfig(kSample);
    EXPECT_EQ(caught.text(), expected);
    EXPECT_NE(expected, "");
}

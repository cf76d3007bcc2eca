// Loads pairs of generated settings into separate stores and asks both every question. The differences must be exactly
// the questions whose answers differ, each with both answers.

#include <gtest/gtest.h>
#include <standin/platformdata.h>
#include <standin/settingstext.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/support/sanitizers.h"
#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/differences/allanswers.h"
#include "tests/tools/ttconfig/differences/settingsmaker.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/limits/limitrows.h"
#include "traderbase/base/config/internal/platforms/perplatformlist.h"
#include "ttconfig/differences/differences.h"
#include "ttconfig/tables/limitquestions.h"

namespace {

using tests::allAnswers;
using tests::Answers;
using tests::kNobody;
using tests::loadedStore;
using tests::platformsOfKinds;
using tests::SettingsMaker;
using tests::shown;

constexpr unsigned kPairs = 500 / tests::kTriedOneIn;

// The items that the rows of a section name, as "SH-600000: getOrderLimit". Rows that a load ignores are left out.
void addNamed(const standin::SettingsText& text, const char* section, std::size_t fields, const char* question,
              std::set<std::string>& named) {
    using namespace ttservice::internal;
    const auto* found = text.findSection(section);
    if (found == nullptr) return;
    for (const auto& entry : found->entries) {
        if (entry.repeated || fieldCount(entry.value) != fields) continue;
        forEachLimitItem(entry.key, [&](const LimitItem& item) {
            const MarketItem key = tableKey(item);
            named.insert(key.first + '-' + key.second + ": " + question);
        });
    }
}

std::set<std::string> namedPlaces(const std::string& before, const std::string& after) {
    std::set<std::string> named;
    for (const std::string* settings : {&before, &after}) {
        const standin::SettingsText text(*settings);
        for (const char* section : {"StkExchangeOrderLimit", "HGTExchangeOrderLimit", "SgtExchangeOrderLimit"})
            addNamed(text, section, 2, "getOrderLimit", named);
        addNamed(text, "StkExchangeRateLimit", 7, "getRateLimitPtr", named);
        addNamed(text, "HGTExchangeRateLimit", 14, "getHGTExchangeRateLimitPtr", named);
        addNamed(text, "SgtExchangeRateLimit", 14, "getSgtExchangeRateLimitPtr", named);
    }
    return named;
}

bool isAboutACode(const std::string& question) {
    static const std::set<std::string> kAskedByCode = {"getOrderLimit", "getRateLimitPtr", "getHGTExchangeRateLimitPtr",
                                                       "getSgtExchangeRateLimitPtr"};
    const std::size_t dash = question.find('-');
    const std::size_t colon = question.find(": ");
    return kAskedByCode.count(question.substr(colon + 2)) != 0 &&
           !ttconfig::isCategoryWord(question.substr(dash + 1, colon - dash - 1));
}

// A code that no row of either text names follows its category, and is reported under it.
bool followsCategory(const std::string& question, const std::set<std::string>& named) {
    return isAboutACode(question) && named.count(question) == 0;
}

// The answers that differ, as "before → after"; null where an answer depends on the kind of instrument.
std::map<std::string, std::string> changedAnswers(const Answers& before, const Answers& after,
                                                  const std::set<std::string>& named) {
    const auto one = [](const std::vector<std::string>& texts) {
        return std::set<std::string>(texts.begin(), texts.end()).size() == 1 ? texts.front() : std::string("null");
    };
    std::map<std::string, std::string> changed;
    for (const auto& [question, old] : before) {
        const auto& now = after.at(question);
        const std::string answers = one(old) + " → " + one(now);
        // A fund that neither list names follows the answer for all funds.
        const bool followsAll = question.find("isMonetaryFundUseSloBalanceFirst") != std::string::npos &&
                                (answers == "false → null" || answers == "null → false");
        if (old != now && !followsAll && !followsCategory(question, named)) changed[question] = answers;
    }
    return changed;
}

std::map<std::string, std::string> toldChanges(const std::string& before, const std::string& after,
                                               const std::vector<int>& platforms,
                                               const standin::PlatformData* data = nullptr) {
    const standin::SettingsText oldText(before);
    const standin::SettingsText newText(after);
    std::map<std::string, std::string> told;
    for (const ttconfig::Change& change : ttconfig::differences(oldText, newText, platforms, data)) {
        if (change.topic == ttconfig::ChangeTopic::Unit) continue;  // units have a test of their own
        const std::string question = change.subject + ": " + change.question;
        EXPECT_EQ(told.count(question), 0U) << question << " is told twice";
        told[question] = shown(change.before) + " → " + shown(change.after);
    }
    return told;
}

std::string firstUnlike(const std::map<std::string, std::string>& expected,
                        const std::map<std::string, std::string>& told) {
    for (const auto& [question, answers] : expected) {
        const auto found = told.find(question);
        if (found == told.end()) return "not told: " + question + " " + answers;
        if (found->second != answers) return question + " " + answers + " is told as " + found->second;
    }
    for (const auto& [question, answers] : told) {
        if (expected.count(question) == 0) return "told, but is none: " + question + " " + answers;
    }
    return {};
}

template <typename Value>
bool namesPlatform(std::string_view value, int platform) {
    using namespace ttservice::internal;
    bool named = false;
    splitKeepEmpty(value, ';', [&](std::string_view text) {
        const auto item = perPlatformItem<Value>(text);
        named = named || (item.kind == PerPlatformItemKind::Entry && item.platform == platform);
    });
    return named;
}

// Whether the value that answers a question names the platform in this text.
bool namesPlatform(const std::string& settings, const std::string& operation, int platform) {
    using namespace ttservice::internal;
    const standin::SettingsText text(settings);
    for (const SettingKey& row : kSettingKeys) {
        const auto* entry = text.findEntry(row.section, row.key);
        if (entry == nullptr || (' ' + std::string(row.feeds) + ' ').find(' ' + operation + ' ') == std::string::npos) {
            continue;
        }
        if (row.grammar == ValueGrammar::PerPlatformInteger) return namesPlatform<int>(entry->value, platform);
        if (row.grammar == ValueGrammar::PerPlatformDecimalKeepEmpty)
            return namesPlatform<double>(entry->value, platform);
        return namesPlatform<bool>(entry->value, platform);
    }
    return false;
}

// Platforms that neither text names for a value are reported together.
void dropThoseToldTogether(const std::string& before, const std::string& after,
                           std::map<std::string, std::string>& expected) {
    for (auto item = expected.begin(); item != expected.end();) {
        const std::string& question = item->first;
        const std::size_t colon = question.find(": ");
        const std::string operation = question.substr(colon + 2);
        const bool isPlatform = question.rfind("platform ", 0) == 0;
        const auto together = expected.find("every other platform: " + operation);
        const int platform = isPlatform ? std::stoi(question.substr(9, colon - 9)) : 0;
        if (isPlatform && together != expected.end() && together->second == item->second &&
            !namesPlatform(before, operation, platform) && !namesPlatform(after, operation, platform)) {
            item = expected.erase(item);
        } else {
            ++item;
        }
    }
}

bool isAskedWithPlatform(const std::string& question, const std::string& platform) {
    return question.rfind("platform " + platform + ": ", 0) == 0;
}

constexpr unsigned kLimitedPairs = 60 / tests::kTriedOneIn;

TEST(DifferencesOracle, ReportsExactlyTheQuestionsWhoseAnswersDiffer) {
    const tests::TempFolder folder;
    const auto platformKinds = platformsOfKinds();
    std::size_t questions = 0;
    std::size_t changes = 0;
    int alike = 0;
    for (unsigned seed = 0; seed < kPairs && !HasFailure(); ++seed) {
        SettingsMaker maker(seed);
        const auto [before, after] = maker.pair();
        const Answers old = allAnswers(*loadedStore(folder, before), platformKinds);
        const Answers now = allAnswers(*loadedStore(folder, after), platformKinds);
        auto expected = changedAnswers(old, now, namedPlaces(before, after));
        dropThoseToldTogether(before, after, expected);
        const auto told = toldChanges(before, after, {});
        EXPECT_EQ(firstUnlike(expected, told), "") << "seed " << seed << "\n--- old\n"
                                                   << before << "--- new\n"
                                                   << after;
        questions += old.size();
        changes += expected.size();
        alike += expected.empty() ? 1 : 0;
    }
    EXPECT_GT(questions, 100000U / tests::kTriedOneIn);
    EXPECT_GT(changes, 5000U / tests::kTriedOneIn);
    EXPECT_GT(alike, static_cast<int>(5 / tests::kTriedOneIn));
    RecordProperty("questions", static_cast<int>(questions));
    RecordProperty("changes", static_cast<int>(changes));
}

TEST(DifferencesOracle, LimitedToPlatformsReportsOnlyTheirQuestions) {
    const tests::TempFolder folder;
    const auto platformKinds = platformsOfKinds();
    for (unsigned seed = 1000; seed < 1000 + kLimitedPairs && !HasFailure(); ++seed) {
        SettingsMaker maker(seed);
        const auto [before, after] = maker.pair();
        const auto all =
            changedAnswers(allAnswers(*loadedStore(folder, before), platformKinds),
                           allAnswers(*loadedStore(folder, after), platformKinds), namedPlaces(before, after));
        std::map<std::string, std::string> expected;
        for (const auto& [question, answers] : all) {
            const std::string other = "every other platform: ";
            if (isAskedWithPlatform(question, "12") || isAskedWithPlatform(question, "-5"))
                expected[question] = answers;
            if (question.rfind(other, 0) == 0) {
                expected["platform " + std::to_string(kNobody) + ": " + question.substr(other.size())] = answers;
            }
        }
        EXPECT_EQ(firstUnlike(expected, toldChanges(before, after, {kNobody, 12, -5, 12})), "") << "seed " << seed;
    }
}

// --- with platform data

std::map<std::string, std::string> aboutCodes(const std::map<std::string, std::string>& changes) {
    std::map<std::string, std::string> chosen;
    for (const auto& change : changes) {
        if (isAboutACode(change.first)) chosen.insert(change);
    }
    return chosen;
}

TEST(DifferencesOracle, WithPlatformDataKnowsTheCategoryOfACode) {
    const tests::TempFolder folder;
    std::size_t changes = 0;
    std::size_t byCategory = 0;
    unsigned seed = 2000;
    for (const auto& kind : platformsOfKinds()) {
        // The data do not know an instrument of a kind without types.
        if (!ttconfig::knowsInstrument(*kind, "SH", "1")) continue;
        for (unsigned round = 0; round < 25 / tests::kTriedOneIn && !HasFailure(); ++round) {
            SettingsMaker maker(seed++);
            const auto [before, after] = maker.pair();
            const auto expected =
                aboutCodes(changedAnswers(allAnswers(*loadedStore(folder, before), {kind}),
                                          allAnswers(*loadedStore(folder, after), {kind}), namedPlaces(before, after)));
            const auto told = aboutCodes(toldChanges(before, after, {}, kind.get()));
            EXPECT_EQ(firstUnlike(expected, told), "") << "seed " << seed - 1 << "\n--- old\n"
                                                       << before << "--- new\n"
                                                       << after;
            changes += expected.size();
            for (const auto& change : aboutCodes(toldChanges(before, after, {})))
                byCategory += change.second.find("null") != std::string::npos ? 1U : 0U;
        }
    }
    EXPECT_GT(changes, 250U / tests::kTriedOneIn);
    EXPECT_GT(byCategory, 60U / tests::kTriedOneIn) << "without the data many are told as going by their category";
}

}  // namespace

#include "ttconfig/report/reportdata.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "tests/tools/ttconfig/report/madereport.h"
#include "tests/tools/ttconfig/support/recorded.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "ttconfig/calls/calltable.h"
#include "ttconfig/findings/checking.h"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;
using testing::IsEmpty;
using ttconfig::ReportBounds;
using ttconfig::ReportedFile;
using ttconfig::ReportInput;
using ttservice::internal::kPlatformSwitchCount;
using ttservice::internal::kPlatformSwitches;

ReportedFile fileOf(const std::string& text) {
    return {"settings.ini", "2026-01-02 03:04:05 UTC", standin::SettingsText(text)};
}

std::string writtenData(const ReportInput& input, const ReportBounds& bounds = {}) {
    std::string text;
    ttconfig::JsonStream json([&text](std::string_view piece) { text += piece; });
    ttconfig::writeReportData(json, input, bounds);
    json.flush();
    return text;
}

ReportInput inputOf(const std::string& text, const ReportedFile* old = nullptr) {
    ReportInput input;
    input.file = fileOf(text);
    input.old = old;
    input.marketTimeScript = "none.lua";
    return input;
}

Json dataOf(const std::string& text, const ReportedFile* old = nullptr, const ReportBounds& bounds = {}) {
    return Json::parse(writtenData(inputOf(text, old), bounds));
}

Json rowOf(const Json& rows, const char* key) {
    for (const Json& row : rows) {
        if (row.at("key") == key) return row;
    }
    return {};
}

Json tableOf(const Json& data, const char* title) {
    for (const Json& table : data.at("limits")) {
        if (table.at("title") == title) return table.at("rows");
    }
    return {};
}

const std::string kSampleText = tests::fileText(std::string(TT_SOURCE_DIR) + "/samples/settings.ini");

// One line for each member, and one for each of its elements.
std::string linesOf(const nlohmann::ordered_json& data) {
    std::string text;
    for (const auto& [name, value] : data.items()) {
        text += name + '\n';
        for (const auto& element : value)
            text += "  " + element.dump() + '\n';
    }
    return text;
}

// All the page's data about a small pair of files, except the results of check and diff, and the versions.
TEST(ReportData, ForASmallPairOfFilesIsAsRecorded) {
    const fs::path folder = fs::path(TT_SOURCE_DIR) / "tests/tools/ttconfig/report/golden";
    fs::current_path(fs::path(TT_SOURCE_DIR) / "tests/tools/ttconfig/sessions/settings");
    const ReportedFile old = fileOf(tests::fileText((folder / "old.ini").string()));
    ReportInput input = inputOf(tests::fileText((folder / "new.ini").string()), &old);
    input.marketTimeScript = "../luaScripts/MarketTime.lua";
    auto data = nlohmann::ordered_json::parse(writtenData(input));
    for (const char* other : {"findings", "changes", "versions"})
        data.erase(other);
    tests::expectAsRecorded(linesOf(data), folder / "data.txt");
}

TEST(ReportData, SwitchesAreAsTheStoreAnswers) {
    ttservice::ConfigCollector::instance()->readConfig(std::string(TT_SOURCE_DIR) + "/samples/settings.ini");
    const Json data = dataOf(kSampleText);
    const Json& platforms = data.at("platforms");
    EXPECT_EQ(platforms.size(), 27U);
    ASSERT_EQ(data.at("switches").size(), kPlatformSwitchCount);
    ttconfig::CallState state;
    std::size_t on = 0;
    for (const Json& row : data.at("switches")) {
        const auto listed = row.at("listed").get<std::set<std::size_t>>();
        for (std::size_t i = 0; i < platforms.size(); ++i) {
            const bool answer = listed.count(i) == (row.at("inverted") ? 0U : 1U);
            const std::string predicate = row.at("predicate");
            EXPECT_EQ(ttconfig::callTable().answer(state, predicate, {platforms[i]}), answer) << predicate;
            on += answer ? 1 : 0;
        }
    }
    EXPECT_GT(on, 200U);
}

TEST(ReportData, ValuesByPlatformAreAsTheStoreAnswers) {
    ttservice::ConfigCollector::instance()->readConfig(std::string(TT_SOURCE_DIR) + "/samples/settings.ini");
    const Json data = dataOf(kSampleText);
    ttconfig::CallState state;
    for (const auto& [key, call] :
         {std::pair("ist0forreturnstock", "isT0ForReturnStockPts"),
          std::pair("isspxcreditmodules", "isSPXCreditStockPts"), std::pair("renewalpts", "getRenewalPts"),
          std::pair("counterMaxCompactsRespNum", "getCounterMaxCompactsRespNum"),
          std::pair("isneedcheckassureenbuybalance", "isNeedCheckAssureEnbuyBalancePts"),
          std::pair("setavailable", "getisSetavailable")}) {
        const Json row = rowOf(data.at("values"), key);
        ASSERT_TRUE(row.is_object()) << key;
        std::map<int, Json> byPlatform;
        for (const Json& entry : row.at("entries"))
            byPlatform[entry.at(0)] = entry.at(1);
        EXPECT_FALSE(byPlatform.empty()) << key;
        for (const Json& platform : data.at("platforms")) {
            const auto found = byPlatform.find(platform);
            const Json value = found == byPlatform.end() ? row.at("default") : found->second;
            EXPECT_EQ(Json(ttconfig::callTable().answer(state, call, {platform})), value) << key << ' ' << platform;
        }
    }
}

// The later of two rows for one item counts; market and item are in upper case.
TEST(ReportData, LimitRowsAreThoseThatCount) {
    const Json data = dataOf(
        "[StkExchangeOrderLimit]\nsh-stock,SZ-STOCK=1,a\nSH-600000=x,b\nSH-X=1\nSH-Y=1,2,3\n"
        "[SgtExchangeOrderLimit]\nSH-STOCK=2,c\n");
    EXPECT_EQ(tableOf(data, "Order limits"),
              Json::parse(R"([["SH","600000",[0,"b"],3],["SH","STOCK",[2,"c"],7],["SZ","STOCK",[1,"a"],2]])"));
}

TEST(ReportData, ChangedRowsCarryWhatTheyWereBefore) {
    const ReportedFile old = fileOf("[StkExchangeOrderLimit]\nSH-A=1,u\nSH-B=2,u\n");
    const Json data = dataOf("[StkExchangeOrderLimit]\nSH-B=3,u\nSH-C=4,u\n", &old);
    EXPECT_EQ(tableOf(data, "Order limits"), Json::parse(R"([["SH","A",null,0,[1,"u"],2],["SH","B",[3,"u"],2,[2,"u"],3],
                                                            ["SH","C",[4,"u"],3,null,0]])"));
}

// Keys that answer no question are shown as written, and nothing is shown twice.
TEST(ReportData, EveryKeyOfTheCatalogueIsShownOnce) {
    using ttservice::internal::kSettingKeys;
    using ttservice::internal::ValueGrammar;
    std::string text;
    for (const auto& key : kSettingKeys)
        text += '[' + std::string(key.section) + "]\n" + (key.key == "*" ? "SH-any" : std::string(key.key)) + "=1\n";
    const Json data = dataOf(text);
    std::multiset<std::string> shown;
    for (const char* member : {"scalars", "values"}) {
        for (const Json& row : data.at(member))
            shown.insert(row.at("section").get<std::string>() + '/' + row.at("key").get<std::string>());
    }
    for (const Json& row : data.at("others"))
        shown.insert(row.at(0).get<std::string>() + '/' + row.at(1).get<std::string>());
    for (const auto& key : kSettingKeys) {
        // Keys whose rows have tables of their own.
        const bool isRow =
            key.grammar >= ValueGrammar::OrderLimitRow && key.grammar <= ValueGrammar::FixedIncomeNumbers;
        if (isRow || key.section == "StandardBondUseLimit") continue;
        const std::string name = std::string(key.section) + '/' + (key.key == "*" ? "SH-any" : std::string(key.key));
        EXPECT_EQ(shown.count(name), 1U) << name;
    }
}

TEST(ReportData, FindingsAreThoseOfCheck) {
    const std::string text = "[setting]\nneedmaxamout=12\nneedmaxamount=12, 15\nneedmaxamount=3\n";
    const auto findings = ttconfig::checkSettings(standin::SettingsText(text));
    const Json list = dataOf(text).at("findings").at("list");
    ASSERT_EQ(list.size(), findings.size());
    EXPECT_GE(findings.size(), 3U);
    for (std::size_t i = 0; i < list.size(); ++i) {
        EXPECT_EQ(list[i].at(0), static_cast<int>(findings[i].severity));
        EXPECT_EQ(list[i].at(1), findings[i].rule);
        EXPECT_EQ(list[i].at(2), findings[i].place.line);
        EXPECT_EQ(list[i].at(3), findings[i].place.column);
        EXPECT_EQ(list[i].at(4), findings[i].message);
        EXPECT_EQ(list[i].at(5), findings[i].related ? findings[i].related->line : 0);
    }
}

TEST(ReportData, ChangesAreThoseOfDiff) {
    const ReportedFile old = fileOf("[setting]\nneedmaxamount=12,15\n");
    const Json data = dataOf("[setting]\n\nneedmaxamount=15,12\n", &old);
    EXPECT_THAT(data.at("changes").at("list"), IsEmpty());
    const Json changed = dataOf("[setting]\n\nneedmaxamount=15\n", &old).at("changes").at("list");
    ASSERT_EQ(changed.size(), 1U);
    EXPECT_EQ(changed[0], Json::parse(R"(["platform 12","isNeedMaxAmountPts","on","off",2,3])"));
    EXPECT_EQ(dataOf("[setting]\n").at("changes"), nullptr);
}

// --- more than a page can hold

TEST(ReportData, LongTablesAreCutAndSaySo) {
    std::string text =
        "[setting]\ncounterMaxCompactsRespNum=1:1;2:2;3:3;4:4;5\nbad1=1\nbad2=2\nbad3=3\n"
        "needmaxamount=1,2,3,4,5\n[FUTURE_SUBSCRIBE_PRODUCTS]\na=1\nb=2\nc=3\n[StkExchangeOrderLimit]\n";
    for (int i = 0; i < 9; ++i)
        text += "SH-" + std::to_string(i) + "=1,u\n";
    ReportBounds bounds;
    bounds.rows = 2;
    bounds.platforms = 3;
    bounds.findings = 1;
    bounds.changes = 1;
    const ReportedFile old = fileOf("[setting]\nneedmaxamount=9\n");
    const Json data = dataOf(text, &old, bounds);
    EXPECT_EQ(data.at("platforms"), Json({1, 2, 3}));
    EXPECT_EQ(data.at("platformsLeftOut"), 3);
    EXPECT_EQ(rowOf(data.at("switches"), "needmaxamount").at("listed"), Json({0, 1, 2}));
    EXPECT_EQ(rowOf(data.at("values"), "counterMaxCompactsRespNum").at("entries").size(), 2U);
    EXPECT_EQ(data.at("valuesLeftOut"), 2);
    EXPECT_EQ(data.at("othersLeftOut"), 1);
    EXPECT_EQ(tableOf(data, "Order limits").size(), 2U);
    EXPECT_EQ(data.at("limits").at(0).at("leftOut"), 7);
    EXPECT_EQ(data.at("findings").at("list").size(), 1U);
    EXPECT_GE(data.at("findings").at("leftOut"), 2);
    EXPECT_EQ(data.at("changes").at("list").size(), 1U);
    EXPECT_GE(data.at("changes").at("leftOut"), 5);
}

TEST(ReportData, OnlyReferencedLinesOfALongFileAreShown) {
    const std::string text =
        "; nothing\r\n[setting]\nneedmaxamount=12\n; more\nisshowmaxcanorder=1\nunknown=" + std::string(5000, 'x');
    ReportBounds bounds;
    bounds.lineLength = 20;
    const Json whole = dataOf(text, nullptr, bounds).at("source");
    EXPECT_EQ(whole.at("whole"), true);
    EXPECT_EQ(whole.at("lines"), Json({"; nothing", "[setting]", "needmaxamount=12", "; more", "isshowmaxcanorder=1",
                                       "unknown=xxxxxxxxxxxx..."}));
    bounds.wholeSource = text.size() - 1;
    const Json cut = dataOf(text, nullptr, bounds).at("source");
    EXPECT_EQ(cut.at("whole"), false);
    EXPECT_EQ(cut.at("lines"), Json::parse(R"([[3,"needmaxamount=12"],[5,"isshowmaxcanorder=1"],
                                              [6,"unknown=xxxxxxxxxxxx..."]])"));
}

// Every line that the data refer to can be shown.
TEST(ReportData, EveryLineReferredToIsInTheSource) {
    ReportBounds bounds;
    bounds.wholeSource = 0;
    const Json data = dataOf(kSampleText, nullptr, bounds);
    std::set<int> lines;
    for (const Json& line : data.at("source").at("lines"))
        lines.insert(line.at(0).get<int>());
    std::set<int> wanted;
    for (const char* member : {"switches", "values", "scalars"}) {
        for (const Json& row : data.at(member))
            wanted.insert(row.at("line").get<int>());
    }
    for (const Json& table : data.at("limits")) {
        for (const Json& row : table.at("rows"))
            wanted.insert(row.at(3).get<int>());
    }
    for (const Json& row : data.at("others"))
        wanted.insert(row.at(3).get<int>());
    for (const Json& row : data.at("findings").at("list"))
        wanted.insert({row.at(2).get<int>(), row.at(5).get<int>()});
    wanted.erase(0);
    EXPECT_GT(wanted.size(), 100U);
    EXPECT_EQ(lines, wanted);
}

}  // namespace

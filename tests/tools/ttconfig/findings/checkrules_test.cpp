// Every rule of `ttconfig check`: checks/RULE/hit.ini triggers it alone, checks/RULE/near.ini almost does. If there is
// a checks/RULE/platform.json, both are checked with that platform data.

#include <gmock/gmock.h>
#include <standin/platformdatafile.h>
#include <standin/settingstext.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "tests/tools/ttconfig/support/toolrun.h"
#include "ttconfig/findings/checking.h"
#include "ttconfig/findings/rules.h"

namespace {

namespace fs = std::filesystem;
using ttconfig::Finding;
using ttconfig::kRules;
using ttconfig::Rule;

const fs::path kChecks = fs::path(TT_SOURCE_DIR) / "tests/tools/ttconfig/checks";

std::vector<Finding> findingsIn(const fs::path& file) {
    standin::SettingsText text;
    EXPECT_EQ(standin::SettingsText::load(file.string(), text), standin::FileProblem::kNone) << file;
    const fs::path data = file.parent_path() / "platform.json";
    standin::PlatformData platform;
    std::string error;
    const bool hasData = fs::exists(data);
    if (hasData) {
        EXPECT_TRUE(standin::parsePlatformData(tests::fileText(data.string()), "data", platform, error)) << error;
    }
    std::vector<Finding> findings;
    ttconfig::checkSettings(text, hasData ? &platform : nullptr,
                            [&findings](Finding&& finding) { findings.push_back(std::move(finding)); });
    return findings;
}

std::string shown(const std::vector<Finding>& findings) {
    std::string text;
    for (const Finding& finding : findings) {
        text += std::to_string(finding.place.line) + ':' + std::to_string(finding.place.column) + ' ' +
                std::string(finding.rule) + ": " + finding.message + '\n';
    }
    return text;
}

TEST(CheckRules, EachHasAFileThatTriggersItAlone) {
    for (const Rule& rule : kRules) {
        const auto findings = findingsIn(kChecks / rule.name / "hit.ini");
        ASSERT_EQ(findings.size(), 1U) << rule.name << '\n' << shown(findings);
        EXPECT_EQ(findings[0].rule, rule.name);
        EXPECT_EQ(findings[0].severity, rule.severity) << rule.name;
        EXPECT_GE(findings[0].place.line, 1U) << rule.name;
        EXPECT_GE(findings[0].place.column, 1U) << rule.name;
        EXPECT_FALSE(findings[0].message.empty()) << rule.name;
        EXPECT_EQ(findings[0].message.find('\n'), std::string::npos) << rule.name;
    }
}

TEST(CheckRules, EachHasAFileThatNearlyTriggersItAndIsClean) {
    for (const Rule& rule : kRules)
        EXPECT_EQ(shown(findingsIn(kChecks / rule.name / "near.ini")), "") << rule.name;
}

TEST(CheckRules, RemovedRulesLeaveNoFiles) {
    std::set<std::string> names;
    for (const Rule& rule : kRules)
        names.insert(std::string(rule.name));
    for (const auto& folder : fs::directory_iterator(kChecks))
        EXPECT_EQ(names.count(folder.path().filename().string()), 1U) << folder.path();
}

// Further texts that trigger each rule, one per row: the section, the line, the rules in file order.
TEST(CheckRules, ReportEachMistakeOnce) {
    const struct {
        const char* section;
        const char* line;
        std::vector<std::string> rules;
    } rows[] = {
        // Lists of platforms.
        {"setting", "needmaxamount=12,15", {}},
        {"setting", "needmaxamount=", {}},
        {"setting", "needmaxamount=true", {"switch-as-flag"}},
        {"setting", "needmaxamount=12 15", {"wrong-separator"}},
        {"setting", "needmaxamount=12:1;15:0;1", {"switch-with-values"}},
        {"setting", "needmaxamount=12 # desk", {"comment-behind-value"}},
        {"setting", "needmaxamount=12, 15 # desk", {"comment-behind-value"}},
        {"setting", "needmaxamount=12, 15,16 # desk", {"blank-in-list", "comment-behind-value"}},
        {"setting", "needmaxamount=x,12,y", {"bad-platform-id", "bad-platform-id"}},
        {"setting", "needmaxamount=[12,15]", {"quoted-value"}},
        {"setting", "renewalpts={41:1,47:2}", {"quoted-value"}},
        {"setting", "needmaxamount=[12,15}", {"bad-platform-id", "bad-platform-id"}},
        {"setting", "needmaxamount=１２", {"full-width-character"}},
        // Single values.
        {"setting", "isshowmaxcanorder=", {"not-a-number"}},
        {"setting", "isshowmaxcanorder=yes", {"not-a-number"}},
        {"setting", "isshowmaxcanorder=-1", {"flag-not-0-or-1"}},
        {"setting", "isshowmaxcanorder=12:1;0", {"value-as-list"}},
        {"setting", "flowhistorydays=-2", {"value-out-of-range"}},
        {"setting", "flowhistorydays=1.5", {"not-a-number"}},
        {"setting", "refLimit=-5", {"value-out-of-range"}},
        {"HgtSgtPriceDiff", "price_diff=0.05 ; HKD", {"comment-behind-value"}},
        {"HgtSgtPriceDiff", "price_diff=0,05", {}},
        // Values by platform.
        {"setting", "isspxcreditmodules=12:1;15:0;1", {}},
        {"setting", "isspxcreditmodules=", {}},
        {"setting", "renewalpts=12,15", {"value-as-list"}},
        {"setting", "renewalpts=12:1,15:2", {"wrong-separator"}},
        {"setting", "renewalpts=12,15:1;0", {"wrong-separator"}},
        {"setting", "renewalpts=12:1:2", {"too-many-colons"}},
        {"setting", "renewalpts=:1;0", {"bad-platform-id"}},
        {"setting", "setavailable=12:-0.5;0", {"value-out-of-range"}},
        {"setting", "setavailable=12:0,8;0", {"bad-platform-value"}},
        {"setting", "usecounteripwanpos=12:-1;1", {"value-out-of-range"}},
        {"setting", "flowhistorydays=20260101", {"value-out-of-range"}},
        {"setting", "renewalpts=x:1;0", {"bad-platform-id"}},
        {"setting", "renewalpts=12:;0", {"bad-platform-value"}},
        {"setting", "renewalpts=12:3000000000;0", {"number-out-of-range"}},
        {"setting", "renewalpts=3000000000:1;0", {"platform-id-out-of-range"}},
        {"setting", "renewalpts=12:1; 15:2;0", {"blank-in-list"}},
        {"setting", "renewalpts=1;2;3", {"default-overwritten", "default-overwritten"}},
        {"setting", "setavailable=12:1;0.5;;15:1", {"default-overwritten"}},
        {"setting", "counterMaxCompactsRespNum=12:0;500", {"value-out-of-range"}},
        {"setting", "ist0forreturnstock=12:1", {"missing-default-item"}},
        {"setting", "sm3platformids=x", {"key-without-effect"}},
        {"setting", "finenablebailratio=1:0.5", {"key-without-effect"}},
        // Limits.
        {"StkExchangeOrderLimit", "SH-STOCK=100,股,", {"wrong-field-count"}},
        {"StkExchangeOrderLimit", "SH-STOCK=", {"wrong-field-count"}},
        {"StkExchangeOrderLimit", "SH-STOCK= 100 ,股", {"blank-in-list"}},
        {"StkExchangeOrderLimit", "SH-STOCK=100,股 ; shares", {"comment-behind-value"}},
        {"StkExchangeOrderLimit", "SH-STOCK=-1,股", {"value-out-of-range"}},
        {"StkExchangeOrderLimit", "SH-STOCK=3000000000,股", {"number-out-of-range"}},
        {"StkExchangeOrderLimit", "SH-STOCK,SH-STOCK=100,股", {"repeated-in-list"}},
        {"StkExchangeOrderLimit", "SH-STOCK, SZ-STOCK=100,股", {"blank-in-list"}},
        {"StkExchangeOrderLimit", "SH-MARKET=100,股", {"unreachable-row"}},
        {"StkExchangeOrderLimit", "SHO-CALL=100,张", {"unknown-category"}},
        {"StkExchangeOrderLimit", "SHFE-DEFF=100,手", {"unknown-category"}},
        {"StkExchangeOrderLimit", "IF-LOAN,INE-ETF,DCE-DEF=100,手", {"odd-for-futures", "odd-for-futures"}},
        {"StkExchangeOrderLimit", "SHFE-RB,CFFEX-IF,NASDAQ-IBM=100,手", {"odd-for-futures", "odd-for-futures"}},
        {"StkExchangeOrderLimit", "XX-1,XX-2,XY-1=100,股", {"unknown-market", "unknown-market"}},
        {"StkExchangeOrderLimit", "600000-SH,600001-SH=100,股", {"unreachable-row", "unreachable-row"}},
        {"StkExchangeOrderLimit", "SH-60*,*-STOCK=100,股", {"unreachable-row", "unreachable-row"}},
        {"StkExchangeOrderLimit", "SH-STOCK;SZ-STOCK=100,股", {"wrong-separator"}},
        {"StkExchangeOrderLimit", "SH-600000;SZ-000001=100,股", {"wrong-separator"}},
        {"StkExchangeOrderLimit", "SH-600000=15;股", {"wrong-separator"}},
        {"StkExchangeOrderLimit", "SH-600000=100股", {"wrong-field-count"}},
        {"StkExchangeOrderLimit", "SH-600000=股,100", {"number-reads-as-zero"}},
        {"StkExchangeDazongOrderLimit", "SH-STOCK=100,1000,股", {"number-reads-as-zero"}},
        {"StkExchangeDazongOrderLimit", "SH-STOCK=0,股,-1", {"value-out-of-range", "value-out-of-range"}},
        {"StkExchangeRateLimit", "SH-STOCK=-1,1,1,1,1,1,-1", {"value-out-of-range", "value-out-of-range"}},
        {"StkExchangeRateLimit",
         "SH-STOCK=nan,inf,-1e400,0x10,1e-400,1,1",
         {"number-partly-read", "number-partly-read", "number-out-of-range", "number-partly-read"}},
        {"SgtExchangeRateLimit", "SGT-STOCK=1,1,1,1,1,1,1,1,1,1,1,1,1,-1", {"value-out-of-range"}},
        {"StkExchangeOrderLimit", "SHO-STOCK=100,张", {"unreachable-row"}},
        {"StkExchangeOrderLimit", "SHO-10007001=100,张", {}},
        {"StkExchangeOrderLimit", "HGT-LOAN=100,股", {"unreachable-row"}},
        {"StkExchangeOrderLimit", "SH-=100,股", {"unreachable-row"}},
        {"StkExchangeOrderLimit", "SH–STOCK=100,股", {"full-width-character"}},
        {"StkExchangeDazongOrderLimit", "SH-ETF=100,份,100", {"unreachable-row"}},
        {"HGTExchangeRateLimit", "HK-00700=1,1,1,1,1,1,1,1,1,1,1,1,1,1", {"unreachable-row"}},
        {"HGTExchangeRateLimit", "HGT-DEF=1,1,1,1,1,1,1,1,1,1,1,1,1,1", {"unreachable-row"}},
        {"StandardBondUseLimit", "888880=", {"not-a-number"}},
        {"StandardBondUseLimit", "888880=-0.5", {"value-out-of-range"}},
        {"StandardBondUseLimit", "888880=90", {"value-out-of-range"}},
        {"StandardBondUseLimit", "888880=nan", {"not-a-number"}},
        {"StandardBondUseLimit", "SH-888880=0.9", {"unreachable-row"}},
        {"StandardBondUseLimit", "888880,131990=0.9", {"wrong-separator"}},
        {"FUTURE_SUBSCRIBE_PRODUCTS", "ag=-1.5", {"value-out-of-range"}},
        {"FUTURE_SUBSCRIBE_PRODUCTS", "ag=one", {"not-a-number"}},
        {"setting", "shfixincomelimit=", {}},
        {"setting", "shfixincomelimit=1,2,3", {"wrong-field-count"}},
        {"setting", "shfixincomelimit=1,2,3,4,5,6,x", {"number-reads-as-zero"}},
        {"setting", "shfixincomelimit=1,2,3,4,5,6,-7", {"value-out-of-range"}},
        // Credit.
        {"CreditSetting", "use_collateral_buy_Concentration_Ratio=41:0.5", {"wrong-field-count"}},
        {"CreditSetting", "use_collateral_buy_Concentration_Ratio=41", {"entry-without-colon"}},
        {"CreditSetting", "use_collateral_buy_Concentration_Ratio=41:a,0.5", {"number-reads-as-zero"}},
        {"CreditSetting", "use_collateral_buy_Concentration_Ratio=x:1,0.5", {"number-reads-as-zero"}},
        {"CreditSetting", "use_collateral_buy_Concentration_Ratio=4:1,1;4:2,2", {"repeated-item"}},
        {"CreditSetting",
         "use_collateral_buy_Concentration_Ratio=4:50,-1",
         {"value-out-of-range", "value-out-of-range"}},
        {"CreditSetting", "use_collateral_buy_Concentration_Ratio=4:0.5;0.3;5:1,1", {"wrong-separator"}},
        {"CreditSetting", "use_collateral_buy_Concentration_Ratio=4:0.5:0.3", {"wrong-separator"}},
        {"CreditSetting", "use_collateral_sale_repay_debt=41:511880,511880", {"repeated-in-list"}},
        {"CreditSetting", "use_collateral_sale_repay_debt=41,47:511880", {"wrong-separator"}},
        {"CreditSetting", "use_collateral_sale_repay_debt=41:SH-511880", {"unreachable-row"}},
        {"CreditSetting", "use_collateral_sale_repay_debt=41x:511880", {"number-partly-read"}},
        // Products.
        {"setting", "algomultcontractsetting=P1", {"entry-without-colon"}},
        {"setting", "algomultcontractsetting=P1:a:b", {"too-many-colons"}},
        {"setting", "algomultcontractsetting=P1:x,1.5,7", {"wrong-field-count"}},
        {"setting", "algomultcontractsetting=P1:", {"wrong-field-count"}},
        {"setting", "algomultcontractsetting=P1:x;1;2;3;0;P2:x,1,2,3,0", {"wrong-separator"}},
        {"setting", "algomultcontractsetting=P1:x,1,2,3,2", {"flag-not-0-or-1"}},
        {"setting", "algomultcontractsetting=P1:x,1,2,3,yes", {"number-reads-as-zero"}},
        {"setting", "algomultcontractsetting=P1:x,1,2,3,0;P1:y,1,2,3,0", {"repeated-item"}},
        {"setting", "algomultcontractsetting=P1:x,1,2,3,0;P1:y,1,2,3,1;", {}},
        {"setting", "algomultcontractsetting=P1:x,1,9223372036854775808,3,0", {"number-out-of-range"}},
        {"setting", "samrtalgotypes=TWAP,VWAP", {"wrong-separator"}},
        {"setting", "algotypedisablebuysell=TWAP;VWAP", {"wrong-separator"}},
        {"setting", "t0algotypes=S1:Name1;bad;S2:Name2:extra", {"entry-without-colon", "too-many-colons"}},
        {"setting", "etfbrokerclienttag=15", {"entry-without-colon"}},
        {"setting", "etfbrokerclienttag=15:", {"empty-item-counts"}},
        {"setting", "etfbrokerclienttag=15:09:15", {"too-many-colons"}},
        {"specialCombCompacts", "SHFE=cu,bc,cu", {"repeated-in-list"}},
        {"specialCombCompacts", "SHFE=cu,,bc", {"empty-item-counts"}},
        {"specialCombCompacts", "SHFE=cu,bc;rb", {"group-of-one"}},
        {"specialCombCompacts", "SHFE=cu+bc;rb&hc", {"wrong-separator", "wrong-separator"}},
        {"MonetaryFundSetting", "fix_price_by_nontrade_monetaryfund=SZSE", {"entry-without-colon"}},
        {"MonetaryFundSetting", "fix_price_by_nontrade_monetaryfund=SSE:1;SSE:2", {"repeated-item"}},
        {"MonetaryFundSetting", "fix_price_by_nontrade_monetaryfund=sse:1", {"unreachable-row"}},
        {"MonetaryFundSetting", "fix_price_by_nontrade_monetaryfund=519888:SSE", {"unreachable-row"}},
        {"MonetaryFundSetting", "fix_price_by_nontrade_monetaryfund=SSE:1 2", {"wrong-separator"}},
        {"monetaryFundUseSloBalanceFirst", "x=SSE511880", {"number-reads-as-zero"}},
        {"monetaryFundUseSloBalanceFirst", "41,47=SSE511880", {"wrong-separator"}},
        {"monetaryFundUseSloBalanceFirst", "41=511880", {"fund-form"}},
        {"monetaryFundUseSloBalanceFirst", "41=sse511880", {"unreachable-row"}},
        {"monetaryFundUseSloBalanceFirst", "41=SEE511880,SSE511880", {"unknown-market"}},
        {"monetaryFundUseSloBalanceFirst", "41=all", {"all-beside-funds"}},
        {"monetaryFundUseSloBalanceFirst", "41=*", {"all-beside-funds"}},
        {"monetaryFundUseSloBalanceFirst", "41=SSE1\n041=SSE2", {"repeated-item"}},
    };
    for (const auto& row : rows) {
        const std::string bytes = std::string("[") + row.section + "]\n" + row.line + '\n';
        const standin::SettingsText text{bytes};
        const auto findings = ttconfig::checkSettings(text);
        std::vector<std::string> rules;
        for (const Finding& finding : findings)
            rules.emplace_back(finding.rule);
        EXPECT_EQ(rules, row.rules) << row.line << '\n' << shown(findings);
    }
}

TEST(CheckRules, TypesOfTwoProductsGoToTheLaterOne) {
    const standin::SettingsText text{std::string(
        "[setting]\nalgomultcontractsetting=P1:x,1,2,3,0;P2:x,1,2,3,0\nalgocontracttypes=P1:TWAP|VWAP;P2:VWAP\n")};
    const auto findings = ttconfig::checkSettings(text);
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].rule, "repeated-item");
    EXPECT_EQ(findings[0].related->column, 27U);
}

// The later section in load order wins, wherever the sections are in the file.
TEST(CheckRules, RowsAreOverwrittenInTheOrderOfALoad) {
    const standin::SettingsText text{
        std::string("[SgtExchangeOrderLimit]\nSH-1=1,股\n[StkExchangeOrderLimit]\nSH-1=2,股\nsh-1=3,股\n")};
    const auto findings = ttconfig::checkSettings(text);
    ASSERT_EQ(findings.size(), 2U);
    for (const Finding& finding : findings) {
        EXPECT_EQ(finding.rule, "row-overwritten");
        EXPECT_EQ(finding.related->line, 2U);
    }
}

}  // namespace

// `ttconfig ask`: one question, one line of answer.

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

using testing::HasSubstr;
using tests::runTool;
using tests::ToolRun;

const char* const kSettings =
    "[setting]\nneedmaxamount=12,15,-5\nrefLimit=7\nspecialenablebalvolumestkexchangerate=12:0.25;1.5\n"
    "[HgtSgtPriceDiff]\nprice_diff=a b\n[CreditSetting]\nuse_collateral_buy_Concentration_Ratio=12:0.5,0.25\n";

class Ask : public testing::Test {
protected:
    ToolRun ask(std::vector<std::string> words) const {
        words.insert(words.begin(), {"ask", "--settings", file});
        return runTool(words);
    }

private:
    tests::TempFolder folder;
    std::string file = folder.write("settings.ini", kSettings);
};

TEST_F(Ask, WritesTheAnswerAsTextOrJson) {
    const struct {
        std::vector<std::string> words;
        const char* text;
        const char* json;
    } rows[] = {
        {{"isNeedMaxAmountPts", "12"}, "true\n", "true\n"},
        {{"isNeedMaxAmountPts", "13"}, "false\n", "false\n"},
        {{"getRefLimit"}, "7\n", "7\n"},
        {{"getSpecailEnableVolStkExchangeRate", "12"}, "0.25\n", "0.25\n"},
        {{"getHgtSgtPriceDiff"}, "a b\n", "\"a b\"\n"},
        {{"getQuoterAdress"}, "\n", "\"\"\n"},
        {{"getPts", "needmaxamount"}, "12,15,-5\n", "[12,15,-5]\n"},
        {{"getPts", "missing"}, "\n", "[]\n"},
        {{"isUseConcentrationRatioPts", "12"}, "true,0.5,0.25\n", "[true,0.5,0.25]\n"},
        {{"isUseConcentrationRatioPts", "13"}, "false,0.0,0.0\n", "[false,0.0,0.0]\n"},
        {{"setDelayPushTime", "5"}, "none\n", "null\n"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> words = row.words;
        EXPECT_EQ(ask(words).out, row.text) << row.words[0];
        words.insert(words.end(), {"--format", "json"});
        const ToolRun run = ask(words);
        EXPECT_EQ(run.out, row.json) << row.words[0];
        EXPECT_EQ(run.exitCode, 0);
        words = row.words;
        words.insert(words.begin(), {"--format", "text"});
        EXPECT_EQ(ask(words).out, row.text) << row.words[0];
    }
}

TEST_F(Ask, TakesArgumentsByTheTypeThatIsWanted) {
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{"isNeedMaxAmountPts", "-5"}, "true\n"},
        {{"isNeedMaxAmountPts", "-2147483648"}, "false\n"},
        {{"isNeedMaxAmountPts", "--", "-5"}, "true\n"},
        {{"isSomePt", "needmaxamount", "15"}, "true\n"},
        {{"isSomePt", "--", "-needmaxamount", "15"}, "false\n"},
        {{"isSomePt", "--", "--", "15"}, "false\n"},
        {{"Configuration.readDouble", "s", "k", "2"}, "2.0\n"},
        {{"Configuration.readDouble", "s", "k", "-0.5"}, "-0.5\n"},
        {{"Configuration.readInt", "12", "true", "7"}, "7\n"},
        {{"setLocalInfoFormat", "[1,2]"}, "none\n"},
        {{"setLocalInfoFormat", ""}, "none\n"},
        {{"setLocalInfoFormat", "summary"}, "none\n"},
        {{"setUseLocalConfig", R"({"needmaxamount":true})"}, "none\n"},
        {{"initMarketTradingTime", R"({"SSE":"[]"})"}, "none\n"},
    };
    for (const auto& [words, answer] : rows) {
        const ToolRun run = ask(words);
        EXPECT_EQ(run.out, answer) << words[0] << ' ' << words.back();
        EXPECT_EQ(run.exitCode, 0) << run.err;
    }
}

TEST_F(Ask, RefusesUnknownCallsWithExitCode2) {
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{"isNeedMaxAmount", "12"}, "unknown call \"isNeedMaxAmount\"; did you mean isNeedMaxAmountPts?"},
        {{"isNeedMaxAmountPts"}, "isNeedMaxAmountPts(int): 0 arguments given"},
        {{"isNeedMaxAmountPts", "1", "2"}, "2 arguments given"},
        {{"isNeedMaxAmountPts", "x"}, "argument 1: wanted int, got \"x\""},
        {{"isNeedMaxAmountPts", "+5"}, "wanted int, got \"+5\""},
        {{"isNeedMaxAmountPts", ""}, "wanted int, got \"\""},
        {{"isNeedMaxAmountPts", "12.0"}, "wanted int, got 12.0"},
        {{"isNeedMaxAmountPts", "2147483648"}, "2147483648 does not fit 32 bits"},
        {{"isNeedMaxAmountPts", "1e400"}, "wanted int"},
        {{"setNeedRemoveExportFile", "1"}, "wanted bool, got 1"},
        {{"setUseLocalConfig", std::string(100000, '[')}, "nested too deep"},
        {{"isSomePt", "-needmaxamount", "15"}, "write -- in front"},
        {{"getRefLimit", "--fromat", "json"}, "--fromat"},
        {{"getRefLimit", "--format", "xml"}, "xml is none of text, json"},
    };
    for (const auto& [words, said] : rows) {
        const ToolRun run = ask(words);
        EXPECT_EQ(run.exitCode, 2) << said;
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(said));
    }
}

TEST(AskWithoutSettings, SaysWhatTheAnswersAreWorth) {
    const ToolRun run = runTool({"ask", "getFlowHistoryDays"});
    EXPECT_EQ(run.out, "0\n");
    EXPECT_EQ(run.err, "ttconfig: no --settings given: this is the answer without a settings file\n");
    EXPECT_EQ(run.exitCode, 0);
}

TEST_F(Ask, WithSettingsSaysNothingElse) {
    EXPECT_EQ(ask({"getRefLimit"}).err.find("ttconfig"), std::string::npos);
}

}  // namespace

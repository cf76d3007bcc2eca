// `ttconfig explain` and `ttconfig ask --test`, as people run them. explanations/cases holds one question per line,
// explanations/answers.expected what each prints.

#include <gmock/gmock.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/recorded.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

using nlohmann::json;
using testing::HasSubstr;
using tests::runTool;
using tests::ToolRun;

const std::string kFolder = TT_SOURCE_DIR "/tests/tools/ttconfig/explanations";

std::vector<std::string> words(const std::string& line) {
    std::istringstream text(line);
    std::vector<std::string> all;
    for (std::string word; text >> word;)
        all.push_back(word);
    return all;
}

std::vector<std::string> cases() {
    std::istringstream text(tests::fileText(kFolder + "/cases"));
    std::vector<std::string> all;
    for (std::string line; std::getline(text, line);) {
        if (!line.empty() && line.front() != '#') all.push_back(line);
    }
    return all;
}

ToolRun explain(std::vector<std::string> question, const std::string& settings = "settings.ini") {
    question.insert(question.begin(), {"explain", "-C", kFolder, "--settings", settings, "--platform",
                                       TT_SOURCE_DIR "/samples/platform.json"});
    return runTool(question);
}

TEST(Explain, PrintsWhatIsRecorded) {
    std::string all;
    for (const std::string& line : cases()) {
        const ToolRun run = explain(words(line));
        EXPECT_EQ(run.err, "") << line;
        all += "$ " + line + "\n" + run.out + "exit code " + std::to_string(run.exitCode) + "\n\n";
    }
    tests::expectAsRecorded(all, kFolder + "/answers.expected");
}

TEST(Explain, ExplainsAnswersThatAreNan) {
    const tests::TempFolder folder;
    const std::string settings =
        folder.write("a.ini",
                     "[setting]\nshfixincomelimit=nan,2,3,4,5,6,7\nalgomultcontractsetting=P:x,nan,1,1,0\n"
                     "[StkExchangeRateLimit]\nSH-600000=nan,1,1,1,1,1,1\n"
                     "[CreditSetting]\nuse_collateral_buy_Concentration_Ratio=41:nan,1\n");
    for (const char* question : {"getSHFixIncomeLimit 2", "getContractInfo P false", "getAllContractInfo",
                                 "getRateLimitPtr SH 600000", "isUseConcentrationRatioPts 41"}) {
        const ToolRun run = explain(words(question), settings);
        EXPECT_EQ(run.exitCode, 0) << question << run.err;
        EXPECT_THAT(run.out, HasSubstr("a.ini:")) << question;
    }
}

TEST(Explain, PassesNoControlCharacterToTheTerminal) {
    for (const std::vector<std::string>& question : {std::vector<std::string>{"getSubFee", "a\x1B[31m\nzz\xFF"},
                                                     {"getOrderLimit", "a\x1B[31m\nzz", "x\x7F", "0"}}) {
        const ToolRun run = explain(question);
        EXPECT_EQ(run.exitCode, 0) << run.err;
        for (const char c : run.out)
            EXPECT_FALSE((static_cast<unsigned char>(c) < 0x20 && c != '\n') || c == 0x7F) << run.out;
        EXPECT_THAT(run.out, testing::Not(HasSubstr("\nzz"))) << run.out;
        EXPECT_THAT(run.out, testing::Not(HasSubstr("\xFF"))) << run.out;
    }
}

TEST(Explain, ShowsNamesOfFilesWithTheirControlCharactersAsEscapes) {
    const tests::TempFolder folder;
    const std::string settings = folder.write("es\x1B[31mc\xC2\x9B.ini", "[setting]\nrefLimit=7\n");
    const ToolRun run = explain({"getRefLimit", "--why-not", "8"}, settings);
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("/es\\u001b[31mc\\u009b.ini:2:10: refLimit=7\n"));
    EXPECT_THAT(run.out, HasSubstr("/es\\u001b[31mc\\u009b.ini:2\n- refLimit=7\n+ refLimit=8\n"));
    const json answer = json::parse(explain({"getRefLimit", "--format", "json"}, settings).out);
    EXPECT_EQ(answer.at("place").at("file"), settings);
}

TEST(Explain, ShowsControlCharactersBeyondAsciiAsQuestionMarks) {
    const tests::TempFolder folder;
    const std::string settings = folder.write("a.ini", "[setting]\nneedmaxamount=12\xC2\x9B,\t8\n");
    const ToolRun run = explain({"isNeedMaxAmountPts", "12"}, settings);
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("a.ini:2:15: needmaxamount=12?,\t8\n"));
    EXPECT_THAT(run.out, testing::Not(HasSubstr("\xC2\x9B")));
}

TEST(Explain, AnswersJsonWithTheSameParts) {
    for (const std::string& line : cases()) {
        std::vector<std::string> question = words(line);
        question.insert(question.end(), {"--format", "json"});
        const ToolRun run = explain(question);
        ASSERT_TRUE(json::accept(run.out)) << line << run.out << run.err;
        const json answer = json::parse(run.out);
        for (const char* member : {"call", "arguments", "answer", "reason", "rule", "place", "lost"})
            EXPECT_TRUE(answer.contains(member)) << line << " " << member;
        EXPECT_EQ(answer.contains("whyNot"), line.find("--why-not") != std::string::npos) << line;
    }
}

TEST(Explain, JsonHasThePlaceAndTheEdit) {
    const json answer = json::parse(explain({"isNeedMaxAmountPts", "15", "--why-not", "true", "--format", "json"}).out);
    EXPECT_EQ(answer.at("answer"), false);
    EXPECT_EQ(answer.at("reason"), "not-listed");
    EXPECT_EQ(answer.at("place").at("line"), 3);
    EXPECT_EQ(answer.at("place").at("column"), 15);
    EXPECT_EQ(answer.at("place").at("text"), "needmaxamount=8,12, 15,12");
    EXPECT_EQ(answer.at("lost").at(0).at("place").at("column"), 20);
    EXPECT_EQ(answer.at("whyNot").at("edit").at("line"), 3);
    EXPECT_EQ(answer.at("whyNot").at("edit").at("remove"), json::array({"needmaxamount=8,12, 15,12"}));
    EXPECT_EQ(answer.at("whyNot").at("edit").at("add"), json::array({"needmaxamount=8,12,15,12"}));
}

TEST(Explain, RejectsABadQuestionWithExitCode2) {
    const std::pair<const char*, const char*> rows[] = {
        {"isNeedMaxAmount 12", "did you mean isNeedMaxAmountPts?"},
        {"isNeedMaxAmountPts", "0 arguments given"},
        {"isNeedMaxAmountPts x", "wanted int"},
        {"setDelayPushTime 5", "nothing to explain"},
        {"LuaConfig.new", "nothing to explain"},
        {"isNeedMaxAmountPts 12 --why-not yes", "true or false"},
        {"getRefLimit --why-not some", "a whole number"},
        {"getisSetavailable 12 --why-not some", "a number"},
    };
    for (const auto& [line, said] : rows) {
        const ToolRun run = explain(words(line));
        EXPECT_EQ(run.exitCode, 2) << line;
        EXPECT_EQ(run.out, "") << line;
        EXPECT_THAT(run.err, HasSubstr(said)) << line;
    }
}

TEST(Explain, TakesAnEmptyTextAsTheWantedAnswer) {
    for (const std::vector<std::string>& wanted : {std::vector<std::string>{"--why-not", ""}, {"--why-not="}}) {
        std::vector<std::string> question = {"getAlgoTypes"};
        question.insert(question.end(), wanted.begin(), wanted.end());
        const ToolRun run = explain(question);
        EXPECT_EQ(run.exitCode, 0) << run.err;
        EXPECT_THAT(run.out,
                    HasSubstr("The smallest edit that makes it \"\":\nsettings.ini:19\n- samrtalgotypes=B;A;B\n"));
    }
}

TEST(Explain, SaysInItsHelpWhenTheExitCodeIs1) {
    EXPECT_THAT(runTool({"explain", "--help"}).out, HasSubstr("The exit code is 1 when"));
    EXPECT_EQ(explain({"getDelayPushTime", "--why-not", "31"}).exitCode, 1);
}

TEST(Explain, WarnsOfAnOverrideOfAnUnknownSwitch) {
    const struct {
        std::vector<std::string> question;
        const char* said;
    } rows[] = {
        {{"isNeedMaxAmountPts", "12", "--override", "needmaxamout=true"},
         "ttconfig: --override \"needmaxamout\": no switch has this key; did you mean needmaxamount?\n"},
        {{"isSomePt", "mine", "12", "--override", "other=true"},
         "ttconfig: --override \"other\": no switch has this key\n"},
        {{"isSomePt", "mine", "12", "--override", "mine=true"}, ""},
        {{"getRefLimit", "--override", "needmaxamount=false"}, ""},
    };
    for (const auto& row : rows) {
        const ToolRun run = explain(row.question);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.err, row.said);
    }
}

TEST(Explain, LeavesTheFileAsItIs) {
    const std::string before = tests::fileText(kFolder + "/settings.ini");
    explain({"isNeedMaxAmountPts", "15", "--why-not", "true"});
    EXPECT_EQ(tests::fileText(kFolder + "/settings.ini"), before);
}

TEST(Explain, AcceptsAnyBytesInASettingsFile) {
    const tests::TempFolder folder;
    std::string manyPieces = "[setting]\nneedmaxamount=";
    for (int i = 0; i < 200000; ++i)
        manyPieces += "12x,";
    std::string manyRows = "[StkExchangeOrderLimit]\n";
    for (int i = 0; i < 200000; ++i)
        manyRows += "SH-600000=1\n";
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {"[setting]\nneedmaxamount=\xFF\xFE,12\x1B[31m,\xC3\n", {"isNeedMaxAmountPts", "12", "--why-not", "true"}},
        {"[setting]\r\nneedmaxamount=1\r\n", {"isNeedMaxAmountPts", "12", "--why-not", "true"}},
        {"[setting", {"isNeedMaxAmountPts", "12", "--why-not", "true"}},
        {"=\n==\n[]\n=\n[setting]needmaxamount=12", {"isNeedMaxAmountPts", "12", "--why-not", "true"}},
        {manyPieces, {"isNeedMaxAmountPts", "12", "--why-not", "true"}},
        {manyRows, {"getOrderLimit", "SH", "600000", "-1", "--why-not", "5,x"}},
        {"[setting]\nneedmaxamount=" + std::string(5000000, '1') + "\n",
         {"isNeedMaxAmountPts", "12", "--why-not", "true"}},
    };
    for (const auto& [bytes, question] : rows) {
        const ToolRun run = explain(question, folder.write("settings.ini", bytes));
        EXPECT_EQ(run.exitCode, 0) << bytes.substr(0, 60) << run.err;
        EXPECT_THAT(run.out, HasSubstr("\n+ ")) << bytes.substr(0, 60);
        EXPECT_LT(run.out.size(), 60000U);
        EXPECT_EQ(run.out.find('\x1B'), std::string::npos);
    }
}

TEST(Explain, NeedsAReadableFile) {
    for (const char* file : {"missing.ini", "."}) {
        const ToolRun run = explain({"getRefLimit"}, file);
        EXPECT_EQ(run.exitCode, 3) << file;
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr("settings file"));
    }
}

// --- ask --test

TEST(AskTest, GivesTheAnswerAsTheExitCode) {
    const std::string settings = kFolder + "/settings.ini";
    const struct {
        std::vector<std::string> question;
        int exitCode;
        const char* out;
    } rows[] = {
        {{"ask", "--test", "isNeedMaxAmountPts", "12"}, 0, "true\n"},
        {{"ask", "--test", "isNeedMaxAmountPts", "13"}, 1, "false\n"},
        {{"ask", "isNeedMaxAmountPts", "13"}, 0, "false\n"},
        {{"ask", "--test", "getRefLimit"}, 2, ""},
        {{"ask", "--test", "isUseConcentrationRatioPts", "12"}, 2, ""},
    };
    for (const auto& row : rows) {
        std::vector<std::string> question = row.question;
        question.insert(question.end(), {"--settings", settings});
        const ToolRun run = runTool(question);
        EXPECT_EQ(run.exitCode, row.exitCode) << row.question[2];
        EXPECT_EQ(run.out, row.out);
        EXPECT_EQ(run.err.find("does not answer true or false") != std::string::npos, row.exitCode == 2);
    }
}

}  // namespace

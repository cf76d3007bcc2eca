// `ttconfig session`: one answer per line, whatever the line is.

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"
#include "ttconfig/asking/session.h"
#include "ttconfig/calls/binding.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using tests::runShell;
using tests::runTool;
using tests::ToolRun;

const std::string kAnswerable = R"({"call":"getDelayPushTime"})";

ToolRun session(const std::string& input) {
    return runTool({"session"}, input);
}

TEST(Session, AnswersAsTheProtocolShows) {
    const tests::TempFolder folder;
    const std::string file = folder.write("settings.ini", "[setting]\nneedmaxamount=12,15\n");
    const ToolRun run = session(R"({"call":"readConfig","args":[")" + file + "\"]}\n" +
                                R"({"call":"isNeedMaxAmountPts","args":[12]})"
                                "\n");
    EXPECT_EQ(run.out, "{\"ok\":null}\n{\"ok\":true}\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.exitCode, 0);
}

TEST(Session, EndsAtEndOfInput) {
    const ToolRun run = session("");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out + run.err, "");
}

TEST(Session, AnswersALastLineWithoutALineEnd) {
    EXPECT_EQ(session(kAnswerable).out, "{\"ok\":30}\n");
}

TEST(Session, TakesLinesThatEndAsOnWindows) {
    EXPECT_EQ(session(kAnswerable + "\r\n" + kAnswerable + "\r\n").out, "{\"ok\":30}\n{\"ok\":30}\n");
}

// Each line gets an error with this text, and the request after it gets its answer.
TEST(Session, GoesOnAfterRefusedRequests) {
    const std::pair<std::string, const char*> rows[] = {
        {"", "not JSON: "},
        {"   ", "not JSON: "},
        {"garbage", "not JSON: "},
        {"{", "not JSON: "},
        {"{\"call\":\"getDelayPushTime\"} x", "not JSON: "},
        {"{'call':'getDelayPushTime'}", "not JSON: "},
        {std::string("\0", 1), "not JSON: "},
        {"\xFF\xFE", "not JSON: "},
        {"{\"call\":\"\xFF\"}", "not JSON: "},
        {R"({"call":"\ud800"})", "not JSON: "},
        {R"({"call":"\udc00\ud800"})", "not JSON: "},
        {R"({"call":"getPts","args":[1e400]})", "wanted text"},
        {R"({"call":"getPts","args":[NaN]})", "not JSON: "},
        // text that is not JSON stays invalid beside a number too large for a double
        {R"({"call":"getDelayPushTime","id":1e999-1e999})", "not JSON: column 41"},
        {R"({"call":"getDelayPushTime","id":[1e999,1e]})", "not JSON: column 42"},
        {R"({"call":"getDelayPushTime","id":[1e999,01]})", "not JSON: column 41"},
        {R"({"call":"getDelayPushTime","id":[1e999,-]})", "not JSON: column 41"},
        {R"({"call":"getDelayPushTime","id":[1e999,1.e9]})", "not JSON: column 42"},
        {R"({"call":"getDelayPushTime","id":[-1e999,1e+999})", "not JSON: column 47"},
        {R"({"call":"getDelayPushTime","id":1e999)", "not JSON: column 38"},
        {R"({"call":"getPts","args":[01]})", "not JSON: "},
        {"[]", "a request is an object"},
        {"null", "a request is an object"},
        {"17", "a request is an object"},
        {"\"getDelayPushTime\"", "a request is an object"},
        {"{}", "needs a member \"call\""},
        {R"({"args":[]})", "needs a member \"call\""},
        {R"({"call":null})", "\"call\" is the name"},
        {R"({"call":["getPts"]})", "\"call\" is the name"},
        {R"({"call":"getPts","args":"x"})", "\"args\" is an array"},
        {R"({"call":"getPts","args":null})", "\"args\" is an array"},
        {R"({"call":"getPts","args":{"0":"x"}})", "\"args\" is an array"},
        {R"({"call":""})", "unknown call \"\""},
        {R"({"call":"getDelayPushtime"})", "unknown call \"getDelayPushtime\"; did you mean getDelayPushTime?"},
        {R"({"call":"getDelayPushTime\u0000"})", "unknown call \"getDelayPushTime\\u0000\""},
        {R"({"call":"getDelayPushTime","args":[1]})", "getDelayPushTime(): 1 argument given"},
        {R"({"call":"setDelayPushTime"})", "setDelayPushTime(int): 0 arguments given"},
        {R"({"call":"setDelayPushTime","args":[1,2]})", "setDelayPushTime(int): 2 arguments given"},
        {R"({"call":"setDelayPushTime","args":["1"]})", "argument 1: wanted int, got \"1\""},
        {R"({"call":"setDelayPushTime","args":[12.0]})", "wanted int, got 12.0"},
        {R"({"call":"setDelayPushTime","args":[2147483648]})", "2147483648 does not fit 32 bits"},
        {R"({"call":"setDelayPushTime","args":[-2147483649]})", "-2147483649 does not fit 32 bits"},
        {R"({"call":"setDelayPushTime","args":[18446744073709551615]})", "does not fit 32 bits"},
        {R"({"call":"setDelayPushTime","args":[99999999999999999999999]})", "wanted int"},
        {R"({"call":"setDelayPushTime","args":[null]})", "wanted int, got null"},
        {R"({"call":"setUseLocalConfig","args":[{"a":1}]})", "wanted bool, got 1"},
        {R"({"call":"setPts","args":[{"a":[1,2147483648]}]})", "does not fit 32 bits"},
        {R"({"call":"LuaConfig.getConfig","args":[99,"f"]})", "99"},
    };
    std::string input;
    for (const auto& row : rows)
        input += row.first + '\n' + kAnswerable + '\n';
    const ToolRun run = session(input);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, "");
    const std::vector<std::string> lines = run.lines();
    ASSERT_EQ(lines.size(), 2 * std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const auto answer = nlohmann::json::parse(lines[2 * i]);
        ASSERT_TRUE(answer.contains("error")) << rows[i].first;
        EXPECT_EQ(answer.size(), 1U);
        EXPECT_THAT(answer["error"].get<std::string>(), HasSubstr(rows[i].second)) << rows[i].first;
        EXPECT_EQ(lines[2 * i + 1], "{\"ok\":30}") << "behind " << rows[i].first;
    }
}

TEST(Session, ARefusedCallChangesNothing) {
    const ToolRun run = session(R"({"call":"setPts","args":[{"a":[1],"b":["x"]}]})"
                                "\n"
                                R"({"call":"getAllpts"})");
    EXPECT_THAT(run.lines(), ElementsAre(StartsWith("{\"error\":"), "{\"ok\":{}}"));
}

TEST(Session, EchoesTheIdInAnswersAndInErrors) {
    const std::pair<const char*, const char*> rows[] = {
        {"7", "7"},
        {"-0", "0"},
        {"2.50", "2.5"},
        {"\"a\\u00e9\"", "\"aé\""},
        {"null", "null"},
        {"true", "true"},
        {"[1,{\"x\":[]}]", "[1,{\"x\":[]}]"},
        {"4294967296000", "4294967296000"},
        {"18446744073709551615", "18446744073709551615"},
    };
    for (const auto& [sent, echoed] : rows) {
        const std::string id = std::string("\"id\":") + sent;
        const ToolRun run = session("{\"call\":\"getDelayPushTime\"," + id + "}\n{\"call\":\"nothing like it\"," + id +
                                    "}\n{" + id + "}\n");
        const std::string ending = std::string(",\"id\":") + echoed + "}";
        EXPECT_THAT(run.lines(), ElementsAre("{\"ok\":30" + ending, EndsWith(ending), EndsWith(ending))) << sent;
    }
}

TEST(Session, ANumberTooLargeIsNoArgumentButKeepsTheId) {
    const ToolRun run = session(R"({"call":"isNeedMaxAmountPts","id":"q","args":[-1e400]})"
                                "\n"
                                R"({"call":"getMaxPermission","id":"1e400 \" 1e400","args":["1e400"],"other":1E+999})");
    EXPECT_THAT(run.lines(), ElementsAre(AllOf(HasSubstr("wanted int"), EndsWith(",\"id\":\"q\"}")),
                                         R"({"ok":0,"id":"1e400 \" 1e400"})"));
}

TEST(Session, ANulByteIsNotTheEndOfALine) {
    using namespace std::string_literals;
    const ToolRun run = session("{\"call\":\"setDelayPushTime\",\"args\":[2]}\0 garbage\n"s + kAnswerable);
    EXPECT_THAT(run.lines(), ElementsAre(HasSubstr("not JSON: a NUL byte"), "{\"ok\":30}"));
}

TEST(Session, RefusesDeepNestingWhereverItIs) {
    const std::string open(1000000, '[');
    const std::string closed = std::string(200, '[') + std::string(200, ']');
    const std::string deepest = std::string(99, '[') + std::string(99, ']');
    const ToolRun run = session(open + "\n" + std::string(1000000, '{') + "\n{\"id\":" + closed +
                                ",\"call\":\"getDelayPushTime\"}\n{\"call\":\"getPts\",\"args\":[" + closed + "]}\n" +
                                "{\"id\":" + deepest + ",\"call\":\"getDelayPushTime\"}\n" + kAnswerable);
    const auto refused = HasSubstr("nested deeper than 100 levels");
    EXPECT_THAT(run.lines(),
                ElementsAre(refused, refused, refused, refused, "{\"ok\":30,\"id\":" + deepest + "}", "{\"ok\":30}"));
    EXPECT_EQ(run.exitCode, 0);
}

TEST(Session, TakesVeryLongLines) {
    const std::string text(5000000, 'x');
    const ToolRun run =
        session("{\"call\":\"setLocalInfoFormat\",\"args\":[\"" + text + "\"]}\n{\"call\":\"getLocalInfoFormat\"}\n" +
                "{\"call\":\"" + text + "\"}\n{\"call\":\"setDelayPushTime\",\"args\":[\"" + text + "\"]}\n");
    const std::vector<std::string> lines = run.lines();
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[1], "{\"ok\":\"" + text + "\"}");
    EXPECT_LT(lines[2].size(), 600U);
    EXPECT_LT(lines[3].size(), 600U);
}

TEST(Session, ManyMembersAndArgumentsDoNotTakeQuadraticTime) {
    std::string members;
    std::string numbers;
    for (int i = 0; i < 200000; ++i) {
        members += (i == 0 ? "\"k" : ",\"k") + std::to_string(i) + "\":[" + std::to_string(i) + "]";
        numbers += (i == 0 ? "" : ",") + std::to_string(i);
    }
    const ToolRun run = session("{\"call\":\"setPts\",\"args\":[{" + members + "}]}\n{\"call\":\"getAllpts\"}\n" +
                                "{\"call\":\"getPts\",\"args\":[" + numbers + "]}\n");
    const std::vector<std::string> lines = run.lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0], "{\"ok\":null}");
    EXPECT_EQ(nlohmann::json::parse(lines[1])["ok"].size(), 200000U);
    EXPECT_THAT(lines[2], HasSubstr("200000 arguments given"));
}

TEST(Session, TextsKeepNulAndLoseNothing) {
    const ToolRun run = session(R"({"call":"setLocalInfoFormat","args":["a\u0000\u00e9\ud83d\ude00\"\\"]})"
                                "\n"
                                R"({"call":"getLocalInfoFormat"})");
    EXPECT_THAT(run.lines(), ElementsAre("{\"ok\":null}", R"({"ok":"a\u0000é😀\"\\"})"));
}

TEST(Session, InvalidUtf8OfAFileIsReplaced) {
    const tests::TempFolder folder;
    const std::string file = folder.write("s.ini", "[HgtSgtPriceDiff]\nprice_diff=a\xFF\xE8\x82z\n");
    const ToolRun run = runTool({"session", "--settings", file}, R"({"call":"getHgtSgtPriceDiff"})");
    EXPECT_EQ(run.out, "{\"ok\":\"a\xEF\xBF\xBD\xEF\xBF\xBDz\"}\n");
}

TEST(Session, AFileThatCannotBeReadIsNoErrorForReadConfig) {
    const ToolRun run = session(R"({"call":"readConfig","args":["no/such/file"]})"
                                "\n"
                                R"({"call":"getOriginalStr"})"
                                "\n"
                                R"({"call":"getFlowHistoryDays"})"
                                "\n"
                                R"({"call":"getCounterMaxCompactsRespNum","args":[7]})");
    EXPECT_THAT(run.lines(), ElementsAre("{\"ok\":null}", "{\"ok\":\"no/such/file\"}", "{\"ok\":-1}", "{\"ok\":500}"));
    EXPECT_EQ(run.err, "");
}

TEST(Session, TheStoresOwnLinesGoToStandardErrorUntouched) {
    const tests::TempFolder folder;
    const std::string file = folder.write("s.ini", "[setting]\nneedmaxamount=12, 15\n");
    const ToolRun run = runTool({"session", "--settings", file}, R"({"call":"getPts","args":["needmaxamount"]})");
    EXPECT_EQ(run.out, "{\"ok\":[12]}\n");
    EXPECT_EQ(run.err,
              "get bson value error, bad lexical cast: source type value could not be interpreted as target\n");
}

TEST(Session, NothingButAnswersGoesToStandardOutput) {
    const tests::TempFolder folder;
    const std::string script =
        folder.write("s.lua", "print('from the script')\nfunction f() io.write('again\\n') return 'x' end\n");
    const ToolRun run = session("{\"call\":\"LuaConfig.new\"}\n{\"call\":\"LuaConfig.init\",\"args\":[1,\"" + script +
                                "\"]}\n{\"call\":\"LuaConfig.getConfig\",\"args\":[1,\"f\"]}\n");
    EXPECT_EQ(run.out, "{\"ok\":1}\n{\"ok\":null}\n{\"ok\":\"x\"}\n");
    EXPECT_THAT(run.err, HasSubstr("from the script\nagain\n"));
}

TEST(Session, TheStoreIsBuiltByTheFirstCallThatNeedsIt) {
    const tests::TempFolder folder;
    folder.write("luaScripts/MarketTime.lua", "print('built')\nfunction getMarkets() return '' end\n");
    folder.write("bin/none", "");
    const std::string start = folder.path("bin");
    EXPECT_EQ(runTool({"session", "-C", start}, R"({"call":"Configuration.parse","args":["none"]})").err, "");
    EXPECT_EQ(runTool({"session", "-C", start}, kAnswerable).err, "built\n");
}

TEST(Session, EveryAnswerIsWrittenAtOnce) {
    const tests::TempFolder folder;
    const std::string in = folder.path("pipe");
    const std::string out = folder.path("answers");
    const ToolRun run = runShell("mkfifo '" + in + "'; \"$TTCONFIG\" session <'" + in + "' >'" + out + "' & exec 3>'" +
                                 in + "'; echo '" + kAnswerable + "' >&3; for i in $(seq 200); do [ -s '" + out +
                                 "' ] && break; sleep 0.05; done; cat '" + out + "'; exec 3>&-; wait");
    EXPECT_EQ(run.out, "{\"ok\":30}\n");
}

TEST(Session, EndsQuietlyWhenTheReaderHasGone) {
    std::string input;
    for (int i = 0; i < 20000; ++i)
        input += kAnswerable + '\n';
    const ToolRun run = runShell("{ \"$TTCONFIG\" session; echo \"exit $?\" >&2; } | head -n 1", input);
    EXPECT_EQ(run.out, "{\"ok\":30}\n");
    EXPECT_EQ(run.err, "exit 0\n");
}

TEST(Session, SaysSoWhenAnAnswerCannotBeWritten) {
    const ToolRun run = runShell("\"$TTCONFIG\" session >/dev/full", kAnswerable);
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_THAT(run.err, StartsWith("ttconfig: standard output cannot be written: "));
}

TEST(Session, LogLinesGoToTheLogFile) {
    const tests::TempFolder folder;
    const std::string log = folder.path("library.log");
    const ToolRun run = runTool({"session", "--log-file", log}, R"({"call":"setUseOrderIdFunction","args":[false]})");
    EXPECT_EQ(run.out, "{\"ok\":null}\n");
    EXPECT_EQ(run.err, "");
    const std::string text = tests::fileText(log);
    EXPECT_THAT(text, HasSubstr("INFO TTStdLogger "));
    EXPECT_THAT(text, EndsWith(" set use order id fuction, isUse: false\n"));
}

TEST(Session, RecordsKeepTheirNumbers) {
    const ToolRun run = session(R"({"call":"getRateLimitPtr","args":["NOWHERE","1"]})"
                                "\n"
                                R"({"call":"getRateLimitPtr","args":["NOWHERE","1"]})"
                                "\n"
                                R"({"call":"getHGTExchangeRateLimitPtr","args":["NOWHERE","1"]})"
                                "\n");
    const std::vector<std::string> lines = run.lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0], R"({"ok":{"@":1,"fields":[0.0,0.0,0.0,0.0,0.0,0.0,0]}})");
    EXPECT_EQ(nlohmann::json::parse(lines[2])["ok"]["@"].is_number_integer(), true);
}

// --- what an operation throws, with a table made for the test

TEST(AnswerLine, AnExceptionFromTheLibraryIsAnError) {
    ttconfig::CallTable table;
    table.add("breaks", ttconfig::stateCall([](ttconfig::CallState&) -> int { throw std::runtime_error("it broke"); }));
    table.add("odd", ttconfig::stateCall([](ttconfig::CallState&) -> int { throw 7; }));
    table.add("long", ttconfig::stateCall([](ttconfig::CallState&) -> int {
                  throw std::runtime_error(std::string(100000, 'x') + "\xFF");
              }));
    ttconfig::CallState state;
    EXPECT_EQ(ttconfig::answerLine(table, state, R"({"call":"breaks","id":1})"),
              R"({"error":"exception: it broke","id":1})");
    EXPECT_EQ(ttconfig::answerLine(table, state, R"({"call":"odd"})"), R"({"error":"exception of an unknown type"})");
    EXPECT_LT(ttconfig::answerLine(table, state, R"({"call":"long"})").size(), 600U);
}

}  // namespace

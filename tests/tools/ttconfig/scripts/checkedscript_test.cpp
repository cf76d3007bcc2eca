#include "ttconfig/scripts/checkedscript.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "tests/support/tempfile.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using ttconfig::CheckedScript;
using ttconfig::ScriptAnswer;
using ttconfig::ScriptTrouble;
using Kind = ScriptAnswer::Kind;

class Checked {
public:
    explicit Checked(const std::string& source, const std::string& name = "script.lua")
        : script([this](const std::string& text) { printed.push_back(text); }),
          loaded(script.load(folder.write(name, source), trouble)) {}

    ScriptAnswer call(const char* function) { return script.call(function, nullptr); }
    ScriptAnswer call(const char* function, const std::string& argument) { return script.call(function, &argument); }

    std::vector<std::string> printed;
    tests::TempFolder folder;
    ScriptTrouble trouble;
    CheckedScript script;
    bool loaded;
};

}  // namespace

TEST(CheckedScript, AnswersTexts) {
    Checked checked("function greet(name) return 'hello ' .. (name or 'all') end function nul() return 'a\\0b' end");
    ASSERT_TRUE(checked.loaded);
    EXPECT_TRUE(checked.script.defines("greet"));
    EXPECT_FALSE(checked.script.defines("Greet"));
    EXPECT_EQ(checked.call("greet").text, "hello all");
    EXPECT_EQ(checked.call("greet", "you").text, "hello you");
    EXPECT_EQ(checked.call("nul").text, std::string("a\0b", 3));
}

TEST(CheckedScript, NamesTheTypeOfAnAnswerThatIsNotText) {
    Checked checked("function number() return 5 end function list() return {} end function nothing() end");
    for (const auto& [function, type] : {std::pair("number", "number"), {"list", "table"}, {"nothing", "nil"}}) {
        const ScriptAnswer answer = checked.call(function);
        EXPECT_EQ(answer.kind, Kind::NoText);
        EXPECT_EQ(answer.text, type);
    }
}

TEST(CheckedScript, ReportsTheLineOfAnError) {
    const std::tuple<const char*, int, const char*> rows[] = {
        {"\nfunction bad( return end", 2, "<name> or '...' expected near 'return'"},
        {"\n\nerror('stop')", 3, "stop"},
        {"x = 1\nx = x + nothing", 2, "attempt to perform arithmetic on global 'nothing' (a nil value)"},
        {"\nprintLog('early')", 2, "attempt to call global 'printLog' (a nil value)"},
        {"\nerror('bare', 0)", 2, "bare"},
        {"\nerror({})", 2, "(error object is a table value)"},
        {"\nerror()", 2, "(error object is a nil value)"},
        {"\nstring.rep()", 2, "bad argument #1 to 'rep' (string expected, got no value)"},
        {"\nloadstring('\\nerror(\"inner\")')()", 2, "[string \"...\"]:2: inner"},
        {"function f()\n return f() + 1 end f()", 2, "stack overflow"},
    };
    for (const auto& [source, line, message] : rows) {
        for (const char* name :
             {"script.lua", "a/folder/with/a/very/long/path/that/lua/shortens/in/its/messages/s.lua"}) {
            Checked checked(source, name);
            EXPECT_FALSE(checked.loaded) << source;
            EXPECT_THAT(checked.trouble.message, StartsWith(message)) << source;
            if (std::string(source).find("loadstring") == std::string::npos) {
                EXPECT_EQ(checked.trouble.line, line) << source;
            }
        }
    }
}

TEST(CheckedScript, ReportsTheLineOfAnErrorInAFunction) {
    Checked checked("function fails(text)\n  local t\n  return t.field\nend\nfunction deep() return fails() .. '' end");
    ASSERT_TRUE(checked.loaded);
    for (const char* function : {"fails", "deep"}) {
        const ScriptAnswer answer = checked.call(function);
        EXPECT_EQ(answer.kind, Kind::Failed);
        EXPECT_EQ(answer.trouble.line, 3);
        EXPECT_EQ(answer.trouble.message, "attempt to index local 't' (a nil value)");
    }
    const ScriptAnswer missing = checked.call("missing");
    EXPECT_EQ(missing.kind, Kind::Failed);
    EXPECT_EQ(missing.trouble.line, 0);
    EXPECT_EQ(missing.trouble.message, "attempt to call a nil value");
    EXPECT_EQ(checked.call("deep", "x").kind, Kind::Failed);  // and again
}

TEST(CheckedScript, CopesWithGuardedGlobals) {
    Checked checked(R"(
        function speak() printLog("spoken") return "ok" end
        local function refuse(_, name) error("no global " .. name, 0) end
        setmetatable(_G, {__index = refuse, __newindex = refuse})
    )");
    ASSERT_TRUE(checked.loaded);
    EXPECT_TRUE(checked.script.defines("speak"));
    EXPECT_FALSE(checked.script.defines("missing"));
    EXPECT_EQ(checked.call("speak").text, "ok");
    EXPECT_THAT(checked.printed, ElementsAre("spoken"));
    EXPECT_EQ(checked.call("missing").trouble.message, "no global missing");
}

TEST(CheckedScript, PrintLogTakesOneText) {
    Checked checked(
        "function speak() printLog('a\\0b') printLog('c') return 'ok' end"
        " function number() printLog(5) end function none() printLog() end function two() printLog('a', 'b') end");
    EXPECT_EQ(checked.call("speak").text, "ok");
    EXPECT_THAT(checked.printed, ElementsAre(std::string("a\0b", 3), "c"));
    for (const char* function : {"number", "none", "two"}) {
        EXPECT_THAT(checked.call(function).trouble.message, HasSubstr("printLog takes one text")) << function;
    }
}

TEST(CheckedScript, LimitsMemoryToOneGibibyte) {
    Checked checked("function greedy() local t = {} for i = 1, 4096 do t[i] = string.rep('x', 1048576) .. i end end");
    EXPECT_EQ(checked.call("greedy").trouble.message, "not enough memory");
}

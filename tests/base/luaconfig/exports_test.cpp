// Links the shared library as a client does: everything used here must be exported, and clients can create and destroy
// an instance.

#include <gtest/gtest.h>

#include <string>

#include "luaconfig/luaconfig.h"
#include "tests/support/tempfile.h"
#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/configcollector.h"

TEST(SharedLibrary, RunsScriptsThroughItsExportsAlone) {
    const tests::TempFolder folder;
    luabase::LuaConfig script;
    script.init(folder.write("script.lua", R"(
        function echo(text) printLog("echo") return "<" .. (text or "") .. ">" end
        function getQeAlgoParamConfig() return '{"content": {"name": "one"}}' end
    )"));
    EXPECT_EQ(script.getConfig("echo"), "<>");
    EXPECT_EQ(script.getConfig("echo", "text"), "<text>");
    luabase::printLog("nobody listens");
    const auto catalogue = ttservice::AlgorithmParamConfig::instance();
    catalogue->initAlgoParams(script);
    std::string text;
    catalogue->getQeAlgOriginalStr(text);
    EXPECT_EQ(text, R"({"content": {"name": "one"}})");
    EXPECT_TRUE(catalogue->getAlgoParam("one"));
    ttservice::AlgorithmParamConfig copy(*catalogue);
    copy.pushAlgoVec({});
    EXPECT_EQ(copy.getAlgoritmsParams().size(), 2U);
    const auto store = ttservice::ConfigCollector::instance();
    store->initMarketTradingTime(std::map<std::string, std::string>{{"M", R"({"93000": 50})"}});
    EXPECT_EQ(store->getTradingTime("M").size(), 1U);
    EXPECT_EQ(ttservice::ConfigCollector::getSecondFromGMT(0), 28800);
}

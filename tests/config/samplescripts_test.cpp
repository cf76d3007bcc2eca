// The scripts in samples/, read as the client reads them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "luaconfig/luaconfig.h"
#include "standin/logsetup.h"
#include "standin/platformdatafile.h"
#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/configcollector.h"
#include "ttplatform/algorithmsparams.h"

using standin::LogCapture;
using testing::IsEmpty;
using ttservice::AlgorithmParamConfig;
using ttservice::ConfigCollector;

namespace {

using Sessions = std::vector<std::pair<int, int>>;

const std::filesystem::path kSamples = TT_SOURCE_DIR "/samples";

std::map<std::string, std::string> marketTexts() {
    std::map<std::string, std::string> texts;
    AlgorithmParamConfig::instance()->getMarketTimeMap(texts);
    return texts;
}

}  // namespace

TEST(SampleScripts, GiveTheTradingTimesOfManyMarkets) {
    std::filesystem::current_path(kSamples / "bin");
    const LogCapture log;
    const auto store = ConfigCollector::instance();
    EXPECT_EQ(store->getTradingTime("SH"), (Sessions{{34200, 41400}, {46800, 54000}}));
    EXPECT_EQ(store->getTradingTime("SHFE"),
              (Sessions{{32400, 36900}, {37800, 41400}, {48600, 54000}, {75600, 86400}}));
    EXPECT_EQ(store->getTradingTime("CZCE").back(), std::make_pair(75600, 82800));
    EXPECT_EQ(store->getTradingTime("HGT"), (Sessions{{34200, 43200}, {46800, 57600}}));
    EXPECT_EQ(store->getTradingTime("SHO"), (Sessions{{34200, 41400}, {46800, 54000}}));
    EXPECT_EQ(store->getTradingTime("GLOBEX"), (Sessions{{0, 21600}, {25200, 86400}}));
    EXPECT_EQ(store->getTradingTime("ICE"), (Sessions{{0, 86400}}));
    EXPECT_EQ(store->getTradingTime("OVERSEAS"), Sessions());
    EXPECT_THAT(log.messages(), IsEmpty());
    EXPECT_GE(marketTexts().size(), 8U);
    for (const auto& [market, text] : marketTexts()) {
        EXPECT_TRUE(nlohmann::json::accept(text)) << market;
        EXPECT_EQ(store->getTradingTime(market).empty(), market == "OVERSEAS") << market;
    }
}

TEST(SampleScripts, DescribeTheAlgorithmsOfEveryVendor) {
    std::filesystem::current_path(kSamples / "bin");
    standin::PlatformData data;
    for (const char* product : {"mdl_alg_zxzq1", "mdl_alg_zxjt1", "mdl_alg_genus1", "mdl_alg_zsgs1", "mdl_alg_jazz1",
                                "mdl_alg_twap", "mdl_alg_huachuang1"})
        data.addRight("mdl_alg", product);
    standin::PlatformData::install(std::move(data));
    const LogCapture log;
    luabase::LuaConfig script;
    script.init((kSamples / "luaScripts/AlgoParams.lua").string());
    const auto catalogue = AlgorithmParamConfig::instance();
    catalogue->initAlgoParams(script);
    EXPECT_THAT(log.messages(), IsEmpty());
    std::set<std::string> names;
    for (const auto& record : catalogue->getAlgoritmsParams()) {
        names.insert(record->name);
        const auto content = nlohmann::json::parse(record->contentJson());
        EXPECT_TRUE(content.contains("algorithms") || content.contains("texts")) << record->name;
    }
    EXPECT_EQ(names.size(), 9U);
    ASSERT_NE(catalogue->getAlgoParam("jazz-grid"), nullptr);
    const auto grid = nlohmann::json::parse(catalogue->getAlgoParam("jazz-grid")->contentJson());
    EXPECT_EQ(grid["algorithms"][0]["parameters"][0]["step"], 0.05);
}

TEST(SampleScripts, HoldJsonAndNothingBesides) {
    luabase::LuaConfig script;
    script.init((kSamples / "luaScripts/AlgoParams.lua").string());
    for (const char* function : {"getCiticAlgoParamConfig", "getZxjtAlgoParamConfig", "getGenusAlgoParamConfig",
                                 "getZsgsAlgoParamConfig", "getJazzAlgoParamConfig", "getTwapAlgoParamConfig",
                                 "getQeAlgoParamConfig", "getAlgorithmsHelpParamConfig", "getHuachuangAlgoParams"})
        EXPECT_TRUE(nlohmann::json::accept(script.getConfig(function))) << function;
}

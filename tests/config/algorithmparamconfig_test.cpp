#include "traderbase/base/config/algorithmparamconfig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <map>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include "standin/logsetup.h"
#include "standin/platformdata.h"
#include "standin/queryhook.h"
#include "tests/base/luaconfig/script.h"
#include "tests/support/clientfolder.h"
#include "ttplatform/algorithmsparams.h"

using standin::LogCapture;
using standin::LogLine;
using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;
using tests::ClientFolder;
using tests::Script;
using ttservice::AlgorithmParamConfig;

namespace {

using RecordPtr = boost::shared_ptr<CAlgorithmsParams>;

// A vendor as seen from outside: the right that guards it (none: always read), the script's function, the getter and
// the reader.
struct Vendor {
    std::string product;
    std::string function;
    void (AlgorithmParamConfig::*get)(std::string&) const;
    void (AlgorithmParamConfig::*read)(std::string);
};

using Catalogue = AlgorithmParamConfig;

const Vendor kVendors[] = {
    {"mdl_alg_zxzq1", "getCiticAlgoParamConfig", &Catalogue::getCiticOriginalStr, &Catalogue::readCiticConfig},
    {"mdl_alg_zxjt1", "getZxjtAlgoParamConfig", &Catalogue::getZxjtOriginalStr, &Catalogue::readZxjtConfig},
    {"mdl_alg_genus1", "getGenusAlgoParamConfig", &Catalogue::getGenusOriginalStr, &Catalogue::readGenusConfig},
    {"mdl_alg_zsgs1", "getZsgsAlgoParamConfig", &Catalogue::getZsgsOriginalStr, &Catalogue::readZsgsConfig},
    {"mdl_alg_jazz1", "getJazzAlgoParamConfig", &Catalogue::getJazzOriginalStr, &Catalogue::readJazzConfig},
    {"mdl_alg_twap", "getTwapAlgoParamConfig", &Catalogue::getTwapOriginalStr, &Catalogue::readTwapConfig},
    {"", "getQeAlgoParamConfig", &Catalogue::getQeAlgOriginalStr, &Catalogue::readQeAlgConfig},
    {"", "getAlgorithmsHelpParamConfig", &Catalogue::getQeAlgoHelpStr, &Catalogue::readQeAlgHelpConfig},
    {"mdl_alg_huachuang1", "getHuachuangAlgoParams", &Catalogue::getHuaChuangStr, &Catalogue::readHuaChuangConfig},
};

std::string textOf(const Catalogue& catalogue, const Vendor& vendor) {
    std::string text = "something before";
    (catalogue.*vendor.get)(text);
    return text;
}

std::string contentNamed(const std::string& name) {
    return R"({"content": {"name": ")" + name + R"(", "version": 1}})";
}

// A script in which every vendor's function answers content named like the function.
std::string completeScript() {
    std::string source;
    for (const Vendor& vendor : kVendors)
        source += "function " + vendor.function + "() return '" + contentNamed(vendor.function) + "' end\n";
    return source;
}

void grant(const std::vector<std::string>& products) {
    standin::PlatformData data;
    for (const std::string& product : products)
        data.addRight("mdl_alg", product);
    standin::PlatformData::install(std::move(data));
}

void grantEverything() {
    std::vector<std::string> products;
    for (const Vendor& vendor : kVendors)
        products.push_back(vendor.product);
    grant(products);
}

std::vector<std::string> namesOf(const std::vector<RecordPtr>& records) {
    std::vector<std::string> names;
    for (const RecordPtr& record : records)
        names.push_back(record ? record->name : "null");
    return names;
}

std::map<std::string, std::string> marketTimes(const Catalogue& catalogue) {
    std::map<std::string, std::string> times = {{"something", "before"}};
    catalogue.getMarketTimeMap(times);
    return times;
}

auto isErrorIn(const std::string& function) {
    return AllOf(Field(&LogLine::level, "ERROR"), Field(&LogLine::message, "getAlgorithmsParams error."),
                 Field(&LogLine::function, function),
                 Field(&LogLine::file, "libs/traderbase/base/config/algorithmparamconfig"));
}

}  // namespace

TEST(AlgorithmParamConfig, IsOneForTheProcess) {
    const ClientFolder folder;
    const auto catalogue = Catalogue::instance();
    ASSERT_TRUE(catalogue);
    EXPECT_EQ(catalogue, Catalogue::instance());
    EXPECT_EQ(catalogue.use_count(), 2);
}

TEST(AlgorithmParamConfig, IsBuiltOnceWhenManyThreadsAskFirst) {
    const ClientFolder folder(
        "function getMarkets() return '{\"A\": 1}' end function getMarketTradeDuration() return 'x' end");
    std::vector<boost::shared_ptr<Catalogue>> answers(16);
    std::vector<std::thread> threads;
    threads.reserve(answers.size());
    for (auto& answer : answers)
        threads.emplace_back([&answer] { answer = Catalogue::instance(); });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& answer : answers) {
        EXPECT_EQ(answer, answers.front());
        EXPECT_EQ(marketTimes(*answer).size(), 1U);
    }
}

TEST(AlgorithmParamConfig, StartsEmptyExceptForTheMarketTimes) {
    const ClientFolder folder(R"(
        function getMarkets() return '{"SSE": 1, "CFFEX": 2}' end
        function getMarketTradeDuration(market) return "times of " .. market end
    )");
    const LogCapture log;
    const auto catalogue = Catalogue::instance();
    for (const Vendor& vendor : kVendors)
        EXPECT_EQ(textOf(*catalogue, vendor), "") << vendor.function;
    EXPECT_THAT(catalogue->getAlgoritmsParams(), IsEmpty());
    EXPECT_THAT(marketTimes(*catalogue), ElementsAre(Pair("CFFEX", "times of CFFEX"), Pair("SSE", "times of SSE")));
    EXPECT_THAT(log.messages(), IsEmpty());
}

TEST(AlgorithmParamConfig, ReadsEveryVendorTheUserHoldsRightsTo) {
    const ClientFolder folder;
    const auto catalogue = Catalogue::instance();
    grantEverything();
    Script script(completeScript());
    const LogCapture log;
    catalogue->initAlgoParams(*script);
    std::vector<std::string> functions;
    for (const Vendor& vendor : kVendors) {
        EXPECT_EQ(textOf(*catalogue, vendor), contentNamed(vendor.function));
        functions.push_back(vendor.function);
    }
    EXPECT_EQ(namesOf(catalogue->getAlgoritmsParams()), functions);
    EXPECT_THAT(log.messages(), IsEmpty());
}

TEST(AlgorithmParamConfig, ReadsEachVendorByItsOwnRight) {
    const ClientFolder folder;
    const Catalogue empty(*Catalogue::instance());
    Script script(completeScript());
    for (const Vendor& granted : kVendors) {
        if (granted.product.empty()) continue;
        Catalogue catalogue(empty);
        grant({granted.product});
        catalogue.initAlgoParams(*script);
        for (const Vendor& vendor : kVendors) {
            const bool read = vendor.product.empty() || vendor.product == granted.product;
            EXPECT_EQ(textOf(catalogue, vendor), read ? contentNamed(vendor.function) : "")
                << vendor.function << " with " << granted.product;
        }
        EXPECT_THAT(catalogue.getAlgoritmsParams(), SizeIs(3));
    }
}

TEST(AlgorithmParamConfig, ReadsTheTwapBlockForEitherOfTwoRights) {
    const ClientFolder folder;
    const Catalogue empty(*Catalogue::instance());
    Script script(completeScript());
    const Vendor& twap = kVendors[5];
    using Products = std::vector<std::string>;
    for (const Products& products :
         {Products{"mdl_alg_vwap"}, Products{"mdl_alg_twap"}, Products{"mdl_alg_twap", "mdl_alg_vwap"}}) {
        Catalogue catalogue(empty);
        grant(products);
        catalogue.initAlgoParams(*script);
        EXPECT_EQ(textOf(catalogue, twap), contentNamed(twap.function));
        EXPECT_THAT(catalogue.getAlgoritmsParams(), SizeIs(3));  // once, whichever rights the user holds
    }
    Catalogue catalogue(empty);
    grant({"mdl_alg_zxjt1"});
    catalogue.initAlgoParams(*script);
    EXPECT_EQ(textOf(catalogue, twap), "");
}

TEST(AlgorithmParamConfig, ReadsTheOwnAlgorithmsAndTheHelpWithoutAnyRight) {
    const ClientFolder folder;
    const auto catalogue = Catalogue::instance();
    grant({});
    Script script(completeScript());
    catalogue->initAlgoParams(*script);
    EXPECT_THAT(namesOf(catalogue->getAlgoritmsParams()),
                ElementsAre("getQeAlgoParamConfig", "getAlgorithmsHelpParamConfig"));
    EXPECT_NE(textOf(*catalogue, kVendors[6]), "");
    EXPECT_NE(textOf(*catalogue, kVendors[7]), "");
}

TEST(AlgorithmParamConfig, CountsRightsOfItsOwnGroupAlone) {
    const ClientFolder folder;
    const auto catalogue = Catalogue::instance();
    standin::PlatformData data;
    data.addRight("mdl_other", "mdl_alg_zxzq1");
    data.addRight("mdl_alg", "");
    standin::PlatformData::install(std::move(data));
    Script script(completeScript());
    catalogue->initAlgoParams(*script);
    EXPECT_THAT(catalogue->getAlgoritmsParams(), SizeIs(2));
}

TEST(AlgorithmParamConfig, AsksForRightsAndVendorsInTheirOrder) {
    const ClientFolder folder;
    const auto catalogue = Catalogue::instance();
    grant({"mdl_alg_zxjt1", "mdl_alg_vwap", "mdl_alg_huachuang1"});
    Script script(completeScript());
    std::vector<std::string> questions;
    standin::setQueryHook([&questions](const standin::Query& query) {
        questions.push_back(std::string(query.operation) + " " + std::string(query.first) + " " +
                            std::string(query.second));
    });
    catalogue->initAlgoParams(*script);
    standin::setQueryHook({});
    const auto right = [](const std::string& product) { return "ttservice::testAuth mdl_alg " + product; };
    const auto parse = [](const std::string& function) {
        return "Configuration::parse " + contentNamed(function) + " ";
    };
    EXPECT_THAT(questions, ElementsAre(right("mdl_alg_zxzq1"), right("mdl_alg_zxjt1"), parse("getZxjtAlgoParamConfig"),
                                       right("mdl_alg_genus1"), right("mdl_alg_zsgs1"), right("mdl_alg_jazz1"),
                                       right("mdl_alg_twap"), right("mdl_alg_vwap"), parse("getTwapAlgoParamConfig"),
                                       parse("getQeAlgoParamConfig"), parse("getAlgorithmsHelpParamConfig"),
                                       right("mdl_alg_huachuang1"), parse("getHuachuangAlgoParams")));
}

TEST(AlgorithmParamConfig, AsksForTheSecondTwapRightOnlyAfterTheFirstIsRefused) {
    const ClientFolder folder;
    const auto catalogue = Catalogue::instance();
    grant({"mdl_alg_twap"});
    Script script(completeScript());
    bool asked = false;
    standin::setQueryHook([&asked](const standin::Query& query) { asked = asked || query.second == "mdl_alg_vwap"; });
    catalogue->initAlgoParams(*script);
    standin::setQueryHook({});
    EXPECT_FALSE(asked);
}

TEST(AlgorithmParamConfig, CallsNoFunctionOfAVendorWithoutRights) {
    const ClientFolder folder;
    const auto catalogue = Catalogue::instance();
    grant({"mdl_alg_jazz1"});
    std::string source;
    for (const Vendor& vendor : kVendors)
        source += "function " + vendor.function + "(...) printLog('" + vendor.function +
                  " ' .. select('#', ...)) return '" + contentNamed("x") + "' end\n";
    Script script(source);
    const LogCapture log;
    catalogue->initAlgoParams(*script);
    EXPECT_THAT(log.messages(),
                ElementsAre("getJazzAlgoParamConfig 0", "getQeAlgoParamConfig 0", "getAlgorithmsHelpParamConfig 0"));
}

TEST(AlgorithmParamConfig, GivesNothingForAMissingScript) {
    const ClientFolder folder;
    const auto catalogue = Catalogue::instance();
    grant({"mdl_alg_zxzq1"});
    luabase::LuaConfig script;
    script.init("missing.lua");
    const LogCapture log;
    catalogue->initAlgoParams(script);
    for (const Vendor& vendor : kVendors)
        EXPECT_EQ(textOf(*catalogue, vendor), "");
    EXPECT_THAT(catalogue->getAlgoritmsParams(), IsEmpty());
    // each of the three blocks logs the script runtime's line, then ours
    ASSERT_THAT(log.lines(), SizeIs(6));
    for (std::size_t at = 0; at < 6; at += 2) {
        EXPECT_EQ(log.lines()[at].function, "getConfig");
        EXPECT_EQ(log.lines()[at].message, "attempt to call a nil value");
        EXPECT_THAT(log.lines()[at + 1], isErrorIn("pushAlgotoVec"));
    }
}

TEST(AlgorithmParamConfig, KeepsTextsThatGiveNoRecord) {
    const ClientFolder folder;
    const Catalogue empty(*Catalogue::instance());
    const std::string texts[] = {
        "",
        "{}",
        "not JSON",
        R"({"content": {"name": "x"})",
        R"({"Content": {"name": "x"}})",
        R"({"other": {"content": {"name": "x"}}})",
        R"([{"content": {"name": "x"}}])",
        R"({"content": "text"})",
        R"({"content": 5})",
        R"({"content": 5.5})",
        R"({"content": true})",
        R"({"content": null})",
        R"({"content": {"$date": 5}})",
        R"({"content": 5, "content": {"name": "x"}})",
        R"({"content": {"name": 5}})",  // the record refuses it
        "{\"content\": " + std::string(200, '[') + std::string(200, ']') + "}",
        "{\"content\": " + std::string(1000000, '['),
        "{\"content\": {\"\\u0000\": 1}}",
    };
    for (const std::string& text : texts) {
        for (const Vendor& vendor : kVendors) {
            Catalogue catalogue(empty);
            const LogCapture log;
            EXPECT_NO_THROW((catalogue.*vendor.read)(text));
            EXPECT_EQ(textOf(catalogue, vendor), text);
            EXPECT_THAT(catalogue.getAlgoritmsParams(), IsEmpty()) << text.substr(0, 80);
            ASSERT_THAT(log.lines(), SizeIs(1)) << text.substr(0, 80);
            EXPECT_THAT(log.lines()[0], isErrorIn("pushAlgotoVec"));
        }
    }
}

TEST(AlgorithmParamConfig, MakesARecordOfTheContent) {
    const ClientFolder folder;
    Catalogue catalogue(*Catalogue::instance());
    const LogCapture log;
    catalogue.readCiticConfig(R"({"version": 2, "content": {"b": 1.5, "name": "one", "a": [1, "x"]}, "content": {}})");
    catalogue.readZxjtConfig(R"({"content": {}})");
    catalogue.readGenusConfig(R"({"content": [{"name": "inside"}]})");
    catalogue.readZsgsConfig(R"({"content": {"name": "四"}} and what follows)");
    EXPECT_THAT(log.messages(), IsEmpty());
    const auto records = catalogue.getAlgoritmsParams();
    EXPECT_THAT(namesOf(records), ElementsAre("one", "", "", "四"));
    EXPECT_EQ(records[0]->contentJson(), R"({"b":1.5,"name":"one","a":[1,"x"]})");
}

TEST(AlgorithmParamConfig, GoesOnAfterAVendorThatIsWrong) {
    const ClientFolder folder;
    const auto catalogue = Catalogue::instance();
    grant({"mdl_alg_zxzq1", "mdl_alg_huachuang1"});
    Script script(completeScript() + R"(
        function getCiticAlgoParamConfig() error("no Citic", 0) end
        function getAlgorithmsHelpParamConfig() return '{"help": {"name": "x"}}' end
    )");
    const LogCapture log;
    catalogue->initAlgoParams(*script);
    EXPECT_EQ(textOf(*catalogue, kVendors[0]), "");
    EXPECT_EQ(textOf(*catalogue, kVendors[7]), R"({"help": {"name": "x"}})");
    EXPECT_EQ(textOf(*catalogue, kVendors[8]), contentNamed("getHuachuangAlgoParams"));
    EXPECT_THAT(namesOf(catalogue->getAlgoritmsParams()),
                ElementsAre("getQeAlgoParamConfig", "getHuachuangAlgoParams"));
    ASSERT_THAT(log.lines(), SizeIs(3));
    EXPECT_EQ(log.messages()[0], "no Citic");
    EXPECT_THAT(log.lines()[1], isErrorIn("pushAlgotoVec"));
    EXPECT_THAT(log.lines()[2], isErrorIn("pushAlgotoVec"));
}

TEST(AlgorithmParamConfig, StopsAtAnExceptionAndKeepsWhatItHas) {
    const ClientFolder folder;
    const Catalogue empty(*Catalogue::instance());
    grantEverything();
    Script script(completeScript());
    const std::pair<std::string, int> rows[] = {
        // the question that fails, and the blocks read before it
        {"mdl_alg_zxzq1", 0},
        {"mdl_alg_jazz1", 4},
        {"mdl_alg_twap", 5},
        {"mdl_alg_huachuang1", 8},
        {contentNamed("getCiticAlgoParamConfig"), 0},
        {contentNamed("getQeAlgoParamConfig"), 6},
        {contentNamed("getHuachuangAlgoParams"), 8},
    };
    const std::function<void()> throwers[] = {[] { throw std::runtime_error("x"); }, [] { throw std::bad_alloc(); },
                                              [] { throw 5; }};
    for (const auto& [question, blocks] : rows) {
        for (const auto& thrower : throwers) {
            Catalogue catalogue(empty);
            const LogCapture log;
            const std::string& failing = question;
            standin::setQueryHook([&](const standin::Query& query) {
                if (query.first == failing || query.second == failing) thrower();
            });
            EXPECT_NO_THROW(catalogue.initAlgoParams(*script));
            standin::setQueryHook({});
            for (int at = 0; at < 9; ++at)
                EXPECT_EQ(!textOf(catalogue, kVendors[at]).empty(), at < blocks) << question << at;
            EXPECT_THAT(catalogue.getAlgoritmsParams(), SizeIs(static_cast<std::size_t>(blocks)));
            ASSERT_THAT(log.lines(), SizeIs(1));
            EXPECT_THAT(log.lines()[0], isErrorIn("initAlgoParams"));
        }
    }
}

TEST(AlgorithmParamConfig, PassesOnWhatTheSettingsReaderThrows) {
    const ClientFolder folder;
    Catalogue catalogue(*Catalogue::instance());
    for (const Vendor& vendor : kVendors) {
        const LogCapture log;
        standin::setQueryHook([](const standin::Query& query) {
            if (query.operation == "Configuration::parse") throw std::runtime_error("refused");
        });
        EXPECT_THROW((catalogue.*vendor.read)(contentNamed("x")), std::runtime_error);
        standin::setQueryHook({});
        EXPECT_EQ(textOf(catalogue, vendor), "");
        EXPECT_THAT(log.messages(), IsEmpty());
    }
    EXPECT_THAT(catalogue.getAlgoritmsParams(), IsEmpty());
}

TEST(AlgorithmParamConfig, ReplacesTextsAndAppendsRecordsWhenReadAgain) {
    const ClientFolder folder;
    const auto catalogue = Catalogue::instance();
    grant({});
    Script script(completeScript());
    catalogue->initAlgoParams(*script);
    Script other("function getQeAlgoParamConfig() return '" + contentNamed("new") + "' end");
    catalogue->initAlgoParams(*other);
    EXPECT_EQ(textOf(*catalogue, kVendors[6]), contentNamed("new"));
    EXPECT_EQ(textOf(*catalogue, kVendors[7]), "");  // the other script has no such function
    EXPECT_THAT(namesOf(catalogue->getAlgoritmsParams()),
                ElementsAre("getQeAlgoParamConfig", "getAlgorithmsHelpParamConfig", "new"));
}

TEST(AlgorithmParamConfig, FindsTheEarliestRecordOfAName) {
    const ClientFolder folder;
    Catalogue catalogue(*Catalogue::instance());
    EXPECT_EQ(catalogue.getAlgoParam("one"), nullptr);
    catalogue.pushAlgoVec(RecordPtr());
    catalogue.readCiticConfig(R"({"content": {"name": "one", "version": 1}})");
    catalogue.readZxjtConfig(R"({"content": {"name": "one", "version": 2}})");
    catalogue.readGenusConfig(R"({"content": {"version": 3}})");
    const auto records = catalogue.getAlgoritmsParams();
    EXPECT_THAT(namesOf(records), ElementsAre("null", "one", "one", ""));
    EXPECT_EQ(catalogue.getAlgoParam("one"), records[1]);
    EXPECT_EQ(catalogue.getAlgoParam(""), records[3]);
    for (const char* name : {"One", "one ", "on", "two"})
        EXPECT_EQ(catalogue.getAlgoParam(name), nullptr) << name;
    EXPECT_EQ(catalogue.getAlgoParam(std::string("one\0", 4)), nullptr);
}

TEST(AlgorithmParamConfig, AcceptsTheClientsOwnRecords) {
    const ClientFolder folder;
    Catalogue catalogue(*Catalogue::instance());
    const auto own = boost::make_shared<CAlgorithmsParams>();
    own->name = "own";
    catalogue.pushAlgoVec(own);
    catalogue.pushAlgoVec(own);
    EXPECT_EQ(catalogue.getAlgoParam("own"), own);
    EXPECT_THAT(catalogue.getAlgoritmsParams(), ElementsAre(own, own));
    catalogue.getAlgoritmsParams().clear();  // a copy
    EXPECT_THAT(catalogue.getAlgoritmsParams(), SizeIs(2));
}

TEST(AlgorithmParamConfig, CopiesTextsAndSharesRecords) {
    const ClientFolder folder(
        "function getMarkets() return '{\"A\": 1}' end function getMarketTradeDuration() return 'x' end");
    Catalogue catalogue(*Catalogue::instance());
    for (const Vendor& vendor : kVendors)
        (catalogue.*vendor.read)(contentNamed(vendor.function));
    Catalogue copy(catalogue);
    Catalogue assigned(*Catalogue::instance());
    assigned = catalogue;
    catalogue.readCiticConfig(contentNamed("later"));
    for (const Catalogue* other : {&copy, &assigned}) {
        for (const Vendor& vendor : kVendors)
            EXPECT_EQ(textOf(*other, vendor), contentNamed(vendor.function));
        EXPECT_THAT(other->getAlgoritmsParams(), SizeIs(9));
        EXPECT_EQ(other->getAlgoritmsParams()[0], catalogue.getAlgoritmsParams()[0]);
        EXPECT_THAT(marketTimes(*other), ElementsAre(Pair("A", "x")));
    }
    EXPECT_TRUE(std::is_copy_constructible_v<Catalogue>);
}

TEST(AlgorithmParamConfig, KeepsAnEmptyMapForAnEmptyMarketList) {
    const ClientFolder folder("function getMarkets() return '{}' end");
    const LogCapture log;
    EXPECT_THAT(marketTimes(*Catalogue::instance()), IsEmpty());
    EXPECT_THAT(log.messages(), IsEmpty());
}

TEST(AlgorithmParamConfig, MapsAMarketWhoseFunctionFailsToAnEmptyText) {
    const ClientFolder folder(R"(
        function getMarkets() return '{"B": 1, "A": 1, "B": 2, "FAILS": 1}' end
        local asked = 0
        function getMarketTradeDuration(market)
            if market == "FAILS" then error("no times", 0) end
            asked = asked + 1
            return market .. asked
        end
    )");
    const LogCapture log;
    EXPECT_THAT(marketTimes(*Catalogue::instance()), ElementsAre(Pair("A", "A2"), Pair("B", "B3"), Pair("FAILS", "")));
    EXPECT_THAT(log.messages(), ElementsAre("no times"));
}

TEST(AlgorithmParamConfig, LogsNothingOfItsOwnForAMissingMarketScript) {
    const ClientFolder folder;
    const LogCapture log;
    EXPECT_THAT(marketTimes(*Catalogue::instance()), IsEmpty());
    ASSERT_THAT(log.messages(), SizeIs(2));
    EXPECT_THAT(log.messages()[0], HasSubstr("cannot open ../luaScripts/MarketTime.lua"));
    EXPECT_EQ(log.messages()[1], "attempt to call a nil value");
}

TEST(AlgorithmParamConfig, LogsAMarketListThatIsNotAnObject) {
    for (const char* list : {"not JSON", "[\"SSE\"]", "{\"SSE\": ", "5"}) {
        const ClientFolder folder(std::string("function getMarkets() return '") + list + "' end");
        Catalogue catalogue(*Catalogue::instance());
        const LogCapture log;
        EXPECT_NO_THROW(catalogue.initMarketTime());
        EXPECT_THAT(marketTimes(catalogue), IsEmpty());
        ASSERT_THAT(log.lines(), SizeIs(1)) << list;
        EXPECT_THAT(log.lines()[0], isErrorIn("initMarketTime"));
    }
}

TEST(AlgorithmParamConfig, AddsMarketsWhenTheTimesAreReadAgain) {
    Catalogue catalogue = [] {
        const ClientFolder folder(
            "function getMarkets() return '{\"A\": 1, \"B\": 1}' end function getMarketTradeDuration() return 'old' "
            "end");
        return *Catalogue::instance();
    }();
    const ClientFolder folder(
        "function getMarkets() return '{\"B\": 1, \"C\": 1}' end function getMarketTradeDuration() return 'new' end");
    catalogue.initMarketTime();
    EXPECT_THAT(marketTimes(catalogue), ElementsAre(Pair("A", "old"), Pair("B", "new"), Pair("C", "new")));
}

TEST(AlgorithmParamConfig, IsSilentWithoutALogger) {
    const ClientFolder folder;
    Catalogue catalogue(*Catalogue::instance());
    luabase::LuaConfig script;
    catalogue.initAlgoParams(script);  // not even initialised
    catalogue.readCiticConfig("not JSON");
    EXPECT_THAT(catalogue.getAlgoritmsParams(), IsEmpty());
}

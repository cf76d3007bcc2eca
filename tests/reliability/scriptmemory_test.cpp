// Memory runs out at every single request while scripts are read, including requests of the interpreter: the tables
// that scripts fill are in their old or their new state, and are never emptied by a lack of memory.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "standin/logsetup.h"
#include "standin/platformdata.h"
#include "tests/base/luaconfig/script.h"
#include "tests/reliability/freshstore.h"
#include "tests/reliability/refuseeachrequest.h"
#include "tests/reliability/storetables.h"
#include "tests/support/clientfolder.h"
#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/scripts/jsonobject.h"
#include "ttplatform/logging.h"

using luabase::LuaConfig;
using standin::LogCapture;
using tests::ClientFolder;
using tests::FreshStore;
using tests::Outcome;
using tests::Refusal;
using tests::refuseEachRequest;
using tests::Shortage;
using tests::Tables;
using tests::tablesOf;
using ttservice::AlgorithmParamConfig;
using ttservice::ConfigCollector;
using ttservice::internal::readJsonObject;

namespace {

using Texts = std::map<std::string, std::string>;

// Texts too long for the small-string optimisation, and a log line.
const char* const kMarketTimes = R"(
all = {}
for i = 1, 20 do all[i] = 'a value of the script number ' .. i end
function getMarkets() return '{"SSE":1,"SZSE":1,"a market with a name that is long":1}' end
function getMarketTradeDuration(m)
    printLog('the sessions of the market ' .. m .. ' are asked for' .. table.concat(all))
    return '{"100000":50,"110000":49,"a name that is long enough to be no text in place":"' .. m .. '"}'
end
)";

// The minimum number of requests, for builds that refuse every allocation and for builds that refuse only C++ ones.
long atLeast(long ofEverybody, long ofCpp) {
    return tests::isEverybodyRefused() ? ofEverybody : ofCpp;
}

Texts marketTimesOf(const AlgorithmParamConfig& catalogue) {
    Texts texts;
    catalogue.getMarketTimeMap(texts);
    return texts;
}

}  // namespace

TEST(ScriptMemory, SessionsStayWholeOrAreReplacedWhole) {
    const ClientFolder client;
    const tests::TempFolder folder;
    const std::string script = folder.write("sessions.lua", kMarketTimes);
    const Texts former{{"SSE", R"({"93000":50,"113000":49})"}};
    const FreshStore reference;
    reference->initMarketTradingTime(former);
    const Tables old = tablesOf(*reference);
    reference->initMarketTradingTime(script);
    const Tables wanted = tablesOf(*reference);
    ASSERT_NE(old, wanted);
    const long points = refuseEachRequest([&](const Refusal& refusal) {
        const FreshStore store;
        store->initMarketTradingTime(former);
        const Outcome read = refusal.during([&] { store->initMarketTradingTime(script); });
        ASSERT_NE(read, Outcome::OtherException);
        ASSERT_EQ(tablesOf(*store), read == Outcome::Done ? wanted : old);
        store->initMarketTradingTime(script);
        ASSERT_EQ(tablesOf(*store), wanted);
    });
    EXPECT_GT(points, atLeast(1200, 100));
    std::cout << points << " requests of a market-time script refused\n";
}

TEST(ScriptMemory, MarketTimesOfTheCatalogueStayWholeOrAreReplacedWhole) {
    const ClientFolder client(kMarketTimes);
    const AlgorithmParamConfig filled(*AlgorithmParamConfig::instance());
    const Texts wanted = marketTimesOf(filled);
    ASSERT_EQ(wanted.size(), 3U);
    const ClientFolder other(
        "function getMarkets() return '{\"SSE\":1}' end\n"
        "function getMarketTradeDuration(m) return 'a text that is not the one before' end\n");
    Texts mixed = wanted;
    mixed["SSE"] = "a text that is not the one before";
    const long points = refuseEachRequest([&](const Refusal& refusal) {
        AlgorithmParamConfig catalogue(filled);
        const Outcome read = refusal.during([&] { catalogue.initMarketTime(); });
        ASSERT_NE(read, Outcome::OtherException);
        ASSERT_EQ(marketTimesOf(catalogue), read == Outcome::Done ? mixed : wanted);
        catalogue.initMarketTime();
        ASSERT_EQ(marketTimesOf(catalogue), mixed);
    });
    EXPECT_GT(points, atLeast(900, 5));
    std::cout << points << " requests of a catalogue's market times refused\n";
}

namespace {

// A log to which this thread has already written a line: running out of memory for the logging library's per-thread
// data would end the process. That line is at INFO level, so the script's errors are still the first ones of the
// process.
struct LogInUse {
    LogInUse() { g_TTStdLogger->info("a line"); }

    const LogCapture log;
};

enum class Round { Judged, Wrong, NothingRefused };

// Reports the result of a round as the exit code of its process.
template <typename Ask, typename IsWhole>
[[noreturn]] void endWith(const Refusal& refusal, const Ask& ask, const IsWhole& isWhole) {
    const Outcome built = refusal.during(ask);
    const bool isRight = built != Outcome::OtherException && isWhole();
    const Round round = !isRight ? Round::Wrong : refusal.wasRefused() ? Round::Judged : Round::NothingRefused;
    std::_Exit(static_cast<int>(round));
}

// Runs each round in a process of its own, since a process has only one first call. Whatever goes wrong in that call,
// the next caller gets a complete object.
template <typename Ask, typename IsWhole>
long refuseFirstCall(Shortage shortage, const Ask& ask, const IsWhole& isWhole) {
    for (long nth = 1;; ++nth) {
        const pid_t round = fork();
        if (round == 0) endWith(Refusal(nth, shortage), ask, isWhole);
        int status = 0;
        EXPECT_EQ(waitpid(round, &status, 0), round);
        const bool hasEnded = WIFEXITED(status) && WEXITSTATUS(status) != static_cast<int>(Round::Wrong);
        EXPECT_TRUE(hasEnded) << "request " << nth << " ended the process with " << status;
        if (!hasEnded || WEXITSTATUS(status) == static_cast<int>(Round::NothingRefused)) return nth - 1;
    }
}

}  // namespace

class FirstInstance : public testing::TestWithParam<Shortage> {};

TEST_P(FirstInstance, OfTheStoreIsBuiltByTheNextCaller) {
    const ClientFolder client(kMarketTimes);
    const LogInUse log;
    const auto isWhole = [] {
        const auto store = ConfigCollector::instance();
        return store->getTradingTime("SZSE").size() == 1 && store->getTradingTime("SSE").size() == 1 &&
               !store->isNeedMaxAmountPts(1);
    };
    const long points = refuseFirstCall(
        GetParam(), [] { ConfigCollector::instance(); }, isWhole);
    EXPECT_GT(points, atLeast(300, 5));
    std::cout << points << " requests of the first store refused\n";
}

TEST_P(FirstInstance, OfTheCatalogueIsBuiltByTheNextCaller) {
    const ClientFolder client(kMarketTimes);
    const LogInUse log;
    const auto isWhole = [] { return marketTimesOf(*AlgorithmParamConfig::instance()).size() == 3; };
    const long points = refuseFirstCall(
        GetParam(), [] { AlgorithmParamConfig::instance(); }, isWhole);
    EXPECT_GT(points, atLeast(300, 5));
    std::cout << points << " requests of the first catalogue refused\n";
}

INSTANTIATE_TEST_SUITE_P(ScriptMemory, FirstInstance, testing::Values(Shortage::Once, Shortage::FromThenOn),
                         [](const auto& kind) { return kind.param == Shortage::Once ? "Once" : "FromThenOn"; });

TEST(ScriptMemory, AStoreIsBuiltWholeOrNotAtAll) {
    const ClientFolder client(kMarketTimes);
    const Tables wanted = tablesOf(*FreshStore());
    const long points = refuseEachRequest([&](const Refusal& refusal) {
        boost::shared_ptr<ConfigCollector> store;
        const Outcome built = refusal.during([&] { store = ttservice::internal::StoreSlot::build(); });
        ASSERT_NE(built, Outcome::OtherException);
        if (built == Outcome::Done) {
            ASSERT_EQ(tablesOf(*store), wanted);
        }
        ASSERT_EQ(store != nullptr, built == Outcome::Done);
    });
    EXPECT_GT(points, atLeast(1200, 100));
    std::cout << points << " requests of a new store refused\n";
}

// Called directly, an interpreter without memory behaves like any failing script: an empty answer and one log line.
TEST(ScriptMemory, AScriptAnswersRightOrNothing) {
    const tests::TempFolder folder;
    const std::string path = folder.write("script.lua", kMarketTimes);
    std::string expected;
    {
        const LogCapture log;
        LuaConfig script;
        script.init(path);
        expected = script.getConfig("getMarketTradeDuration", "SSE");
        ASSERT_GT(expected.size(), 50U);
    }
    const long points = refuseEachRequest([&](const Refusal& refusal) {
        const LogCapture log;
        LuaConfig script;
        std::string answer;
        const Outcome asked = refusal.during([&] {
            script.init(path);
            answer = script.getConfig("getMarketTradeDuration", "SSE");
        });
        ASSERT_NE(asked, Outcome::OtherException);
        if (asked == Outcome::Done && answer != expected) {
            ASSERT_EQ(answer, "");
            const std::vector<std::string> lines = log.messages();
            const auto tells = [](const std::string& line) { return line.find("emory") != std::string::npos; };
            ASSERT_TRUE(!refusal.isOnce() || std::any_of(lines.begin(), lines.end(), tells));
        }
    });
    EXPECT_GT(points, atLeast(1000, 20));
    std::cout << points << " requests of a script's loading and answer refused\n";
}

// The JSON library leaks a buffer that it cannot enlarge, so this test does not look for leaks.
TEST(ScriptMemory, AJsonTextIsReadOrReportsLackOfMemory) {
    std::string text = R"({"first":1)";
    for (int i = 0; i < 50; ++i)
        text += ",\"a name that is long " + std::to_string(i) + R"(":["a value that is long",2.5,{"x":null}])";
    text += '}';
    const std::string parsed = readJsonObject(text)->toString();
    for (const Shortage shortage : {Shortage::Once, Shortage::FromThenOn}) {
        long nth = 1;
        for (bool refused = true; refused; ++nth) {
            const Refusal refusal(nth, shortage);
            std::optional<mongo::BSONObj> object;
            const Outcome read = refusal.during([&] { object = readJsonObject(text); });
            refused = refusal.wasRefused();
            ASSERT_NE(read, Outcome::OtherException) << nth;
            ASSERT_EQ(object.has_value(), read == Outcome::Done) << nth;
            ASSERT_TRUE(!object || object->toString() == parsed) << nth;
        }
        EXPECT_GT(nth, 200);
        std::cout << nth - 2 << " requests of a JSON text's reading refused\n";
    }
}

namespace {

using Getter = void (AlgorithmParamConfig::*)(std::string&) const;

struct Vendor {
    const char* function;
    const char* right;
    Getter get;
};

const Vendor kVendors[] = {
    {"getCiticAlgoParamConfig", "mdl_alg_zxzq1", &AlgorithmParamConfig::getCiticOriginalStr},
    {"getTwapAlgoParamConfig", "mdl_alg_twap", &AlgorithmParamConfig::getTwapOriginalStr},
    {"getQeAlgoParamConfig", "", &AlgorithmParamConfig::getQeAlgOriginalStr},
    {"getAlgorithmsHelpParamConfig", "", &AlgorithmParamConfig::getQeAlgoHelpStr},
};

std::string answerOf(const Vendor& vendor, const std::string& version) {
    return std::string(R"({"content":{"name":")") + vendor.function + version +
           R"(","fields":[1,2.5,{"x":"a text that is long"}]}})";
}

std::string scriptOf(const std::string& version) {
    std::string source;
    for (const Vendor& vendor : kVendors)
        source += std::string("function ") + vendor.function + "() return '" + answerOf(vendor, version) + "' end\n";
    return source;
}

void grantVendors() {
    standin::PlatformData data;
    for (const Vendor& vendor : kVendors)
        data.addRight("mdl_alg", vendor.right);
    standin::PlatformData::install(std::move(data));
}

// Each vendor's text is the old or the new one. Each new record belongs to a new text, at most one per text.
void expectWholeVendors(const AlgorithmParamConfig& catalogue) {
    std::size_t texts = 0;
    for (const Vendor& vendor : kVendors) {
        std::string text;
        (catalogue.*vendor.get)(text);
        const bool isNew = text == answerOf(vendor, "new");
        texts += isNew ? 1U : 0U;
        ASSERT_TRUE(isNew || text == answerOf(vendor, "old")) << text;
        ASSERT_NE(catalogue.getAlgoParam(std::string(vendor.function) + "old"), nullptr);
        ASSERT_TRUE(isNew || catalogue.getAlgoParam(std::string(vendor.function) + "new") == nullptr);
    }
    ASSERT_LE(catalogue.getAlgoritmsParams().size(), std::size(kVendors) + texts);
}

// A catalogue with every vendor's old text, and the script with the new ones.
struct OldVendors {
    OldVendors() : newScript(folder.write("new.lua", scriptOf("new"))), catalogue(*AlgorithmParamConfig::instance()) {
        grantVendors();
        catalogue.initAlgoParams(*tests::Script(scriptOf("old")));
    }

    const ClientFolder client;
    const tests::TempFolder folder;
    const std::string newScript;
    AlgorithmParamConfig catalogue;
};

}  // namespace

TEST(ScriptMemory, VendorAnswersComeInWholeOrNotAtAll) {
    const OldVendors old;
    const long points = refuseEachRequest([&](const Refusal& refusal) {
        AlgorithmParamConfig catalogue(old.catalogue);
        LuaConfig script;
        script.init(old.newScript);
        ASSERT_EQ(refusal.during([&] { catalogue.initAlgoParams(script); }), Outcome::Done);
        expectWholeVendors(catalogue);
        if (!refusal.wasRefused()) {
            ASSERT_EQ(catalogue.getAlgoritmsParams().size(), 2 * std::size(kVendors));
        }
    });
    EXPECT_GT(points, atLeast(150, 100));
    std::cout << points << " requests of a reading of vendor answers refused\n";
}

TEST(ScriptMemory, VendorsStayWhenThereWasNoMemoryToLoadTheirScript) {
    const OldVendors old;
    const long points = refuseEachRequest([&](const Refusal& refusal) {
        AlgorithmParamConfig catalogue(old.catalogue);
        LuaConfig script;
        const Outcome loaded = refusal.during([&] { script.init(old.newScript); });
        ASSERT_NE(loaded, Outcome::OtherException);
        if (loaded == Outcome::Done) catalogue.initAlgoParams(script);
        expectWholeVendors(catalogue);
    });
    EXPECT_GT(points, atLeast(900, 1));
    std::cout << points << " requests of the loading of a vendors' script refused\n";
}

// Explanations agree with the store: every question of the call table, asked about generated settings files. This test
// links the library's objects, so that each file is the first that its store loads.

#include <gmock/gmock.h>
#include <standin/platformdatafile.h>

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/clientfolder.h"
#include "tests/support/standarderror.h"
#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/madesettings.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/store/storeslot.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "ttconfig/explaining/whynot.h"
#include "ttconfig/reasons/explainer.h"
#include "ttconfig/text/answertext.h"

namespace {

using ttconfig::Answer;
using ttconfig::Arguments;
using ttconfig::Call;
using ttconfig::CallState;
using ttconfig::callTable;
using ttconfig::Explainer;
using ttconfig::Explanation;
using ttconfig::Reason;
using ttservice::internal::StoreSlot;

constexpr unsigned kFiles = 400;
constexpr unsigned kQuestionsOfFile = 440;
constexpr unsigned kWhyNotsOfFile = 16;
static_assert(kFiles * kQuestionsOfFile >= 100000);

constexpr const char* kScript =
    "function getMarkets() return '{\"SH\":\"\",\"SZ\":\"\"}' end\n"
    "function getMarketTradeDuration(m) if m == 'SH' then return '{\"93000\":50,\"113000\":49}' end return '{}' end\n";

// Operations that ask the store nothing about settings, and the reason.
const std::map<std::string, std::string> kNoQuestions = {
    {"readConfig", "loads"},
    {"initMarketTradingTime", "loads"},
    {"addLocalConfig", "tells"},
    {"setUseLocalConfig", "tells"},
    {"setPts", "tells"},
    {"setSplitPermission", "tells"},
    {"setAutoSplitOrderAuth", "tells"},
    {"setDelayPushTime", "tells"},
    {"setNeedDelayPushExternOrder", "tells"},
    {"setNeedRemoveExportFile", "tells"},
    {"setGadrafClientMode", "tells"},
    {"setNoNeedCalcAccountDetail", "tells"},
    {"setUseOrderIdFunction", "tells"},
    {"setHKUseCustRate", "tells"},
    {"setHKRateType", "tells"},
    {"setHideModel", "tells"},
    {"setLocalDiskPathHash", "tells"},
    {"setLocalInfoFormat", "tells"},
    {"setQeTsConfig", "tells"},
    {"AlgorithmParamConfig.", "another object, filled by scripts that the client hands in"},
    {"LuaConfig.", "another object, a script's interpreter"},
    {"Configuration.", "another object, the settings reader itself"},
};

bool isNoQuestion(const std::string& call) {
    const std::size_t dot = call.find('.');
    return kNoQuestions.count(dot == std::string::npos ? call : call.substr(0, dot + 1)) != 0;
}

// A question as failure messages show it.
std::string shown(const std::string& call, const Arguments& arguments) {
    return call + ttconfig::Argument(arguments).dump(-1, ' ', false, ttconfig::Argument::error_handler_t::replace);
}

// A store that has loaded one file and nothing before it.
class FreshStore {
public:
    FreshStore(const std::string& path, const std::map<std::string, bool>& overrides) {
        StoreSlot::exchange(StoreSlot::build());
        ttservice::ConfigCollector::instance()->readConfig(path);
        for (const auto& [key, value] : overrides)
            ttservice::ConfigCollector::instance()->addLocalConfig(key, value);
    }

    static Answer answer(const std::string& call, const Arguments& arguments) {
        CallState state;
        return callTable().answer(state, call, arguments);
    }
};

class ExplainedAnswers : public testing::Test {
protected:
    void SetUp() override {
        std::string error;
        ASSERT_TRUE(standin::installPlatformFile(TT_SOURCE_DIR "/samples/platform.json", error)) << error;
        for (const auto& [name, overloads] : callTable().rows()) {
            if (!Explainer::explains(name)) continue;
            std::vector<std::pair<std::string, const Call*>>& group = isSwitch(name) ? switches : others;
            for (const Call& call : overloads)
                group.emplace_back(name, &call);
        }
    }

    static bool isSwitch(const std::string& name) {
        for (const auto& row : ttservice::internal::kPlatformSwitches) {
            if (row.predicate == name) return true;
        }
        return false;
    }

    // One question in four about a switch.
    std::pair<std::string, Arguments> question(tests::MadeQuestions& made) const {
        const auto& group = made.below(4) == 0 ? switches : others;
        const auto& [name, call] = group[made.below(group.size())];
        Arguments arguments;
        for (const ttconfig::Parameter& parameter : call->parameters) {
            if (parameter.wanted == "int") arguments.emplace_back(made.number());
            if (parameter.wanted == "bool") arguments.emplace_back(made.flag());
            if (parameter.wanted == "text") arguments.emplace_back(made.text(name, arguments.size()));
        }
        return {name, arguments};
    }

    // Uses a new file each time: overwriting an existing one waits for the disk.
    std::string written(const std::string& bytes) const {
        std::filesystem::remove(folder.path("settings.ini"));
        return folder.write("settings.ini", bytes);
    }

    static std::map<std::string, bool> overrides(tests::MadeQuestions& made) {
        std::map<std::string, bool> all;
        if (made.below(3) == 0) all["needmaxamount"] = made.flag();
        if (made.below(3) == 0) all["notqueryalgopermission"] = made.flag();
        return all;
    }

    tests::ClientFolder client{kScript};
    tests::TempFolder folder;
    tests::StandardError silenced;
    std::vector<std::pair<std::string, const Call*>> switches;
    std::vector<std::pair<std::string, const Call*>> others;
    std::set<Reason> seen;
};

TEST(ExplainedCalls, CoverEveryQuestionOfTheCallTable) {
    for (const auto& [name, overloads] : callTable().rows())
        EXPECT_NE(Explainer::explains(name), isNoQuestion(name)) << name;
}

TEST(ExplainedCalls, ExceptionsAreExistingOperations) {
    for (const auto& [name, why] : kNoQuestions) {
        EXPECT_FALSE(why.empty());
        EXPECT_TRUE(name.back() == '.' || callTable().rows().count(name) == 1) << name;
    }
}

TEST_F(ExplainedAnswers, AreTheStoresAnswers) {
    unsigned asked = 0;
    for (unsigned seed = 0; seed < kFiles && !HasFailure(); ++seed) {
        const std::string bytes = tests::MadeSettings(seed).text();
        const std::string path = written(bytes);
        tests::MadeQuestions made(seed);
        const auto local = overrides(made);
        const FreshStore store(path, local);
        const standin::SettingsText text(bytes);
        const Explainer explainer(text, local, path);
        for (unsigned i = 0; i < kQuestionsOfFile; ++i, ++asked) {
            const auto [call, arguments] = question(made);
            const Explanation explanation = explainer.explain(call, arguments);
            seen.insert(explanation.reason);
            if (explanation.answer == FreshStore::answer(call, arguments)) continue;
            ADD_FAILURE() << shown(call, arguments) << ": " << explanation.answer << " because "
                          << ttconfig::wordOf(explanation.reason) << ", the store answers "
                          << FreshStore::answer(call, arguments) << "\nseed " << seed << "\n"
                          << bytes;
            break;
        }
    }
    EXPECT_TRUE(HasFailure() || asked >= 100000) << asked;
    for (const auto& reason : ttconfig::kReasons)
        EXPECT_EQ(seen.count(reason.reason), 1U) << "no answer is " << reason.word;
}

// --- edits

// An answer that the question does not have: the opposite flag, or an earlier answer of the same operation.
std::optional<std::string> anotherAnswer(const std::string& call, const Answer& answer,
                                         std::map<std::string, Answer>& former) {
    if (answer.is_boolean()) return answer.get<bool>() ? "false" : "true";
    const auto place = former.find(call);
    std::optional<std::string> other;
    if (place != former.end() &&
        ttconfig::withoutRecordNumbers(place->second) != ttconfig::withoutRecordNumbers(answer))
        other = ttconfig::withoutRecordNumbers(place->second).dump();
    former.insert_or_assign(call, answer);
    return other;
}

TEST_F(ExplainedAnswers, BecomeTheWantedOnesAfterTheProposedEdit) {
    std::map<std::string, Answer> former;
    std::map<std::string, int> edits;
    unsigned found = 0;
    unsigned asked = 0;
    for (unsigned seed = 0; seed < kFiles && !HasFailure(); ++seed) {
        const std::string bytes = tests::MadeSettings(seed + kFiles).text();
        tests::MadeQuestions made(seed);
        const standin::SettingsText text(bytes);
        const Explainer explainer(text);
        for (unsigned i = 0; i < kWhyNotsOfFile; ++i) {
            const auto [call, arguments] = question(made);
            const Answer answer = explainer.explain(call, arguments).answer;
            const auto wanted = anotherAnswer(call, answer, former);
            if (!wanted) continue;
            ++asked;
            const auto whyNot = ttconfig::whyNot(explainer, call, arguments, ttconfig::Wanted(*wanted));
            EXPECT_FALSE(whyNot.isSoAlready);
            EXPECT_TRUE(whyNot.edit || !isSwitch(call)) << shown(call, arguments) << " " << *wanted << "\n" << bytes;
            EXPECT_NE(whyNot.edit.has_value(), !whyNot.whyNone.empty());
            for (const auto& edit : {whyNot.edit, whyNot.narrower}) {
                if (!edit) continue;
                ++found;
                ++edits[call];
                const FreshStore store(written(ttconfig::editedText(text, *edit)), {});
                EXPECT_TRUE(ttconfig::Wanted(*wanted).matches(FreshStore::answer(call, arguments)))
                    << shown(call, arguments) << " wanted " << *wanted << "\n"
                    << bytes;
            }
        }
    }
    EXPECT_GT(asked, 2000U);
    EXPECT_GT(found, asked / 2);
    EXPECT_GT(edits.size(), 100U);
}

}  // namespace

// The calls of the targets that ask through the tool's call table.

#include "fuzz/sessioncalls.h"

#include <set>
#include <string>
#include <utility>

#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/internal/storeslot.h"

namespace fuzz {

namespace {

using ttconfig::Arguments;
using ttconfig::Call;
using ttconfig::CallRefused;
using ttconfig::CallState;
using ttconfig::CallTable;

bool takesPath(const std::string& name) {
    static const std::set<std::string> kNames = {"readConfig", "initMarketTradingTime", "LuaConfig.init",
                                                 "AlgorithmParamConfig.initAlgoParams", "Configuration.parse"};
    return kNames.count(name) > 0 || name.rfind("AlgorithmParamConfig.read", 0) == 0;
}

bool isOwnFunction(const std::string& function) {
    static const std::set<std::string> kNames = {"dofile", "loadfile", "module", "print", "require"};
    return kNames.count(function) == 0;
}

// The interpreters of a session that were given a script. A second one would give the first up, unclosed: that is how
// the library has it, and nothing to find here.
struct Initialised {
    std::set<int> handles;
};

void refuseSecondInit(CallState& state, const std::string& name, const Arguments& arguments) {
    if (name != "LuaConfig.init") return;
    if (!state.part<Initialised>().handles.insert(arguments.at(0).get<int>()).second) throw CallRefused("once only");
}

void refuseOutside(const std::string& name, const Arguments& arguments) {
    for (const auto& argument : arguments) {
        if (!argument.is_string()) continue;
        const auto& text = argument.get_ref<const std::string&>();
        if (takesPath(name) && text.find('/') != std::string::npos) throw CallRefused("not in this folder");
        if (name == "LuaConfig.getConfig" && !isOwnFunction(text)) throw CallRefused("not a function of the script");
    }
}

}  // namespace

const CallTable& sessionCalls() {
    static const CallTable table = [] {
        CallTable rows;
        for (const auto& [name, overloads] : ttconfig::callTable().rows()) {
            for (Call call : overloads) {
                call.run = [name = name, run = call.run](CallState& state, const Arguments& arguments) {
                    refuseOutside(name, arguments);
                    refuseSecondInit(state, name, arguments);
                    return run(state, arguments);
                };
                rows.add(name, std::move(call));
            }
        }
        return rows;
    }();
    return table;
}

void startAnew() {
    using ttservice::AlgorithmParamConfig;
    static const AlgorithmParamConfig empty = *AlgorithmParamConfig::instance();
    *AlgorithmParamConfig::instance() = empty;
    ttservice::internal::StoreSlot::exchange(ttservice::internal::StoreSlot::build());
}

}  // namespace fuzz

// The calls available to the targets that use the tool's call table.

#include "fuzz/session/sessioncalls.h"

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/internal/store/storeslot.h"

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

// Whether a path, relative to the client's folder, stays inside that folder's parent, which contains no links.
bool staysInside(const std::string& text) {
    // File systems ignore everything after a NUL.
    const std::filesystem::path path = (std::filesystem::path("bin") / text.c_str()).lexically_normal();
    return path.is_relative() && *path.begin() != "..";
}

bool isOwnFunction(const std::string& function) {
    static const std::set<std::string> kNames = {"dofile", "loadfile", "module", "print", "require"};
    return kNames.count(function) == 0;
}

// The interpreters of a session that have loaded a script. A second init() would leak the first interpreter; that is
// known behaviour of the library, so the target avoids it.
struct Initialised {
    std::set<int> handles;
};

void refuseSecondInit(CallState& state, const std::string& name, const Arguments& arguments) {
    if (name != "LuaConfig.init") return;
    if (state.part<Initialised>().handles.count(arguments.at(0).get<int>()) > 0) throw CallRefused("once only");
}

void refuseOutside(const std::string& name, const Arguments& arguments) {
    for (const auto& argument : arguments) {
        if (!argument.is_string()) continue;
        const auto& text = argument.get_ref<const std::string&>();
        if (takesPath(name) && !staysInside(text)) throw CallRefused("not in this folder");
        if (name == "LuaConfig.getConfig" && !isOwnFunction(text)) throw CallRefused("not a function of the script");
    }
}

// Whether each row of the table was executed, by name and parameter types.
std::map<std::string, bool>& carriedOut() {
    static std::map<std::string, bool> rows;
    return rows;
}

}  // namespace

const CallTable& sessionCalls() {
    static const CallTable table = [] {
        CallTable rows;
        for (const auto& [name, overloads] : ttconfig::callTable().rows()) {
            for (Call call : overloads) {
                bool& done = carriedOut()[name + call.signature()];
                call.run = [name = name, run = call.run, &done](CallState& state, const Arguments& arguments) {
                    refuseOutside(name, arguments);
                    refuseSecondInit(state, name, arguments);
                    ttconfig::Answer answer = run(state, arguments);
                    done = true;
                    if (name == "LuaConfig.init") state.part<Initialised>().handles.insert(arguments.at(0).get<int>());
                    return answer;
                };
                rows.add(name, std::move(call));
            }
        }
        return rows;
    }();
    return table;
}

std::vector<std::string> neverCarriedOut() {
    sessionCalls();
    std::vector<std::string> rows;
    for (const auto& [row, isDone] : carriedOut()) {
        if (!isDone) rows.push_back(row);
    }
    return rows;
}

void startAnew() {
    using ttservice::AlgorithmParamConfig;
    static const AlgorithmParamConfig empty = *AlgorithmParamConfig::instance();
    *AlgorithmParamConfig::instance() = empty;
    ttservice::internal::StoreSlot::exchange(ttservice::internal::StoreSlot::build());
}

}  // namespace fuzz

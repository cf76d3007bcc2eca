// Reasons for answers that no settings file decides: values set by the client, fixed answers, and trading sessions from
// the market-time script.
// Entry points: addClientReasons().
// Covered by reasons/explainer_test.cpp and explaining/explainedanswers_test.cpp in tests/tools/ttconfig/.

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/scripts/markettimescript.h"
#include "traderbase/base/config/internal/states/runtimestate.h"
#include "traderbase/base/config/internal/states/scalarstate.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using ttservice::ConfigCollector;
using ttservice::internal::RuntimeState;
using ttservice::internal::ScalarState;

// --- values that the client sets

template <typename Value>
void addRunTime(ExplainedCalls& calls, const char* call, Value RuntimeState::*member, const char* setter) {
    calls.add(call, {[member, setter](const Question&) {
                         return decided(
                             RuntimeState().*member, Reason::RunTime,
                             std::string("only the client sets it, by ") + setter + "; a new store has this");
                     },
                     {}});
}

Explanation explainRateType(const Question& /*question*/) {
    const RuntimeState values;
    return decided(values.hkUseCustRate ? values.hkRateType : -1, Reason::RunTime,
                   "only the client sets it, by setHKUseCustRate and setHKRateType; -1 is without the customer's rate");
}

Explanation explainPermission(const Question& question) {
    return decided(
        0, Reason::RunTime,
        "only the client sets permissions, by setSplitPermission; it has set none for " + shownText(question.text(0)));
}

Explanation explainPath(const Question& question) {
    return decided(question.facts.settingsPath, Reason::RunTime, "the path that the client gave to the last load");
}

// --- fixed answers

template <typename Value>
void addFixed(ExplainedCalls& calls, const char* call, const Value& value, const char* rule) {
    calls.add(call, {[value, rule](const Question&) { return decided(value, Reason::Fixed, rule); }, {}});
}

Explanation explainSecondFromGmt(const Question& question) {
    return decided(ConfigCollector::getSecondFromGMT(question.number(0)), Reason::Fixed,
                   "the remainder by a day of 86400 seconds, and eight hours");
}

// --- trading sessions

// The store reads the trading sessions from the script at construction; no settings file changes them.
Explanation explainTradingTime(const Question& question) {
    const auto sessions = ConfigCollector::instance()->getTradingTime(question.text(0));
    const std::string script = ttservice::internal::kMarketTimeScript;
    return decided(sessions, Reason::Script,
                   script + (sessions.empty() ? " gives no sessions to market " : " gives the sessions of market ") +
                       shownText(question.text(0)));
}

}  // namespace

void addClientReasons(ExplainedCalls& calls) {
    addRunTime(calls, "hasAutoSplitOrderAuth", &RuntimeState::autoSplitOrderAuth, "setAutoSplitOrderAuth");
    addRunTime(calls, "getDelayPushTime", &RuntimeState::delayPushTime, "setDelayPushTime");
    addRunTime(calls, "isNeedDelayPushExternOrder", &RuntimeState::needDelayPushExternOrder,
               "setNeedDelayPushExternOrder");
    addRunTime(calls, "isNeedRemoveExportFile", &RuntimeState::needRemoveExportFile, "setNeedRemoveExportFile");
    addRunTime(calls, "isGadrafClientMode", &RuntimeState::gadrafClientMode, "setGadrafClientMode");
    addRunTime(calls, "isNeedCalcAccountDetail", &RuntimeState::needCalcAccountDetail, "setNoNeedCalcAccountDetail");
    addRunTime(calls, "useOrderIdFunction", &RuntimeState::useOrderIdFunction, "setUseOrderIdFunction");
    addRunTime(calls, "getHideModel", &RuntimeState::hideModel, "setHideModel");
    addRunTime(calls, "getLocalDiskPathHash", &RuntimeState::localDiskPathHash, "setLocalDiskPathHash");
    addRunTime(calls, "getLocalInfoFormat", &RuntimeState::localInfoFormat, "setLocalInfoFormat");
    addRunTime(calls, "getQeTsConfigStr", &RuntimeState::qeTsConfig, "setQeTsConfig");
    calls.add("getHKUseCustRateType", {explainRateType, {}});
    calls.add("getMaxPermission", {explainPermission, {}});
    calls.add("getOriginalStr", {explainPath, {}});

    addFixed(calls, "getUseNewIPOFrozenCalcMethod", true, "always so");
    addFixed(calls, "isCrtFundTransferUseCreditDetail", true, "always so, for every platform");
    addFixed(calls, "isNeedUseETFOneCode", ScalarState().etfOneCode, "no load reads it");
    addFixed(calls, "getQuoterAdress", ScalarState().quoterAddress, "nothing sets it");
    calls.add("getSecondFromGMT", {explainSecondFromGmt, {}});
    calls.add("getTradingTime", {explainTradingTime, {}});
}

}  // namespace ttconfig

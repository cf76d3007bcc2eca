// ttconfig explain: shows why an answer is what it is, and what would change it.
// Entry points: runExplain().
// Covered by tests/tools/ttconfig/explaining/explain_test.cpp.

#include "ttconfig/explaining/explain.h"

#include <algorithm>
#include <iostream>
#include <string_view>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "ttconfig/explaining/explaintext.h"
#include "ttconfig/invocation/colouring.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/settings/quietload.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/nearestname.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

Arguments argumentsOf(const std::string& call, const std::vector<std::string>& words) {
    CallState state;
    try {
        return callTable().argumentsOf(state, call, words);
    } catch (const CallRefused& refused) {
        throw Fault(kExitUsage, refused.what());
    }
}

Explanation explained(const Explainer& explainer, const std::string& call, const Arguments& arguments) {
    try {
        return explainer.explain(call, arguments);
    } catch (const CallRefused& refused) {
        throw Fault(kExitUsage, refused.what());
    }
}

// Refuses an expected answer of a type that the operation never gives.
void requireSameKind(const std::string& call, const Answer& answer, const std::string& written) {
    const Wanted wanted(written);
    const bool isNumber = wanted.json() && wanted.json()->is_number();
    const char* kind = answer.is_boolean()          ? (wanted.flag() ? nullptr : "true or false")
                       : answer.is_number_integer() ? (isNumber ? nullptr : "a whole number")
                       : answer.is_number()         ? (isNumber ? nullptr : "a number")
                                                    : nullptr;
    if (kind == nullptr) return;
    throw Fault(kExitUsage, "--why-not " + shownText(written) + ": the answer of " + call + " is " + kind);
}

// An override of a key that is not a switch affects only isSomePt for that key.
void warnOfUnknownOverrides(const CommandLine& commandLine) {
    std::vector<std::string_view> known;
    for (const auto& row : ttservice::internal::kPlatformSwitches)
        known.push_back(row.key);
    const std::vector<std::string>& words = commandLine.words;
    for (const auto& [key, value] : commandLine.overrides) {
        const bool isSwitch = std::find(known.begin(), known.end(), key) != known.end();
        const bool isAsked = words.size() > 1 && words[0] == "isSomePt" && words[1] == key;
        if (isSwitch || isAsked) continue;
        std::cerr << "ttconfig: --override " << shownText(key) << ": no switch has this key" << didYouMean(key, known)
                  << "\n";
    }
}

// Compares the explanation's answer with the answer of the store, which has loaded the same file. Tests check that the
// two agree, but explaining an answer that the client does not get would be worse than failing.
void requireStoreAgrees(const std::string& call, const Arguments& arguments, const Answer& answer,
                        const FileMoment& beforeLoad) {
    CallState state;
    const Answer store = callTable().answer(state, call, arguments);
    if (store == answer) return;
    // Compare the printed forms, because NaN does not equal itself.
    if (answerJson(withoutRecordNumbers(store)) == answerJson(withoutRecordNumbers(answer))) return;
    beforeLoad.requireUnchanged();
    throw Fault(kExitInternal, "the library answers " + answerText(store) + ", the explanation is of " +
                                   answerText(answer) + "; please report this with the settings file");
}

}  // namespace

int runExplain(const CommandLine& commandLine, Output& output) {
    const FileMoment beforeLoad = [&commandLine] {
        const QuietLoad quiet;
        return carryOut(commandLine.shared);
    }();
    warnOfUnknownOverrides(commandLine);
    for (const auto& [key, value] : commandLine.overrides)
        ttservice::ConfigCollector::instance()->addLocalConfig(key, value);
    const std::string file = commandLine.shared.settings.value_or("");
    standin::SettingsText text;
    if (commandLine.shared.settings) standin::SettingsText::load(file, text);

    const std::string& call = commandLine.words.at(0);
    const std::vector<std::string> words(commandLine.words.begin() + 1, commandLine.words.end());
    const Arguments arguments = argumentsOf(call, words);
    const Explainer explainer(text, commandLine.overrides, file);
    ShownExplanation shown{text, file, call, words, explained(explainer, call, arguments), {}, {}};
    requireStoreAgrees(call, arguments, shown.explanation.answer, beforeLoad);
    if (commandLine.whyNot) {
        requireSameKind(call, shown.explanation.answer, *commandLine.whyNot);
        shown.wanted = commandLine.whyNot;
        shown.whyNot = whyNot(explainer, call, arguments, Wanted(*commandLine.whyNot));
    }
    output.write(commandLine.format == Format::Json ? answerJson(explanationJson(shown)) + '\n'
                                                    : explanationText(shown, coloursFor(commandLine, output)));
    const bool isImpossible = shown.whyNot && !shown.whyNot->isSoAlready && !shown.whyNot->edit;
    return isImpossible ? kExitFindings : kExitDone;
}

}  // namespace ttconfig

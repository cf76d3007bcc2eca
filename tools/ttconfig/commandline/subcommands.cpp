// The table of subcommands: each with its options and the function that carries it out.
// Entry points: subcommands(), topics().
// Owns: their names and descriptions. To add one, add a row here and a function in one of the sources of this folder.
// Covered by tests/tools/ttconfig/commandline/commandline_test.cpp.

#include <iostream>
#include <type_traits>

#include "ttconfig/asking/ask.h"
#include "ttconfig/asking/session.h"
#include "ttconfig/commandline/completion.h"
#include "ttconfig/commandline/manual.h"
#include "ttconfig/commandline/rooms.h"
#include "ttconfig/differences/diff.h"
#include "ttconfig/expectations/test.h"
#include "ttconfig/explaining/explain.h"
#include "ttconfig/findings/check.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/invocation/output.h"
#include "ttconfig/listings/limits.h"
#include "ttconfig/listings/listings.h"
#include "ttconfig/listings/platforms.h"
#include "ttconfig/listings/products.h"
#include "ttconfig/listings/summary.h"
#include "ttconfig/report/report.h"
#include "ttconfig/scripts/algos.h"
#include "ttconfig/scripts/marketsessions.h"
#include "ttconfig/scripts/scriptcheck.h"
#include "ttconfig/settings/startup.h"

namespace ttconfig {

namespace {

// Wraps a subcommand that returns no exit code.
template <auto Run>
int run(const CommandLine& commandLine, Output& output) {
    if constexpr (std::is_void_v<decltype(Run(commandLine, output))>) {
        Run(commandLine, output);
        return kExitDone;
    } else {
        return Run(commandLine, output);
    }
}

int runSessionOnInput(const CommandLine& commandLine, Output& output) {
    carryOut(commandLine.shared);
    runSession(std::cin, output);
    return kExitDone;
}

int runAskWhenLoaded(const CommandLine& commandLine, Output& output) {
    carryOut(commandLine.shared, commandLine.words);
    return runAsk(commandLine, output);
}

}  // namespace

const std::vector<Topic>& topics() {
    static const std::vector<Topic> kTopics = {
        {"script", "Examine scripts", "Example:\n  ttconfig script check samples/luaScripts/MarketTime.lua"},
        {"completion", "Teach a shell to complete what is typed", "Example:\n  source <(ttconfig completion bash)"}};
    return kTopics;
}

const std::vector<Subcommand>& subcommands() {
    static const std::vector<Subcommand> kSubcommands = {
        {"session", "Answer requests from standard input, one JSON object a line", addSession, runSessionOnInput},
        {"ask", "Ask one question and print the answer", addAsk, runAskWhenLoaded, Words::Question},
        {"explain", "Tell why a question has the answer it has", addExplain, run<runExplain>, Words::Question},
        {"check", "Find what settings files say that their authors cannot mean", addCheck, run<runCheck>},
        {"diff", "Compare what two settings files make the library answer", addDiff, run<runDiff>},
        {"test", "Compare answers with a file of expectations", addTest, run<runTest>},
        {"report", "Write a page about a settings file", addReport, run<runReport>},
        {"switches", "List the platform switches", addSwitches, run<runSwitches>},
        {"keys", "List the keys of the settings file, or show one", addKeys, run<runKeys>},
        {"summary", "Show what a settings file says and what follows from it", addSummary, run<runSummary>},
        {"platform", "Show what is special about platforms", addPlatform, run<runPlatform>},
        {"products", "Show the algorithm products, futures and ETF lists and money-market funds", addProducts,
         run<runProducts>},
        {"limits", "Show the limits, units and rates of an instrument's order, and what decides them", addLimits,
         run<runLimits>},
        {"sessions", "Show when markets trade", addSessions, run<runSessions>},
        {"algos", "Show what the algorithm catalogue makes of a script", addAlgos, run<runAlgos>},
        {"script check", "Run a script and tell what is wrong with it", addScriptCheck, run<runScriptCheck>},
        {"completion bash", "Write what bash needs to complete what is typed", addCompletionBash, runCompletionScript},
        {"completion zsh", "Write what zsh needs to complete what is typed", addCompletionZsh, runCompletionScript},
        {"completion fish", "Write what fish needs to complete what is typed", addCompletionFish, runCompletionScript},
        {"completion words", "Tell what the last word may become", addCompletionWords, runCompletionWords,
         Words::Literal, true},
        {"manual", "Write the manual page", addManual, runManual, Words::Registered, true},
    };
    return kSubcommands;
}

}  // namespace ttconfig

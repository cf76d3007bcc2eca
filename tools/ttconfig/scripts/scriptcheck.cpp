// ttconfig script check: examines a script in a child process, as the script may end its process or never return.
// Entry points: runScriptCheck().
// Covered by tests/tools/ttconfig/scripts/scriptcheck_test.cpp.

#include "ttconfig/scripts/scriptcheck.h"

#include <fmt/format.h>

#include <cstring>
#include <iostream>

#include "ttconfig/invocation/fault.h"
#include "ttconfig/scripts/childprocess.h"
#include "ttconfig/scripts/requirescript.h"
#include "ttconfig/scripts/scriptexamination.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/text/answertext.h"

namespace ttconfig {

namespace {

// The outcome of an examination.
struct Outcome {
    Answer findings = Answer::array();
    Answer counts = Answer::object();  // "markets", "algorithms"
    std::string doing;                 // what was tried last
};

void take(const std::string& line, Outcome& outcome) {
    const Answer message = Answer::parse(line);
    if (message.contains("doing")) {
        outcome.doing = message["doing"];
    } else if (message.contains("printed")) {
        std::cerr << "printLog: " << message["printed"].get_ref<const std::string&>() << '\n';
    } else if (message.contains("message")) {
        outcome.findings.push_back(message);
    } else {
        outcome.counts.update(message);
    }
}

void addFinding(const std::string& message, Outcome& outcome) {
    outcome.findings.push_back({{"where", outcome.doing}, {"line", 0}, {"message", message}});
}

void addUntimelyEnd(const ChildEnd& end, double seconds, Outcome& outcome) {
    switch (end.how) {
        case ChildEnd::How::Finished:
            return;
        case ChildEnd::How::Exited:
            return addFinding("ends the process, with exit code " + std::to_string(end.number), outcome);
        case ChildEnd::How::Signalled:
            return addFinding(std::string("brings the process down: ") + ::strsignal(end.number), outcome);
        case ChildEnd::How::TimedOut:
            return addFinding(fmt::format("did not return within {:g} seconds", seconds), outcome);
    }
}

// "FILE:LINE: where: message", the form that editors and compilers use.
std::string findingLine(const std::string& path, const Answer& finding) {
    const int line = finding["line"];
    return path + (line > 0 ? ":" + std::to_string(line) : std::string()) + ": " +
           finding["where"].get_ref<const std::string&>() + ": " + finding["message"].get_ref<const std::string&>() +
           '\n';
}

// "no findings in 18 markets and 9 algorithm functions".
std::string cleanLine(const Outcome& outcome) {
    std::string counts;
    for (const auto& [name, word] :
         {std::pair("markets", " markets"), std::pair("algorithms", " algorithm functions")}) {
        if (!outcome.counts.contains(name)) continue;
        counts += (counts.empty() ? " in " : " and ") + answerText(outcome.counts[name]) + word;
    }
    return "no findings" + counts;
}

std::string shown(const std::string& path, const Outcome& outcome, Format format) {
    if (format == Format::Json) {
        Answer all = {{"file", path}, {"findings", outcome.findings}};
        all.update(outcome.counts);
        return answerJson(all) + '\n';
    }
    std::string text;
    for (const Answer& finding : outcome.findings)
        text += findingLine(path, finding);
    return text.empty() ? path + ": " + cleanLine(outcome) + '\n' : text;
}

}  // namespace

int runScriptCheck(const CommandLine& commandLine, Output& output) {
    carryOut(commandLine.shared);
    const std::string& path = commandLine.words.front();
    requireScript(path);
    const std::chrono::duration<double> limit(commandLine.timeoutSeconds);
    Outcome outcome;
    const ChildEnd end = runInChild(
        std::chrono::ceil<std::chrono::milliseconds>(limit),
        [&path](const SendLine& send) { examineScript(path, send); },
        [&outcome](const std::string& line) { take(line, outcome); });
    addUntimelyEnd(end, commandLine.timeoutSeconds, outcome);
    output.write(shown(path, outcome, commandLine.format));
    return outcome.findings.empty() ? kExitDone : kExitFindings;
}

}  // namespace ttconfig

// One question: asks it and writes the answer on one line.
// Entry points: runAsk().
// Covered by tests/tools/ttconfig/asking/ask_test.cpp.

#include "ttconfig/asking/ask.h"

#include <iostream>

#include "ttconfig/calls/calltable.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/text/answertext.h"

namespace ttconfig {

namespace {

Answer ask(const std::vector<std::string>& words) {
    CallState state;
    try {
        return callTable().answerWords(state, words.front(), {words.begin() + 1, words.end()});
    } catch (const CallRefused& refused) {
        throw Fault(kExitUsage, refused.what());
    }
}

}  // namespace

int runAsk(const CommandLine& commandLine, Output& output) {
    const Answer answer = ask(commandLine.words);
    if (commandLine.expectTrue && !answer.is_boolean()) {
        throw Fault(kExitUsage, "--test: " + commandLine.words.front() + " does not answer true or false");
    }
    if (!commandLine.shared.settings) {
        std::cerr << "ttconfig: no --settings given: this is the answer without a settings file\n";
    }
    output.write((commandLine.format == Format::Json ? answerJson(answer) : answerText(answer)) + '\n');
    return commandLine.expectTrue && !answer.get<bool>() ? kExitFindings : kExitDone;
}

}  // namespace ttconfig

// The test subcommand: compares the store's answers with a file of expected ones.
// Entry points: runTest().
// Covered by tests/tools/ttconfig/expectations/answers_test.cpp.

#include "ttconfig/expectations/test.h"

#include <standin/filebytes.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "traderbase/base/config/internal/text/splitting.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/calls/calltable.h"
#include "ttconfig/edits/wanted.h"
#include "ttconfig/expectations/expectation.h"
#include "ttconfig/explaining/explaintext.h"
#include "ttconfig/invocation/colouring.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/reasons/explainer.h"
#include "ttconfig/settings/quietload.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/colour.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

std::string placeText(const std::string& file, Place place) {
    return file + ':' + std::to_string(place.line) + ':' + std::to_string(place.column);
}

// --- the file

std::string bytesOf(const std::string& file) {
    std::string bytes;
    const standin::FileProblem problem = standin::readFileBytes(file, bytes);
    if (problem != standin::FileProblem::kNone)
        throw Fault(kExitInput, file + ": " + standin::fileProblemText(problem));
    if (bytes.find('\0') != std::string::npos) {
        throw Fault(kExitInput, file + ": holds NUL bytes; expectations are plain text");
    }
    return bytes;
}

// Ignores a byte order mark at the start.
std::string_view withoutMark(std::string_view bytes) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    return bytes.substr(0, kMark.size()) == kMark ? bytes.substr(kMark.size()) : bytes;
}

// The place of the error: the argument that the objection names, otherwise the start of the question.
Place wrongPlace(const Expectation& expectation, const std::string& objection) {
    constexpr std::string_view kArgument = ": argument ";
    const std::size_t at = objection.find(kArgument);
    if (at == std::string::npos) return expectation.place;
    const std::size_t digits = at + kArgument.size();
    const auto number = ttservice::internal::looseInt(std::string_view(objection).substr(digits));
    if (number < 1 || static_cast<std::size_t>(number) >= expectation.places.size()) return expectation.place;
    return expectation.places[static_cast<std::size_t>(number)];
}

// Why a question cannot be asked; nothing when it can.
std::optional<MalformedLine> objectionTo(const Expectation& expectation) {
    const std::string& call = expectation.words.front();
    try {
        CallState state;
        callTable().argumentsOf(state, call, {expectation.words.begin() + 1, expectation.words.end()});
    } catch (const CallRefused& refused) {
        return MalformedLine{wrongPlace(expectation, refused.what()), refused.what()};
    }
    if (Explainer::explains(call)) return std::nullopt;
    return MalformedLine{expectation.place, call + " is no question that a settings file answers"};
}

[[noreturn]] void refuseLines(const std::string& file, const std::vector<MalformedLine>& malformed) {
    constexpr std::size_t kMostTold = 20;
    const std::size_t told = std::min(malformed.size(), kMostTold);
    std::vector<std::string> messages;
    for (std::size_t i = 0; i < told; ++i)
        messages.push_back(placeText(file, malformed[i].place) + ": " + malformed[i].message);
    if (told < malformed.size()) {
        messages.push_back("and " + std::to_string(malformed.size() - told) + " more lines like these");
    }
    throw Fault(kExitUsage, messages.front(), {messages.begin() + 1, messages.end()});
}

// Reads and checks all lines before asking the first question.
std::vector<Expectation> expectationsIn(const std::string& file) {
    const std::string bytes = bytesOf(file);
    std::vector<Expectation> expectations;
    std::vector<MalformedLine> malformed;
    std::uint32_t number = 0;
    std::string_view rest = withoutMark(bytes);
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        auto expectation = readExpectation(rest.substr(0, end), ++number, malformed);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        if (!expectation) continue;
        if (auto objection = objectionTo(*expectation)) {
            malformed.push_back(std::move(*objection));
        } else {
            expectations.push_back(std::move(*expectation));
        }
    }
    if (!malformed.empty()) refuseLines(file, malformed);
    // A run that asks nothing would pass with any settings.
    if (expectations.empty()) {
        throw Fault(kExitUsage, file + ": holds no expectation; write one a line: isNeedMaxAmountPts 12 = true");
    }
    return expectations;
}

// --- the answers

class TestRun {
public:
    TestRun(const CommandLine& commandLine, Output& writtenTo)
        : file(commandLine.words.at(0)),
          settings(*commandLine.shared.settings),
          colours(coloursFor(commandLine, writtenTo)),
          output(writtenTo) {
        standin::SettingsText::load(settings, settingsText);
    }

    // Returns how many expectations are not met.
    std::size_t run(const std::vector<Expectation>& expectations) {
        std::size_t failed = 0;
        for (const Expectation& expectation : expectations) {
            CallState state;
            const Arguments arguments = callTable().argumentsOf(
                state, expectation.words.front(), {expectation.words.begin() + 1, expectation.words.end()});
            const Answer answer = callTable().answer(state, expectation.words.front(), arguments);
            if (Wanted(expectation.expected).matches(answer)) continue;
            ++failed;
            output.write(failureText(expectation, arguments, answer));
        }
        writeSummary(expectations.size(), failed);
        return failed;
    }

private:
    // The place and the difference, followed by the explanation of the answer.
    std::string failureText(const Expectation& expectation, const Arguments& arguments, const Answer& answer) const {
        const std::string& call = expectation.words.front();
        const std::vector<std::string> words(expectation.words.begin() + 1, expectation.words.end());
        std::string text = colours(Tint::Place, placeText(file, expectation.place)) + ": " +
                           colours(Tint::Bad, "expected ") + shownValue(expectation.expected) + ", got " +
                           shownValue(answerText(answer)) + '\n';
        if (!explainer) explainer.emplace(settingsText, std::map<std::string, bool>(), settings);
        const ShownExplanation shown{settingsText, settings, call, words, explainer->explain(call, arguments), {}, {}};
        ttservice::internal::splitDropEmpty(explanationText(shown, colours), '\n', [&text](std::string_view line) {
            text.append("    ").append(line).append("\n");
        });
        return text;
    }

    static std::string shownValue(const std::string& value) {
        return value.empty() ? "\"\"" : onOneLine(cutText(value, kMostShown));
    }

    void writeSummary(std::size_t all, std::size_t failed) {
        const std::string counted = std::to_string(all) + (all == 1 ? " expectation" : " expectations");
        if (failed == 0) {
            output.write(colours(Tint::Good, counted + (all == 1 ? " is met" : " are met")) + '\n');
        } else {
            output.write(colours(Tint::Bad, std::to_string(failed) + " of " + counted + " not met") + '\n');
        }
    }

    static constexpr std::size_t kMostShown = 400;

    const std::string file;
    const std::string settings;
    const Colours colours;
    Output& output;
    standin::SettingsText settingsText;
    mutable std::optional<Explainer> explainer;
};

}  // namespace

int runTest(const CommandLine& commandLine, Output& output) {
    {
        const QuietLoad quiet;
        carryOut(commandLine.shared);
    }
    const std::vector<Expectation> expectations = expectationsIn(commandLine.words.at(0));
    return TestRun(commandLine, output).run(expectations) == 0 ? kExitDone : kExitFindings;
}

}  // namespace ttconfig

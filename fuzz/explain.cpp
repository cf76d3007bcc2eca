// `ttconfig explain` of any settings: for every question that can be explained the explanation's answer is the store's,
// and an edit that is said to make an answer another one does so in a store that loads the edited text.

#include <standin/platformdatafile.h>

#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <vector>

#include "fuzz/namedin.h"
#include "fuzz/scratchfolder.h"
#include "fuzz/target.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/platformswitchtable.h"
#include "traderbase/base/config/internal/storeslot.h"
#include "ttconfig/calls/calltable.h"
#include "ttconfig/reasons/explainer.h"
#include "ttconfig/reasons/whynot.h"
#include "ttconfig/text/answertext.h"

namespace {

using fuzz::require;
using ttconfig::Answer;
using ttconfig::Arguments;
using ttconfig::Call;
using ttconfig::CallState;
using ttconfig::Explainer;
using ttconfig::Explanation;
using ttservice::internal::StoreSlot;
using Overrides = std::map<std::string, bool>;

struct Question {
    std::string call;
    Arguments arguments;

    std::string shown() const { return call + Answer(ttconfig::Argument(arguments)).dump(-1, ' ', true, kReplace); }

    static constexpr auto kReplace = Answer::error_handler_t::replace;
};

// Makes arguments out of what a text names; the same ones for the same text.
class Chooser {
public:
    Chooser(const standin::SettingsText& text, std::string_view input) : named(fuzz::namedIn(text)) {
        std::seed_seq seed(input.begin(), input.end());
        random.seed(seed);
    }

    std::size_t below(std::size_t limit) { return random() % limit; }

    std::string word() {
        static const std::vector<std::string> kOthers = {"SH", "SZ", "HGT", "HK", "NEEQ", "P1", "needmaxamount"};
        return below(4) == 0 ? kOthers[below(kOthers.size())] : named.words[below(named.words.size())];
    }

    // Arguments that the overload takes; none where one of them is of a kind that settings do not name.
    bool choose(const Call& call, Arguments& arguments) {
        const auto& instrument = named.instruments[below(named.instruments.size())];
        const bool isInstrument = below(3) != 0;
        std::size_t texts = 0;
        for (const ttconfig::Parameter& parameter : call.parameters) {
            if (parameter.wanted == "text") {
                ++texts;
                const bool isMarket = texts == 1;
                arguments.push_back(!isInstrument || texts > 2 ? word()
                                                               : (isMarket ? instrument.first : instrument.second));
            } else if (parameter.wanted == "int") {
                arguments.push_back(number());
            } else if (parameter.wanted == "bool") {
                arguments.push_back(below(2) == 0);
            } else {
                return false;
            }
        }
        return true;
    }

private:
    int number() {
        static constexpr int kOthers[] = {1, 2, 3, 4, 5, 50, 57, 84, 117};
        return below(4) == 0 ? kOthers[below(std::size(kOthers))] : named.platforms[below(named.platforms.size())];
    }

    const fuzz::Named named;
    std::mt19937 random;
};

// A new store that has loaded the text, in place of the process's one.
std::string loadAnew(const fuzz::ScratchFolder& folder, std::string_view bytes, const Overrides& overrides) {
    StoreSlot::exchange(StoreSlot::build());
    const std::string path = folder.write("settings.ini", bytes);
    StoreSlot::current()->setUseLocalConfig(overrides);
    StoreSlot::current()->readConfig(path);
    return path;
}

// The store's answer to a session's first request.
Answer asked(const Question& question) {
    CallState state;
    return ttconfig::callTable().answer(state, question.call, question.arguments);
}

bool isSame(const Answer& left, const Answer& right) {
    return ttconfig::answerJson(left) == ttconfig::answerJson(right);
}

std::vector<Question> questionsFor(Chooser& chooser) {
    std::vector<Question> questions;
    for (const auto& [name, overloads] : ttconfig::callTable().rows()) {
        if (!Explainer::explains(name)) continue;
        for (const Call& call : overloads) {
            Question question{name, {}};
            if (chooser.choose(call, question.arguments)) questions.push_back(std::move(question));
        }
    }
    return questions;
}

void checkExplanation(const Explainer& explainer, const Question& question) {
    const Explanation explanation = explainer.explain(question.call, question.arguments);
    const Answer answer = asked(question);
    require(isSame(explanation.answer, answer), "an explanation has the store's answer",
            question.shown() + " " + ttconfig::answerJson(explanation.answer) + " " + ttconfig::answerJson(answer));
    require(!explanation.rule.empty(), "an explanation names its rule", question.shown());
}

}  // namespace

void fuzz::runInput(std::string_view input) {
    static const ScratchFolder folder;
    static const bool hasPlatform = [] {
        std::string error;
        return standin::installPlatformFile(TT_SOURCE_DIR "/samples/platform.json", error);
    }();
    require(hasPlatform, "the sample platform loads");
    const SilentErrors silent;

    const standin::SettingsText text{std::string(input)};
    Chooser chooser(text, input);
    Overrides overrides;
    if (chooser.below(4) == 0) {
        const auto& row =
            ttservice::internal::kPlatformSwitches[chooser.below(ttservice::internal::kPlatformSwitchCount)];
        overrides[std::string(row.key)] = chooser.below(2) == 0;
    }
    const std::string path = loadAnew(folder, input, overrides);
    const Explainer explainer(text, overrides, path);
    const std::vector<Question> questions = questionsFor(chooser);
    for (const Question& question : questions)
        checkExplanation(explainer, question);

    static const std::vector<std::string> kWanted = {"true", "false", "7",     "0.5",
                                                     "[]",   "none",  "12,15", "[1000,\"股\"]"};
    const Question& question = questions[chooser.below(questions.size())];
    const ttconfig::Wanted wanted(chooser.below(3) == 0 ? chooser.word() : kWanted[chooser.below(kWanted.size())]);
    const ttconfig::WhyNot found = ttconfig::whyNot(explainer, question.call, question.arguments, wanted);
    if (!found.edit) return;
    loadAnew(folder, ttconfig::editedText(text, *found.edit), overrides);
    require(wanted.matches(asked(question)), "an edit makes the answer what was wanted", question.shown());
}

TT_FUZZ_TARGET

#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/support/dice.h"
#include "fuzz/support/namedin.h"
#include "ttconfig/calls/calltable.h"

namespace fuzz {

// One question that `ttconfig explain` can be asked.
struct ExplainQuestion {
    std::string call;
    ttconfig::Arguments arguments;
    std::optional<std::string> wanted;  // the expected answer, if the input gives one

    // The arguments as they are written on a command line.
    std::vector<std::string> words() const;
    std::string shown() const;
};

// The questions that an input asks itself, in addition to those asked of every input. They are comment lines such as
//   ;? getRenewalPts 12 --why-not 2
//   ;? --override needmaxamount=true
//   ;? --file another-name.ini
struct WrittenQuestions {
    std::string file = "settings.ini";
    std::vector<ExplainQuestion> questions;
    std::map<std::string, bool> overrides;
};
WrittenQuestions writtenQuestions(std::string_view input);

// Makes questions from the names in a text; the same text always gives the same questions.
class QuestionMaker {
public:
    QuestionMaker(const standin::SettingsText& text, Dice& inputDice) : named(namedIn(text)), dice(inputDice) {}

    std::string word();

    // Arguments for the overload; none if settings have no names for one of its parameters.
    std::optional<ttconfig::Arguments> argumentsFor(const ttconfig::Call& call);

    // One question for each overload of every operation that can be explained.
    std::vector<ExplainQuestion> forEveryCall();

    // An answer to ask for with --why-not, in one of its possible spellings: the given answer with a change in it, or
    // an unrelated one.
    std::string wantedBeside(const ttconfig::Answer& answer);

private:
    int number();
    ttconfig::Answer changed(const ttconfig::Answer& answer);
    ttconfig::Answer changedMembers(const ttconfig::Answer& answer, std::size_t at);
    ttconfig::Answer changedItems(const ttconfig::Answer& answer, std::size_t at);

    const Named named;
    Dice& dice;
};

}  // namespace fuzz

#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/dice.h"
#include "fuzz/namedin.h"
#include "ttconfig/calls/calltable.h"

namespace fuzz {

// One question that `ttconfig explain` can be asked.
struct ExplainQuestion {
    std::string call;
    ttconfig::Arguments arguments;
    std::optional<std::string> wanted;  // the answer that was expected, where the input says so

    // The arguments as words of a command line.
    std::vector<std::string> words() const;
    std::string shown() const;
};

// What an input asks beside what every input is asked. It stands in its comments, in lines such as
//   ;? getRenewalPts 12 --why-not 2
//   ;? --override needmaxamount=true
//   ;? --file another-name.ini
struct WrittenQuestions {
    std::string file = "settings.ini";
    std::vector<ExplainQuestion> questions;
    std::map<std::string, bool> overrides;
};
WrittenQuestions writtenQuestions(std::string_view input);

// Makes questions out of what a text names; the same ones for the same text.
class QuestionMaker {
public:
    QuestionMaker(const standin::SettingsText& text, Dice& inputDice) : named(namedIn(text)), dice(inputDice) {}

    std::string word();

    // Arguments that the overload takes; none where one of them is of a kind that settings do not name.
    std::optional<ttconfig::Arguments> argumentsFor(const ttconfig::Call& call);

    // One for each overload of every operation that can be explained.
    std::vector<ExplainQuestion> forEveryCall();

    // An answer to be asked for, in one of the ways in which it can be written: the answer that there is, with
    // something changed, or one that has nothing to do with it.
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

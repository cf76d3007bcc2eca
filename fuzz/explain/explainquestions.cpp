// What the target "explain" asks: every call with arguments taken from the input, the questions in the input's
// comments, and answers that a user might have expected.

#include "fuzz/explain/explainquestions.h"

#include <algorithm>
#include <sstream>

#include "tests/tools/ttconfig/support/writings.h"
#include "ttconfig/reasons/explainer.h"

namespace fuzz {

namespace {

using ttconfig::Answer;
using ttconfig::Argument;
using ttconfig::Arguments;
using ttconfig::Call;
using ttconfig::CallState;
using ttconfig::Explainer;

constexpr std::string_view kMark = ";?";
constexpr std::size_t kMostWritten = 12;
constexpr std::size_t kLongestName = 100;

std::vector<std::string> wordsOf(std::string_view line) {
    std::istringstream text{std::string(line)};
    std::vector<std::string> words;
    for (std::string word; text >> word;)
        words.push_back(word);
    return words;
}

// The question on such a line; none if the tool would reject it.
std::optional<ExplainQuestion> questionOf(std::vector<std::string> words) {
    ExplainQuestion question;
    if (words.size() > 2 && words[words.size() - 2] == "--why-not") {
        question.wanted = words.back();
        words.resize(words.size() - 2);
    }
    if (words.empty() || !Explainer::explains(words.front())) return std::nullopt;
    question.call = words.front();
    words.erase(words.begin());
    CallState state;
    try {
        question.arguments = ttconfig::callTable().argumentsOf(state, question.call, words);
    } catch (const ttconfig::CallRefused&) {
        return std::nullopt;
    }
    return question;
}

bool isFileName(const std::string& name) {
    return name.size() <= kLongestName && name.find_first_of(std::string_view("/\0", 2)) == std::string::npos &&
           name != "." && name != "..";
}

}  // namespace

std::vector<std::string> ExplainQuestion::words() const {
    std::vector<std::string> all;
    for (const Argument& argument : arguments)
        all.push_back(argument.is_string() ? argument.get<std::string>() : argument.dump());
    return all;
}

std::string ExplainQuestion::shown() const {
    return call + Argument(arguments).dump(-1, ' ', true, Argument::error_handler_t::replace) +
           (wanted ? " wanted " + *wanted : "");
}

WrittenQuestions writtenQuestions(std::string_view input) {
    WrittenQuestions written;
    for (std::size_t left = kMostWritten; !input.empty() && left > 0;) {
        const std::size_t end = std::min(input.find('\n'), input.size());
        const std::string_view line = input.substr(0, end);
        input.remove_prefix(std::min(end + 1, input.size()));
        if (line.substr(0, kMark.size()) != kMark) continue;
        --left;
        const std::vector<std::string> words = wordsOf(line.substr(kMark.size()));
        const bool isOption = words.size() == 2;
        if (isOption && words[0] == "--file") {
            if (isFileName(words[1])) written.file = words[1];
        } else if (isOption && words[0] == "--override") {
            const std::size_t mark = std::min(words[1].find('='), words[1].size());
            written.overrides[words[1].substr(0, mark)] = words[1].substr(mark) == "=true";
        } else if (auto question = questionOf(words)) {
            written.questions.push_back(std::move(*question));
        }
    }
    return written;
}

std::string QuestionMaker::word() {
    static const std::vector<std::string> kOthers = {"SH", "SZ", "HGT", "HK", "NEEQ", "P1", "needmaxamount"};
    return dice.oneIn(4) ? dice.any(kOthers) : dice.any(named.words);
}

int QuestionMaker::number() {
    static constexpr int kOthers[] = {1, 2, 3, 4, 5, 50, 57, 84, 117};
    return dice.oneIn(4) ? dice.any(kOthers) : dice.any(named.platforms);
}

std::optional<Arguments> QuestionMaker::argumentsFor(const Call& call) {
    const auto& instrument = dice.any(named.instruments);
    const bool isInstrument = !dice.oneIn(3);
    Arguments arguments;
    std::size_t texts = 0;
    for (const ttconfig::Parameter& parameter : call.parameters) {
        if (parameter.wanted == "text") {
            ++texts;
            const bool isMarket = texts == 1;
            arguments.push_back(!isInstrument || texts > 2 ? word() : isMarket ? instrument.first : instrument.second);
        } else if (parameter.wanted == "int") {
            arguments.push_back(number());
        } else if (parameter.wanted == "bool") {
            arguments.push_back(dice.oneIn(2));
        } else {
            return std::nullopt;
        }
    }
    return arguments;
}

std::vector<ExplainQuestion> QuestionMaker::forEveryCall() {
    std::vector<ExplainQuestion> questions;
    for (const auto& [name, overloads] : ttconfig::callTable().rows()) {
        if (!Explainer::explains(name)) continue;
        for (const Call& call : overloads) {
            if (auto arguments = argumentsFor(call)) questions.push_back({name, std::move(*arguments), std::nullopt});
        }
    }
    return questions;
}

Answer QuestionMaker::changed(const Answer& answer) {
    if (answer.is_boolean()) return !answer.get<bool>();
    if (answer.is_number_integer()) return answer.get<std::int64_t>() + (dice.oneIn(2) ? 1 : -1);
    if (answer.is_number()) return dice.oneIn(2) ? 0.5 : answer.get<double>() * 2;
    if (answer.is_string()) return word();
    if (!answer.is_structured() || answer.empty()) return Answer::array({word()});
    const std::size_t at = dice.below(answer.size());
    return answer.is_object() ? changedMembers(answer, at) : changedItems(answer, at);
}

Answer QuestionMaker::changedMembers(const Answer& answer, std::size_t at) {
    Answer other = Answer::object();
    std::size_t number = 0;
    for (const auto& [name, member] : answer.items())
        other[name] = number++ == at ? changed(member) : member;
    return other;
}

// The list without the item, with the item twice, or with a different item in its place.
Answer QuestionMaker::changedItems(const Answer& answer, std::size_t at) {
    const std::size_t way = dice.below(3);
    Answer other = Answer::array();
    std::size_t number = 0;
    for (const Answer& item : answer) {
        const bool isIt = number++ == at;
        if (isIt && way == 0) continue;
        if (isIt && way == 1) other.push_back(item);
        other.push_back(isIt && way == 2 ? changed(item) : item);
    }
    return other;
}

std::string QuestionMaker::wantedBeside(const Answer& answer) {
    static const std::vector<std::string> kOthers = {"true", "false", "7",     "0.5",
                                                     "[]",   "none",  "12,15", "[1000,\"\xE8\x82\xA1\"]"};
    if (dice.oneIn(6)) return dice.any(kOthers);
    if (dice.oneIn(6)) return word();
    return dice.any(tests::writings(changed(answer)));
}

}  // namespace fuzz

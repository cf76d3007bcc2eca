// The call table: finds the operation that a name and its arguments mean, and calls it.
// Entry points: CallTable::answer, CallTable::answerWords, CallTable::argumentsOf, callTable().
// Owns: the rows of all operations.
// Covered by tests/tools/ttconfig/calls/calltable_test.cpp.

#include "ttconfig/calls/calltable.h"

#include <algorithm>
#include <string_view>

#include "ttconfig/text/nearestname.h"
#include "ttconfig/text/nesting.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

std::string argumentCount(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " argument" : " arguments");
}

// What is wrong with the arguments for this overload; empty when it accepts them.
std::string objection(const Call& call, const Arguments& arguments, Records& records) {
    if (arguments.size() != call.parameters.size()) return argumentCount(arguments.size()) + " given";
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        try {
            call.parameters[i].check(arguments[i], records);
        } catch (const CallRefused& refused) {
            return "argument " + std::to_string(i + 1) + ": " + refused.what();
        }
    }
    return {};
}

// Throws CallRefused with the signatures of all overloads and the most telling objection.
[[noreturn]] void refuseArguments(const std::string& name, const std::vector<Call>& overloads,
                                  const std::vector<std::string>& objections) {
    std::string text = name;
    for (std::size_t i = 0; i < overloads.size(); ++i) {
        text += (i == 0 ? "" : " or ") + overloads[i].signature();
    }
    // An objection to a value is more telling than one to the number of arguments.
    const auto telling = std::find_if(objections.begin(), objections.end(), [](const std::string& objection) {
        return objection.rfind("argument ", 0) == 0;
    });
    throw CallRefused(text + ": " + (telling == objections.end() ? objections.front() : *telling));
}

// A word of a command line as the value of a parameter. Only a text parameter takes a word that is not JSON.
Argument wordAsArgument(const Parameter& parameter, const std::string& word) {
    if (parameter.takesText()) return word;
    if (isNestedTooDeep(word)) throw CallRefused("nested too deep");
    Argument value = Argument::parse(word, nullptr, false);
    if (value.is_discarded()) {
        throw CallRefused("wanted " + parameter.wanted + ", got " + shownText(word));
    }
    return value;
}

// Converts words to arguments. Returns what is wrong when that fails, otherwise an empty text.
std::string convertWords(const Call& call, const std::vector<std::string>& words, Arguments& arguments) {
    if (words.size() != call.parameters.size()) return argumentCount(words.size()) + " given";
    for (std::size_t i = 0; i < words.size(); ++i) {
        try {
            arguments.push_back(wordAsArgument(call.parameters[i], words[i]));
        } catch (const CallRefused& refused) {
            return "argument " + std::to_string(i + 1) + ": " + refused.what();
        }
    }
    return {};
}

std::size_t textParameters(const Call& call) {
    return static_cast<std::size_t>(std::count_if(call.parameters.begin(), call.parameters.end(),
                                                  [](const Parameter& parameter) { return parameter.takesText(); }));
}

}  // namespace

std::string Call::signature() const {
    std::string text = "(";
    for (const Parameter& parameter : parameters) {
        if (text.size() > 1) text += ", ";
        text += parameter.wanted;
    }
    return text + ")";
}

void CallTable::add(std::string name, Call call) {
    calls[std::move(name)].push_back(std::move(call));
}

const std::vector<Call>& CallTable::find(const std::string& name) const {
    const auto found = calls.find(name);
    if (found != calls.end()) return found->second;
    std::vector<std::string_view> names;
    for (const auto& row : calls)
        names.push_back(row.first);
    throw CallRefused("unknown call " + shownText(name) + didYouMean(name, names));
}

const Call& CallTable::overloadOf(CallState& state, const std::string& name, const Arguments& arguments) const {
    const std::vector<Call>& overloads = find(name);
    std::vector<std::string> objections;
    for (const Call& call : overloads) {
        objections.push_back(objection(call, arguments, state.records));
        if (objections.back().empty()) return call;
    }
    refuseArguments(name, overloads, objections);
}

Answer CallTable::answer(CallState& state, const std::string& name, const Arguments& arguments) const {
    return overloadOf(state, name, arguments).run(state, arguments);
}

void CallTable::requireArguments(CallState& state, const std::string& name, const Arguments& arguments) const {
    overloadOf(state, name, arguments);
}

Arguments CallTable::argumentsOf(CallState& state, const std::string& name,
                                 const std::vector<std::string>& words) const {
    const std::vector<Call>& overloads = find(name);
    // A text parameter takes any word, so try the overloads with fewer texts first.
    std::vector<const Call*> order;
    order.reserve(overloads.size());
    for (const Call& call : overloads)
        order.push_back(&call);
    std::stable_sort(order.begin(), order.end(), [](const Call* left, const Call* right) {
        return textParameters(*left) < textParameters(*right);
    });
    std::vector<std::string> objections;
    for (const Call* call : order) {
        Arguments arguments;
        objections.push_back(convertWords(*call, words, arguments));
        if (objections.back().empty()) objections.back() = objection(*call, arguments, state.records);
        if (objections.back().empty()) return arguments;
    }
    refuseArguments(name, overloads, objections);
}

Answer CallTable::answerWords(CallState& state, const std::string& name, const std::vector<std::string>& words) const {
    return answer(state, name, argumentsOf(state, name, words));
}

const CallTable& callTable() {
    static const CallTable table = [] {
        CallTable rows;
        addStoreCalls(rows);
        addLimitCalls(rows);
        addTradeUnitCalls(rows);
        addCatalogueCalls(rows);
        addScriptCalls(rows);
        addReaderCalls(rows);
        return rows;
    }();
    return table;
}

}  // namespace ttconfig

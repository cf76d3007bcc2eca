#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <typeindex>
#include <utility>
#include <vector>

#include "ttconfig/calls/records.h"

namespace ttconfig {

// What calls keep between requests: the records seen so far, and any state that a group of bindings needs.
class CallState {
public:
    Records records;

    // The session's only object of this type, created on first use.
    template <typename Part>
    Part& part() {
        auto& place = parts[std::type_index(typeid(Part))];
        if (!place) place = std::make_shared<Part>();
        return *std::static_pointer_cast<Part>(place);
    }

private:
    std::map<std::type_index, std::shared_ptr<void>> parts;
};

using Arguments = std::vector<Argument>;

// One parameter of an operation.
struct Parameter {
    std::string wanted;                                      // "int", "text", "object of bool", ...
    void (*check)(const Argument& value, Records& records);  // throws CallRefused for an unsuitable value

    bool takesText() const { return wanted == "text"; }
};

// One operation, or one overload of it.
struct Call {
    std::vector<Parameter> parameters;
    std::function<Answer(CallState& state, const Arguments& arguments)> run;

    // "(text, int)"
    std::string signature() const;
};

// The operations by name. Overloads share a name and are told apart by the number and types of the arguments.
class CallTable {
public:
    void add(std::string name, Call call);

    // Carries out a request. Throws CallRefused when the name is unknown or no overload takes the arguments; passes on
    // whatever the operation itself throws.
    Answer answer(CallState& state, const std::string& name, const Arguments& arguments) const;

    // The same for words of a command line: a text is taken literally, every other value must be JSON.
    Answer answerWords(CallState& state, const std::string& name, const std::vector<std::string>& words) const;

    // Converts words to the arguments that answer() takes. Throws CallRefused as answer() does.
    Arguments argumentsOf(CallState& state, const std::string& name, const std::vector<std::string>& words) const;

    // Throws CallRefused wherever answer() would, without carrying anything out.
    void requireArguments(CallState& state, const std::string& name, const Arguments& arguments) const;

    const std::map<std::string, std::vector<Call>>& rows() const { return calls; }

private:
    const std::vector<Call>& find(const std::string& name) const;
    const Call& overloadOf(CallState& state, const std::string& name, const Arguments& arguments) const;

    std::map<std::string, std::vector<Call>> calls;
};

// The table of all operations, built on first use.
const CallTable& callTable();

// One function per topic; each adds the rows of its file.
void addStoreCalls(CallTable& table);      // bindstore.cpp
void addLimitCalls(CallTable& table);      // bindlimits.cpp
void addTradeUnitCalls(CallTable& table);  // bindtradeunit.cpp
void addCatalogueCalls(CallTable& table);  // bindcatalogues.cpp
void addScriptCalls(CallTable& table);     // bindscripts.cpp
void addReaderCalls(CallTable& table);     // bindreader.cpp

}  // namespace ttconfig

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

// What calls keep between requests: the records seen so far, and whatever a group of bindings needs for itself.
class CallState {
public:
    Records records;

    // The session's one object of this type, made by the first call that asks for it.
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

// One value that a call is given.
struct Parameter {
    std::string wanted;                                      // "int", "text", "object of bool", ...
    void (*check)(const Argument& value, Records& records);  // throws CallRefused for a value it does not take

    bool takesText() const { return wanted == "text"; }
};

// One operation, or one overload of it.
struct Call {
    std::vector<Parameter> parameters;
    std::function<Answer(CallState& state, const Arguments& arguments)> run;

    // "(text, int)"
    std::string signature() const;
};

// The operations by the names under which they are asked. Overloads share a name and are told apart by how many
// arguments are given and of which types.
class CallTable {
public:
    void add(std::string name, Call call);

    // Carries a request out. Throws CallRefused when the name is unknown or no overload takes these arguments; what the
    // operation itself throws is passed on.
    Answer answer(CallState& state, const std::string& name, const Arguments& arguments) const;

    // The same for words of a command line: a text is taken as it stands, every other value is written as JSON.
    Answer answerWords(CallState& state, const std::string& name, const std::vector<std::string>& words) const;

    // The words as arguments that answer() takes. Throws CallRefused like answer().
    Arguments argumentsOf(CallState& state, const std::string& name, const std::vector<std::string>& words) const;

    // Throws CallRefused where answer() would without carrying anything out.
    void requireArguments(CallState& state, const std::string& name, const Arguments& arguments) const;

    const std::map<std::string, std::vector<Call>>& rows() const { return calls; }

private:
    const std::vector<Call>& find(const std::string& name) const;
    const Call& overloadOf(CallState& state, const std::string& name, const Arguments& arguments) const;

    std::map<std::string, std::vector<Call>> calls;
};

// The table of all operations, made when it is first asked for.
const CallTable& callTable();

// One function a topic; each adds the rows of its file.
void addStoreCalls(CallTable& table);      // bindstore.cpp
void addLimitCalls(CallTable& table);      // bindlimits.cpp
void addTradeUnitCalls(CallTable& table);  // bindtradeunit.cpp
void addCatalogueCalls(CallTable& table);  // bindcatalogues.cpp
void addScriptCalls(CallTable& table);     // bindscripts.cpp
void addReaderCalls(CallTable& table);     // bindreader.cpp

}  // namespace ttconfig

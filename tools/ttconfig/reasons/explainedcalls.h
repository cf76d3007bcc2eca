#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>

#include "ttconfig/calls/calltable.h"
#include "ttconfig/edits/edits.h"
#include "ttconfig/edits/wanted.h"
#include "ttconfig/reasons/explainer.h"
#include "ttconfig/tables/settingsfacts.h"

namespace ttconfig {

// A question: arguments that the call table has accepted, and the settings that answer it.
struct Question {
    const SettingsFacts& facts;
    const Arguments& arguments;

    int number(std::size_t place) const { return arguments.at(place).get<int>(); }
    bool flag(std::size_t place) const { return arguments.at(place).get<bool>(); }
    const std::string& text(std::size_t place) const { return arguments.at(place).get_ref<const std::string&>(); }
    const standin::SettingsText& settings() const { return facts.text(); }
};

// How to explain an operation, and how to suggest edits of the settings that might change its answer. If `suggest` is
// empty, no edit can. Overloads share a row and are distinguished by their number of arguments.
struct ExplainedCall {
    std::function<Explanation(const Question& question)> explain;
    std::function<void(const Question& question, const Wanted& wanted, Edits& edits)> suggest;
};

class ExplainedCalls {
public:
    void add(std::string name, ExplainedCall call) { calls.insert_or_assign(std::move(name), std::move(call)); }

    // Null if the operation cannot be explained.
    const ExplainedCall* find(const std::string& name) const {
        const auto found = calls.find(name);
        return found == calls.end() ? nullptr : &found->second;
    }

private:
    std::map<std::string, ExplainedCall> calls;
};

// The table of all operations that can be explained, built on first use.
const ExplainedCalls& explainedCalls();

// Explains a call whose arguments the call table has accepted. Throws CallRefused if the call cannot be explained.
Explanation explainCall(const std::string& call, const Question& question);

// One function per topic; each adds the operations of its file.
void addSwitchReasons(ExplainedCalls& calls);         // switchreasons.cpp
void addSingleValueReasons(ExplainedCalls& calls);    // singlereasons.cpp
void addPlatformValueReasons(ExplainedCalls& calls);  // platformvaluereasons.cpp
void addLimitReasons(ExplainedCalls& calls);          // limitreasons.cpp
void addBondReasons(ExplainedCalls& calls);           // bondreasons.cpp
void addCreditReasons(ExplainedCalls& calls);         // creditreasons.cpp
void addContractReasons(ExplainedCalls& calls);       // contractreasons.cpp
void addListReasons(ExplainedCalls& calls);           // listreasons.cpp
void addProductReasons(ExplainedCalls& calls);        // productreasons.cpp
void addEtfReasons(ExplainedCalls& calls);            // etfreasons.cpp
void addUnitReasons(ExplainedCalls& calls);           // unitreasons.cpp
void addClientReasons(ExplainedCalls& calls);         // clientreasons.cpp

}  // namespace ttconfig

// The call table and the public headers name the same operations; overloads are distinguished.

#include "ttconfig/calls/calltable.h"

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <vector>

#include "tests/tools/ttconfig/calls/declaredoperations.h"
#include "tests/tools/ttconfig/support/toolrun.h"
#include "ttconfig/calls/binding.h"

namespace {

using testing::HasSubstr;
using ttconfig::Answer;
using ttconfig::Argument;
using ttconfig::CallRefused;
using ttconfig::CallState;
using ttconfig::CallTable;
using ttconfig::callTable;

using Operations = std::map<std::string, int>;

std::string header(const std::string& path) {
    return tests::fileText(std::string(TT_SOURCE_DIR) + "/" + path);
}

void add(Operations& all, const std::string& prefix, const Operations& more) {
    for (const auto& [name, overloads] : more)
        all[prefix + name] += overloads;
}

// For a new public header, add a line here.
Operations declaredCalls() {
    Operations all;
    const std::string config = "libs/traderbase/base/config/";
    add(all, "", tests::publicOperations(header(config + "configcollector.h"), "ConfigCollector"));
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning) ++all[#predicate];
#include "traderbase/base/config/platformswitches.def"
    add(all, "AlgorithmParamConfig.",
        tests::publicOperations(header(config + "algorithmparamconfig.h"), "AlgorithmParamConfig"));
    add(all, "", tests::markedFunctions(header(config + "tradeunit.h"), "TRADERBASE_API"));
    add(all, "LuaConfig.", tests::publicOperations(header("base/src/luaconfig/luaconfig.h"), "LuaConfig"));
    add(all, "Configuration.",
        tests::publicOperations(header("platform/include/ttplatform/configuration.h"), "Configuration"));
    // Left out: access to a singleton, which every call uses, and an interpreter's constructor and destructor, which
    // have names of their own.
    all.erase("instance");
    all.erase("AlgorithmParamConfig.instance");
    all["LuaConfig.new"] = 1;
    all["LuaConfig.delete"] = 1;
    return all;
}

Operations boundCalls() {
    Operations all;
    for (const auto& [name, overloads] : callTable().rows())
        all[name] = static_cast<int>(overloads.size());
    return all;
}

std::vector<std::string> missingFrom(const Operations& some, const Operations& all) {
    std::vector<std::string> missing;
    for (const auto& [name, overloads] : all) {
        const auto found = some.find(name);
        const int there = found == some.end() ? 0 : found->second;
        if (there < overloads)
            missing.push_back(name + ": " + std::to_string(there) + " of " + std::to_string(overloads));
    }
    return missing;
}

TEST(CallTable, HoldsEveryPublicOperationWithAllItsOverloads) {
    EXPECT_THAT(missingFrom(boundCalls(), declaredCalls()), testing::IsEmpty());
}

TEST(CallTable, HoldsOnlyPublicOperations) {
    EXPECT_THAT(missingFrom(declaredCalls(), boundCalls()), testing::IsEmpty());
}

// The comparison above relies on this.
TEST(DeclaredOperations, AreReadFromThePublicPartOfAClassOnly) {
    const std::string text = R"(
        class Other;
        // class Wanted { public: void inAComment(); };
        struct Helper { void helperOperation(); };
        class API Wanted {
            void beforePublic();
        public:
            Wanted();
            ~Wanted();
            Wanted(const Wanted&) = delete;
            Wanted& operator=(const Wanted&) = delete;
            static Pointer<Wanted> made();
            void twice(int a);  // void behind();
            void twice(std::map<std::string, int> a = {}) const;
            /* void inAnotherComment(); */
            bool inlineOne() const { return helper(1); }
#define ROW(name) bool name();
#include "rows.def"
            int data = 0;
            friend void makeFriend();
        private:
            void hidden();
        };
        class WantedNot { public: void notThis(); };
    )";
    const Operations expected = {{"made", 1}, {"twice", 2}, {"inlineOne", 1}};
    EXPECT_EQ(tests::publicOperations(text, "Wanted"), expected);
    const Operations none;
    EXPECT_EQ(tests::publicOperations(text, "Missing"), none);
}

TEST(DeclaredOperations, OfAHeaderOfFunctionsAreTheMarkedOnes) {
    const std::string text =
        "API bool one(int);\nAPI int two(int);\nAPI int two(int, int);\n// API int three();\nint four();";
    const Operations expected = {{"one", 1}, {"two", 2}};
    EXPECT_EQ(tests::markedFunctions(text, "API"), expected);
}

// --- overloads and refusals, with a table made for the test

CallTable sampleTable() {
    CallTable table;
    const auto answering = [](const char* text) { return std::string(text); };
    table.add("f", ttconfig::stateCall([=](CallState&) { return answering("none"); }));
    table.add("f", ttconfig::stateCall([=](CallState&, const std::string&) { return answering("text"); }));
    table.add("f", ttconfig::stateCall([=](CallState&, int) { return answering("int"); }));
    table.add("f",
              ttconfig::stateCall([=](CallState&, const std::map<std::string, bool>&) { return answering("map"); }));
    table.add("f", ttconfig::stateCall([=](CallState&, int, int) { return answering("two"); }));
    table.add("boom", ttconfig::stateCall([](CallState&, int) -> int { throw std::runtime_error("it broke"); }));
    return table;
}

std::string refusal(const CallTable& table, const std::string& name, const ttconfig::Arguments& arguments) {
    CallState state;
    try {
        return "answered " + table.answer(state, name, arguments).dump();
    } catch (const CallRefused& refused) {
        return refused.what();
    }
}

TEST(CallTable, TellsOverloadsApartByCountAndType) {
    const struct {
        ttconfig::Arguments arguments;
        std::string expected;
    } rows[] = {{{}, "none"},
                {{"x"}, "text"},
                {{7}, "int"},
                {{Argument::object({{"k", true}})}, "map"},
                {{Argument::object()}, "map"},
                {{1, 2}, "two"}};
    const CallTable table = sampleTable();
    for (const auto& row : rows) {
        CallState state;
        EXPECT_EQ(table.answer(state, "f", row.arguments), Answer(row.expected)) << Argument(row.arguments);
    }
}

TEST(CallTable, WordsTakeTheNarrowestOverloadThatTheyFit) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> rows = {
        {{}, "none"},        {{"x"}, "text"}, {{"7"}, "int"}, {{"{\"k\":true}"}, "map"}, {{"{\"k\":1}"}, "text"},
        {{"1", "-2"}, "two"}};
    const CallTable table = sampleTable();
    for (const auto& [words, expected] : rows) {
        CallState state;
        EXPECT_EQ(table.answerWords(state, "f", words), Answer(expected)) << words.size();
    }
}

TEST(CallTable, RefusalsSayWhatWasWrong) {
    const CallTable table = sampleTable();
    const struct {
        const char* name;
        ttconfig::Arguments arguments;
        const char* said;
    } rows[] = {
        {"g", {}, "unknown call \"g\"; did you mean f?"},
        {"bom", {1}, "; did you mean boom?"},
        {"nothing like it", {}, "unknown call \"nothing like it\""},
        {"f", {1, 2, 3}, "f() or (text) or (int) or (object of bool) or (int, int): 3 arguments given"},
        {"f", {1.5}, "argument 1: wanted text, got 1.5"},
        {"boom", {"1"}, "boom(int): argument 1: wanted int, got \"1\""},
        {"boom", {}, "boom(int): 0 arguments given"},
        {"boom", {nullptr}, "wanted int, got null"},
        {"boom", {Argument::array()}, "wanted int, got an array"},
    };
    for (const auto& row : rows)
        EXPECT_THAT(refusal(table, row.name, row.arguments), HasSubstr(row.said)) << row.name;
}

TEST(CallTable, WhatAnOperationThrowsIsPassedOn) {
    CallState state;
    EXPECT_THROW(sampleTable().answer(state, "boom", {1}), std::runtime_error);
    EXPECT_THROW(sampleTable().answerWords(state, "boom", {"1"}), std::runtime_error);
}

TEST(CallTable, StateIsKeptForASessionAndNotSharedWithAnother) {
    CallTable table;
    table.add("count", ttconfig::stateCall([](CallState& state) { return ++state.part<int>(); }));
    CallState first;
    CallState second;
    EXPECT_EQ(table.answer(first, "count", {}), Answer(1));
    EXPECT_EQ(table.answer(first, "count", {}), Answer(2));
    EXPECT_EQ(table.answer(second, "count", {}), Answer(1));
}

}  // namespace

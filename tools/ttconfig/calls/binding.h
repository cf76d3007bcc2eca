#pragma once

// From a C++ operation to a row of the call table: the types of arguments and answer are taken from the operation
// itself.
//
// To add operations, write rows into the add-function of their topic's file (bindstore.cpp, bindlimits.cpp, ...):
//
//   TT_STORE_CALL(getFlowHistoryDays);                                                       a member of the store
//   table.add("isBuyOpt", freeCall(&ttservice::isBuyOpt));                                   a free or static function
//   table.add("getTradeMinUnit", freeCall(overload<int(const std::string&, const std::string&)>(
//                                    &ttservice::getTradeMinUnit)));                         one of several overloads
//   table.add("getContractInfo", storeCall(overload<std::vector<ContractInfoPtr>(int) const>(
//                                    &ConfigCollector::getContractInfo)));                   ... of a const member;
//                                                                      without the word const for one that is not
//   table.add("A.b", objectCall(&A::b, [](CallState& state) { return A::instance(); }));     a member of anything else
//   table.add("X.new", stateCall([](CallState& state, const std::string& path) { ... }));    anything at all
//
// Overloads are added one by one under the same name. A parameter that is a non-const reference is an output: it is
// not passed, starts at its type's zero value, and is the answer, or with a result an element of [result, out, ...].
// What a group of calls keeps between requests it asks from state.part<Its Own Type>().
//
// To add a record, give it a specialisation next to its bindings:
//
//   template <>
//   struct ttconfig::RecordMembers<ttservice::ContractInfo> {
//       static void write(const ttservice::ContractInfo& record, Answer& object, Records&) {
//           object["productId"] = record.productId;
//       }
//   };
//
// A shared pointer to it, and any container of them, is then answered as null or {"@": number, members}. Any other type
// gets a specialisation of ToJson (answers) or FromJson (arguments), as in jsonvalues.h.

#include <cstddef>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "traderbase/base/config/configcollector.h"
#include "ttconfig/calls/calltable.h"
#include "ttconfig/calls/jsonvalues.h"

namespace ttconfig {

template <typename Parameter>
using Stored = std::remove_cv_t<std::remove_reference_t<Parameter>>;

template <typename Parameter>
inline constexpr bool kIsOutput =
    std::is_lvalue_reference_v<Parameter> && !std::is_const_v<std::remove_reference_t<Parameter>>;

// The list of an operation's parameter types.
template <typename... Parameters>
struct ParameterList {};

template <typename Value>
void checkArgument(const Argument& value, Records& records) {
    static_cast<void>(FromJson<Value>::from(value, records));
}

template <typename Type>
void describeParameter(std::vector<Parameter>& parameters) {
    if constexpr (!kIsOutput<Type>) {
        parameters.push_back({FromJson<Stored<Type>>::wanted(), &checkArgument<Stored<Type>>});
    }
}

// The value that stands for one parameter during a call: the next argument, or an output's zero value.
template <typename Type>
Stored<Type> initialValue(const Arguments& arguments, std::size_t& next, Records& records) {
    if constexpr (kIsOutput<Type>) {
        return Stored<Type>();
    } else {
        return FromJson<Stored<Type>>::from(arguments[next++], records);
    }
}

template <typename Type>
void appendOutput(const Stored<Type>& value, Answer& answers, Records& records) {
    if constexpr (kIsOutput<Type>) answers.push_back(ToJson<Stored<Type>>::to(value, records));
}

template <typename Result, typename... Types, typename Function, std::size_t... Places>
Answer runCall(CallState& state, const Arguments& arguments, const Function& function, std::index_sequence<Places...>) {
    std::size_t next = 0;
    // Braces: the values are made from left to right.
    std::tuple<Stored<Types>...> values{initialValue<Types>(arguments, next, state.records)...};
    static_cast<void>(next);
    Answer answers = Answer::array();
    if constexpr (std::is_void_v<Result>) {
        function(state, static_cast<Types&&>(std::get<Places>(values))...);
    } else {
        answers.push_back(ToJson<Stored<Result>>::to(function(state, static_cast<Types&&>(std::get<Places>(values))...),
                                                     state.records));
    }
    (appendOutput<Types>(std::get<Places>(values), answers, state.records), ...);
    if (answers.empty()) return nullptr;
    if (answers.size() == 1) return std::move(answers.front());
    return answers;
}

template <typename Result, typename... Types, typename Function>
Call makeCall(ParameterList<Types...>, Function function) {
    Call call;
    (describeParameter<Types>(call.parameters), ...);
    call.run = [function = std::move(function)](CallState& state, const Arguments& arguments) {
        return runCall<Result, Types...>(state, arguments, function, std::index_sequence_for<Types...>());
    };
    return call;
}

// A member of the object, or of what the pointer points to, that target(state) gives.
template <typename Result, typename Class, typename... Types, typename Target>
Call objectCall(Result (Class::*member)(Types...), Target target) {
    return makeCall<Result>(ParameterList<Types...>(),
                            [member, target](CallState& state, Types... arguments) -> Result {
                                return ((*target(state)).*member)(static_cast<Types&&>(arguments)...);
                            });
}

template <typename Result, typename Class, typename... Types, typename Target>
Call objectCall(Result (Class::*member)(Types...) const, Target target) {
    return makeCall<Result>(ParameterList<Types...>(),
                            [member, target](CallState& state, Types... arguments) -> Result {
                                return ((*target(state)).*member)(static_cast<Types&&>(arguments)...);
                            });
}

// A member of the settings store, which the first call that needs it builds.
template <typename Member>
Call storeCall(Member member) {
    return objectCall(member, [](CallState&) { return ttservice::ConfigCollector::instance(); });
}

// The row of a member of the store that is not overloaded, under its own name.
#define TT_STORE_CALL(operation) table.add(#operation, storeCall(&ttservice::ConfigCollector::operation))

// A free or static function.
template <typename Result, typename... Types>
Call freeCall(Result (*function)(Types...)) {
    return makeCall<Result>(ParameterList<Types...>(), [function](CallState&, Types... arguments) -> Result {
        return function(static_cast<Types&&>(arguments)...);
    });
}

template <typename Function, typename Result, typename Class, typename... Types>
Call stateCallAs(Function function, Result (Class::*)(CallState&, Types...) const) {
    return makeCall<Result>(ParameterList<Types...>(), std::move(function));
}

// A function object that takes the call state and then the arguments.
template <typename Function>
Call stateCall(Function function) {
    return stateCallAs(std::move(function), &Function::operator());
}

// Picks one of several overloads by its function type: overload<int(double) const>(&Class::member).
template <typename Signature, typename Class>
constexpr auto overload(Signature Class::*member) {
    return member;
}
template <typename Signature>
constexpr Signature* overload(Signature* function) {
    return function;
}

}  // namespace ttconfig

#pragma once

// Turns a C++ operation into a row of the call table. The types of its arguments and of its answer are deduced from the
// operation.
//
// To add an operation, write a row in the add function of its topic's file (bindstore.cpp, bindlimits.cpp, ...):
//
//   TT_STORE_CALL(getFlowHistoryDays);                                                       a member of the store
//   table.add("isBuyOpt", freeCall(&ttservice::isBuyOpt));                                   a free or static function
//   table.add("getTradeMinUnit", freeCall(overload<int(const std::string&, const std::string&)>(
//                                    &ttservice::getTradeMinUnit)));                         one of several overloads
//   table.add("getContractInfo", storeCall(overload<std::vector<ContractInfoPtr>(int) const>(
//                                    &ConfigCollector::getContractInfo)));                   ... of a const member
//                                                                     (omit the word const for any other member)
//   table.add("A.b", objectCall(&A::b, [](CallState& state) { return A::instance(); }));     a member of anything else
//   table.add("X.new", stateCall([](CallState& state, const std::string& path) { ... }));    anything at all
//
// Add each overload separately, under the same name. A parameter that is a non-const reference is an output: callers do
// not pass it, it starts at its type's zero value, and it becomes the answer. An operation that also has a result
// answers [result, out, ...]. Calls that keep something between requests store it in state.part<TheirOwnType>().
//
// To add a record type, specialise RecordMembers next to its bindings:
//
//   template <>
//   struct ttconfig::RecordMembers<ttservice::ContractInfo> {
//       static void write(const ttservice::ContractInfo& record, Answer& object, Records&) {
//           object["productId"] = record.productId;
//       }
//   };
//
// A shared pointer to the record is then answered as null or {"@": number, members}; so is each element of a container.
// For any other type, specialise ToJson (answers) or FromJson (arguments) as jsonvalues.h does.

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

// The initial value of one parameter: the next argument, or the zero value of an output.
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
    // Braces guarantee evaluation from left to right.
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

// A member of the object that target(state) returns, or of the object behind the pointer it returns.
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

// A member of the settings store, which is created by the first call that needs it.
template <typename Member>
Call storeCall(Member member) {
    return objectCall(member, [](CallState&) { return ttservice::ConfigCollector::instance(); });
}

// The row of a store member without overloads, under its own name.
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

// A function object whose parameters are the call state followed by the arguments.
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

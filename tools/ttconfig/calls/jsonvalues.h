#pragma once

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <limits>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "ttconfig/calls/records.h"

// Conversions between C++ values and JSON: FromJson for arguments, ToJson for answers. binding.h explains how to add a
// type.

namespace ttconfig {

// Refuses a value, for example with: wanted int, got "12".
[[noreturn]] void refuseValue(const std::string& wanted, const Argument& value);
// Refuses a whole number, for example with: 2147483648 does not fit 32 bits.
[[noreturn]] void refuseWideNumber(const Argument& value);

// A 32-bit integer; 12.0 is refused.
int intFromJson(const Argument& value);

// --- arguments

template <typename Value, typename = void>
struct FromJson;

template <>
struct FromJson<bool> {
    static std::string wanted() { return "bool"; }
    static bool from(const Argument& value, Records&) {
        if (!value.is_boolean()) refuseValue(wanted(), value);
        return value.get<bool>();
    }
};

template <>
struct FromJson<int> {
    static std::string wanted() { return "int"; }
    static int from(const Argument& value, Records&) { return intFromJson(value); }
};

template <>
struct FromJson<double> {
    static std::string wanted() { return "double"; }
    static double from(const Argument& value, Records&) {
        if (!value.is_number()) refuseValue(wanted(), value);
        return value.get<double>();
    }
};

template <>
struct FromJson<std::string> {
    static std::string wanted() { return "text"; }
    static std::string from(const Argument& value, Records&) {
        if (!value.is_string()) refuseValue(wanted(), value);
        return value.get_ref<const std::string&>();
    }
};

// A view into the argument, which outlives the call.
template <>
struct FromJson<std::string_view> {
    static std::string wanted() { return "text"; }
    static std::string_view from(const Argument& value, Records&) {
        if (!value.is_string()) refuseValue(wanted(), value);
        return value.get_ref<const std::string&>();
    }
};

template <typename Value>
struct FromJson<Value, std::enable_if_t<std::is_enum_v<Value>>> {
    static std::string wanted() { return "int"; }
    static Value from(const Argument& value, Records&) { return static_cast<Value>(intFromJson(value)); }
};

template <typename Value>
struct FromJson<std::vector<Value>> {
    static std::string wanted() { return "array of " + FromJson<Value>::wanted(); }
    static std::vector<Value> from(const Argument& value, Records& records) {
        if (!value.is_array()) refuseValue(wanted(), value);
        std::vector<Value> items;
        items.reserve(value.size());
        for (const Argument& item : value)
            items.push_back(FromJson<Value>::from(item, records));
        return items;
    }
};

template <typename Value>
struct FromJson<std::map<std::string, Value>> {
    static std::string wanted() { return "object of " + FromJson<Value>::wanted(); }
    static std::map<std::string, Value> from(const Argument& value, Records& records) {
        if (!value.is_object()) refuseValue(wanted(), value);
        std::map<std::string, Value> entries;
        for (const auto& [key, item] : value.items())
            entries.emplace(key, FromJson<Value>::from(item, records));
        return entries;
    }
};

// --- answers

template <typename Value, typename = void>
struct ToJson;

template <typename Value>
struct ToJson<Value, std::enable_if_t<std::is_arithmetic_v<Value>>> {
    static Answer to(Value value, Records&) { return Answer(value); }
};

template <typename Value>
struct ToJson<Value, std::enable_if_t<std::is_enum_v<Value>>> {
    static Answer to(Value value, Records&) { return Answer(static_cast<std::underlying_type_t<Value>>(value)); }
};

// Bytes that are not UTF-8 are kept here and replaced when the answer is written.
template <>
struct ToJson<std::string> {
    static Answer to(const std::string& value, Records&) { return Answer(value); }
};

template <typename First, typename Second>
struct ToJson<std::pair<First, Second>> {
    static Answer to(const std::pair<First, Second>& value, Records& records) {
        Answer both = Answer::array();
        both.push_back(ToJson<First>::to(value.first, records));
        both.push_back(ToJson<Second>::to(value.second, records));
        return both;
    }
};

template <typename Container>
Answer sequenceToJson(const Container& container, Records& records) {
    Answer items = Answer::array();
    for (const auto& item : container) {
        items.push_back(ToJson<typename Container::value_type>::to(item, records));
    }
    return items;
}

template <typename Value>
struct ToJson<std::vector<Value>> {
    static Answer to(const std::vector<Value>& value, Records& records) { return sequenceToJson(value, records); }
};

template <typename Value>
struct ToJson<std::set<Value>> {
    static Answer to(const std::set<Value>& value, Records& records) { return sequenceToJson(value, records); }
};

inline std::string objectKey(const std::string& key) {
    return key;
}
inline std::string objectKey(int key) {
    return std::to_string(key);
}

template <typename Key, typename Value, typename Order>
struct ToJson<std::map<Key, Value, Order>> {
    static Answer to(const std::map<Key, Value, Order>& value, Records& records) {
        Answer object = Answer::object();
        // Append to the object's list directly: inserting through the object searches the whole list each time, which
        // takes quadratic time.
        auto& members = object.get_ref<Answer::object_t&>();
        for (const auto& [key, item] : value) {
            members.push_back({objectKey(key), ToJson<Value>::to(item, records)});
        }
        return object;
    }
};

// Shared records: null, or an object whose first member is the record's number. The other members come from a
// specialisation of RecordMembers with
//
//   static void write(const Record& record, Answer& object, Records& records);
template <typename Record>
struct RecordMembers;

template <typename Record>
struct ToJson<boost::shared_ptr<Record>> {
    static Answer to(const boost::shared_ptr<Record>& value, Records& records) {
        if (!value) return nullptr;
        Answer object = Answer::object();
        object["@"] = records.numberOf(value);
        RecordMembers<std::remove_const_t<Record>>::write(*value, object, records);
        return object;
    }
};

}  // namespace ttconfig

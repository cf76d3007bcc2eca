// Values between C++ and JSON, and operations bound by their types.

#include <gmock/gmock.h>

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "ttconfig/calls/binding.h"
#include "ttconfig/text/answertext.h"

namespace sample {

enum class Colour : int { Red = 3 };

struct Record {
    int size = 0;
    std::string label;
};

}  // namespace sample

template <>
struct ttconfig::RecordMembers<sample::Record> {
    static void write(const sample::Record& record, Answer& object, Records&) {
        object["size"] = record.size;
        object["label"] = record.label;
    }
};

namespace {

using testing::HasSubstr;
using ttconfig::Answer;
using ttconfig::Argument;
using ttconfig::Call;
using ttconfig::CallRefused;
using ttconfig::CallState;
using ttconfig::freeCall;
using ttconfig::Records;

template <typename Value>
Value taken(const Argument& value) {
    Records records;
    return ttconfig::FromJson<Value>::from(value, records);
}

// Why a value is refused; empty when it is accepted.
template <typename Value>
std::string refusal(const char* json) {
    try {
        taken<Value>(Argument::parse(json));
        return {};
    } catch (const CallRefused& refused) {
        return refused.what();
    }
}

template <typename Value>
std::string answered(const Value& value) {
    Records records;
    return ttconfig::answerJson(ttconfig::ToJson<Value>::to(value, records));
}

TEST(Arguments, AnIntIsAWholeNumberOf32Bits) {
    const std::pair<const char*, int> rows[] = {{"0", 0},
                                                {"-0", 0},
                                                {"12", 12},
                                                {"-5", -5},
                                                {"2147483647", std::numeric_limits<int>::max()},
                                                {"-2147483648", std::numeric_limits<int>::min()}};
    for (const auto& [json, expected] : rows)
        EXPECT_EQ(taken<int>(Argument::parse(json)), expected) << json;
    for (const char* json : {"2147483648", "-2147483649", "4294967296", "4294967297", "9223372036854775807",
                             "-9223372036854775808", "18446744073709551615"}) {
        EXPECT_THAT(refusal<int>(json), HasSubstr(std::string(json) + " does not fit 32 bits"));
    }
    for (const char* json : {"12.0", "1e2", "-0.0", "18446744073709551616", "123456789012345678901234567890", "\"12\"",
                             "true", "null", "[12]", "{}"}) {
        EXPECT_THAT(refusal<int>(json), HasSubstr("wanted int, got ")) << json;
    }
}

TEST(Arguments, AnIntIsTakenWhereADoubleIsWanted) {
    EXPECT_EQ(taken<double>(Argument::parse("12")), 12.0);
    EXPECT_EQ(taken<double>(Argument::parse("-2.5e3")), -2500.0);
    EXPECT_EQ(taken<double>(Argument::parse("1e-400")), 0.0);
    EXPECT_TRUE(std::signbit(taken<double>(Argument::parse("-0.0"))));
    for (const char* json : {"\"1\"", "false", "null", "[]"})
        EXPECT_THAT(refusal<double>(json), HasSubstr("wanted double"));
}

TEST(Arguments, BoolAndTextAreTakenFromTheirOwnTypesOnly) {
    EXPECT_TRUE(taken<bool>(true));
    EXPECT_EQ(taken<std::string>(Argument::parse("\"a\\u0000b\"")), std::string("a\0b", 3));
    for (const char* json : {"1", "0", "\"true\"", "null"})
        EXPECT_THAT(refusal<bool>(json), HasSubstr("wanted bool"));
    for (const char* json : {"1", "true", "null", "[\"a\"]"}) {
        EXPECT_THAT(refusal<std::string>(json), HasSubstr("wanted text"));
    }
}

TEST(Arguments, AnEnumerationIsItsNumber) {
    EXPECT_EQ(taken<sample::Colour>(Argument::parse("3")), sample::Colour::Red);
    EXPECT_EQ(static_cast<int>(taken<sample::Colour>(Argument::parse("-1"))), -1);
    EXPECT_THAT(refusal<sample::Colour>("2147483648"), HasSubstr("does not fit 32 bits"));
}

TEST(Arguments, ContainersAreTakenItemByItem) {
    const std::map<std::string, std::vector<int>> expected = {{"a", {1, 2}}, {"b", {}}};
    EXPECT_EQ((taken<std::map<std::string, std::vector<int>>>(Argument::parse(R"({"b":[],"a":[1,2]})"))), expected);
    EXPECT_THAT((refusal<std::map<std::string, bool>>(R"({"a":1})")), HasSubstr("wanted bool, got 1"));
    EXPECT_THAT((refusal<std::map<std::string, bool>>("[]")), HasSubstr("wanted object of bool, got an array"));
    EXPECT_THAT(refusal<std::vector<int>>("[1,2147483648]"), HasSubstr("does not fit 32 bits"));
    EXPECT_THAT(refusal<std::vector<int>>("{}"), HasSubstr("wanted array of int, got an object"));
}

TEST(Answers, KeepTypeAndOrder) {
    EXPECT_EQ(answered(true), "true");
    EXPECT_EQ(answered(12), "12");
    EXPECT_EQ(answered(12.0), "12.0");
    EXPECT_EQ(answered(-0.0), "-0.0");
    EXPECT_EQ(answered(0.1), "0.1");
    EXPECT_EQ(answered(std::string("股")), "\"股\"");
    EXPECT_EQ(answered(std::make_pair(1000000, std::string("股"))), "[1000000,\"股\"]");
    EXPECT_EQ(answered(std::vector<std::pair<int, int>>{{34200, 41400}, {46800, 54000}}),
              "[[34200,41400],[46800,54000]]");
    EXPECT_EQ(answered(std::set<std::string>{"b", "a"}), "[\"a\",\"b\"]");
    EXPECT_EQ(answered(std::map<std::string, std::vector<int>>{{"b", {}}, {"a", {1}}}), "{\"a\":[1],\"b\":[]}");
    EXPECT_EQ(answered(sample::Colour::Red), "3");
}

TEST(Answers, AMapsIntKeysAreDecimalAndKeepTheirOrder) {
    EXPECT_EQ(answered(std::map<int, bool>{{10, true}, {-5, false}, {2, true}}),
              "{\"-5\":false,\"2\":true,\"10\":true}");
}

TEST(Answers, InvalidUtf8IsReplaced) {
    EXPECT_EQ(answered(std::string("a\xFF"
                                   "b")),
              "\"a\xEF\xBF\xBD"
              "b\"");
    EXPECT_EQ(answered(std::string("\xB9\xC9")), "\"\xEF\xBF\xBD\xEF\xBF\xBD\"");
    EXPECT_EQ(answered(std::string("a\0b", 3)), "\"a\\u0000b\"");
}

TEST(Records, AreNumberedByObjectAndKeptAlive) {
    Records records;
    const auto answer = [&records](const boost::shared_ptr<sample::Record>& record) {
        return ttconfig::answerJson(ttconfig::ToJson<boost::shared_ptr<sample::Record>>::to(record, records));
    };
    const auto first = boost::make_shared<sample::Record>(sample::Record{1, "a"});
    auto second = boost::make_shared<sample::Record>(sample::Record{2, "b"});
    const boost::weak_ptr<sample::Record> watched = second;
    EXPECT_EQ(answer(nullptr), "null");
    EXPECT_EQ(answer(first), R"({"@":1,"size":1,"label":"a"})");
    EXPECT_EQ(answer(second), R"({"@":2,"size":2,"label":"b"})");
    EXPECT_EQ(answer(first), R"({"@":1,"size":1,"label":"a"})");
    second.reset();
    EXPECT_FALSE(watched.expired());
    EXPECT_EQ(answer(boost::make_shared<sample::Record>()), R"({"@":3,"size":0,"label":""})");
    EXPECT_EQ(records.find<sample::Record>(2)->label, "b");
}

TEST(Records, AreFoundByNumberAndTypeOnly) {
    Records records;
    const auto record = boost::make_shared<sample::Record>();
    EXPECT_EQ(records.numberOf(record), 1);
    EXPECT_EQ(records.find<sample::Record>(1), record);
    EXPECT_THROW(records.find<sample::Record>(0), CallRefused);
    EXPECT_THROW(records.find<sample::Record>(2), CallRefused);
    EXPECT_THROW(records.find<sample::Record>(-1), CallRefused);
    EXPECT_THROW(records.find<std::string>(1), CallRefused);
}

// --- binding

std::string run(const Call& call, const ttconfig::Arguments& arguments = {}) {
    CallState state;
    return ttconfig::answerJson(call.run(state, arguments));
}

void nothing() {}
void oneOutput(std::string& out) {
    out += "x";
}
void twoOutputs(int& number, std::map<std::string, std::string>& texts) {
    ++number;
    texts["a"] = "b";
}
bool ratios(const int& platform, double& first, double& second) {
    if (platform != 12) return false;
    first = 0.5;
    second += 2;
    return true;
}
std::string joined(std::string left, const std::string& right, std::string_view last) {
    return left + right + std::string(last);
}

TEST(Binding, TheAnswerFollowsResultAndOutputs) {
    EXPECT_EQ(run(freeCall(&nothing)), "null");
    EXPECT_EQ(run(freeCall(&oneOutput)), "\"x\"");
    EXPECT_EQ(run(freeCall(&twoOutputs)), R"([1,{"a":"b"}])");
    EXPECT_EQ(run(freeCall(&ratios), {12}), "[true,0.5,2.0]");
    EXPECT_EQ(run(freeCall(&ratios), {13}), "[false,0.0,0.0]");
    EXPECT_EQ(run(freeCall(&joined), {"a", "b", "c"}), "\"abc\"");
}

TEST(Binding, OutputsAreNoParameters) {
    EXPECT_EQ(freeCall(&ratios).signature(), "(int)");
    EXPECT_EQ(freeCall(&twoOutputs).signature(), "()");
    EXPECT_EQ(freeCall(&joined).signature(), "(text, text, text)");
}

struct Target {
    int value = 0;
    int add(int more) { return value += more; }
    int get() const { return value; }
    double over(double x) const { return x; }
    int over(int x, int y) const { return x + y + value; }
};

TEST(Binding, MembersConstOrNotAndOverloadedAreCalledOnTheTarget) {
    Target target;
    const auto onTarget = [&target](CallState&) { return &target; };
    EXPECT_EQ(run(ttconfig::objectCall(&Target::add, onTarget), {5}), "5");
    EXPECT_EQ(run(ttconfig::objectCall(&Target::add, onTarget), {5}), "10");
    EXPECT_EQ(run(ttconfig::objectCall(&Target::get, onTarget)), "10");
    EXPECT_EQ(run(ttconfig::objectCall(ttconfig::overload<double(double) const>(&Target::over), onTarget), {1}), "1.0");
    EXPECT_EQ(run(ttconfig::objectCall(ttconfig::overload<int(int, int) const>(&Target::over), onTarget), {1, 2}),
              "13");
}

}  // namespace

#include <gmock/gmock.h>
#include <mongo/client/dbclient.h>

#include <clocale>
#include <limits>
#include <locale>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include "ttplatform/algorithmsparams.h"
#include "ttplatform/idata.h"
#include "ttplatform/ratelimitrecords.h"

namespace {

using namespace std::string_literals;
namespace bson = mongo;

CAlgorithmsParams filledFrom(const std::string& json) {
    CAlgorithmsParams record;
    record.bsonValueFromObj(bson::fromjson(json), true, nullptr);
    return record;
}

std::string contentOf(const bson::BSONObj& object) {
    CAlgorithmsParams record;
    record.bsonValueFromObj(object, true, nullptr);
    return record.contentJson();
}

TEST(RateLimitRecords, StartWithZeros) {
    const CStkExchangeRateLimit stock;
    EXPECT_EQ(stock.rate1 + stock.rate2 + stock.rate3 + stock.rate4 + stock.rate5 + stock.rate6 + stock.count, 0.0);
    EXPECT_EQ(stock.toLog(), "CStkExchangeRateLimit{rate1=0, rate2=0, rate3=0, rate4=0, rate5=0, rate6=0, count=0}");
    EXPECT_EQ(CCustomHGTExchangeRateLimit().toLog(),
              "CCustomHGTExchangeRateLimit{rate1=0, rate2=0, rate3=0, rate4=0, rate5=0, rate6=0, rate7=0, rate8=0, "
              "rate9=0, rate10=0, rate11=0, rate12=0, rate13=0, rate14=0}");
}

TEST(RateLimitRecords, DumpsShowEveryMemberInOrder) {
    CStkExchangeRateLimit stock;
    stock.rate1 = 0.1;
    stock.rate2 = -2;
    stock.rate3 = 1e300;
    stock.rate4 = 1.0 / 3;
    stock.rate5 = std::numeric_limits<double>::infinity();
    stock.rate6 = 6;
    stock.count = -7;
    EXPECT_EQ(stock.toLog(),
              "CStkExchangeRateLimit{rate1=0.1, rate2=-2, rate3=1e+300, rate4=0.3333333333333333, rate5=inf, rate6=6, "
              "count=-7}");
    CCustomSgtExchangeRateLimit connect;
    double* const members[] = {&connect.rate1,  &connect.rate2,  &connect.rate3,  &connect.rate4, &connect.rate5,
                               &connect.rate6,  &connect.rate7,  &connect.rate8,  &connect.rate9, &connect.rate10,
                               &connect.rate11, &connect.rate12, &connect.rate13, &connect.rate14};
    double number = 0.5;
    for (double* member : members) {
        *member = number;
        number += 1;
    }
    EXPECT_EQ(connect.toLog(),
              "CCustomSgtExchangeRateLimit{rate1=0.5, rate2=1.5, rate3=2.5, rate4=3.5, rate5=4.5, rate6=5.5, "
              "rate7=6.5, rate8=7.5, rate9=8.5, rate10=9.5, rate11=10.5, rate12=11.5, rate13=12.5, rate14=13.5}");
}

TEST(RateLimitRecords, TakeNothingFromAnObject) {
    CStkExchangeRateLimit stock;
    IData& record = stock;
    record.bsonValueFromObj(bson::fromjson("{rate1: 5}"), true, nullptr);
    EXPECT_EQ(stock.rate1, 0.0);
}

TEST(CAlgorithmsParams, IsARecordThatCanBeCopiedAndDestroyedThroughItsBase) {
    static_assert(std::is_base_of_v<IData, CAlgorithmsParams>);
    static_assert(std::has_virtual_destructor_v<CAlgorithmsParams>);
    static_assert(std::is_default_constructible_v<CAlgorithmsParams>);
    CAlgorithmsParams copy;
    {
        const CAlgorithmsParams original = filledFrom(R"({"name":"twap","x":1})");
        copy = original;
        const std::unique_ptr<IData> base = std::make_unique<CAlgorithmsParams>(original);
        EXPECT_EQ(base->toLog(), R"(CAlgorithmsParams{name=twap, content={"name":"twap","x":1}})");
    }
    EXPECT_EQ(copy.name, "twap");
    EXPECT_EQ(copy.contentJson(), R"({"name":"twap","x":1})");
}

TEST(CAlgorithmsParams, NameIsTheTextMemberNameAndEmptyWithoutOne) {
    const std::pair<std::string, std::string> rows[] = {
        {R"({"name":"twap"})", "twap"},
        {R"({"x":1,"name":"股"})", "股"},
        {R"({"name":""})", ""},
        {R"({})", ""},
        {R"({"Name":"twap"})", ""},
        {R"({"a":{"name":"inner"}})", ""},
        {R"({"name":"a","name":"b"})", "a"},
    };
    EXPECT_EQ(CAlgorithmsParams().name, "");
    EXPECT_EQ(CAlgorithmsParams().contentJson(), "{}");
    for (const auto& [json, name] : rows)
        EXPECT_EQ(filledFrom(json).name, name) << json;
    // A second fill replaces everything.
    CAlgorithmsParams record = filledFrom(R"({"name":"twap","x":1})");
    record.bsonValueFromObj(bson::fromjson(R"({"y":2})"), true, nullptr);
    EXPECT_EQ(record.name, "");
    EXPECT_EQ(record.contentJson(), R"({"y":2})");
}

TEST(CAlgorithmsParams, NameThatIsNotATextIsAConversionFailureAndChangesNothing) {
    for (const char* json : {R"({"name":1})", R"({"name":null})", R"({"name":{}})", R"({"name":["a"]})",
                             R"({"name":true})", R"({"name":1.5,"name":"b"})"}) {
        CAlgorithmsParams record = filledFrom(R"({"name":"twap"})");
        EXPECT_THROW(record.bsonValueFromObj(bson::fromjson(json), true, nullptr), std::exception) << json;
        EXPECT_EQ(record.name, "twap");
        EXPECT_EQ(record.contentJson(), R"({"name":"twap"})");
    }
}

TEST(CAlgorithmsParams, ContentIsAnOwnedCopyAlsoOfAnEmbeddedObject) {
    CAlgorithmsParams record;
    {
        const bson::BSONObj answer = bson::fromjson(R"({"content":{"name":"twap","list":[1,2]}})");
        record.bsonValueFromObj(answer.getField("content").embeddedObject(), true, nullptr);
    }
    EXPECT_TRUE(record.content().isOwned());
    EXPECT_EQ(record.contentJson(), R"({"name":"twap","list":[1,2]})");
}

TEST(CAlgorithmsParams, AnArrayIsKeptAsTheObjectOfItsPlaces) {
    CAlgorithmsParams record;
    const bson::BSONObj answer = bson::fromjson(R"({"content":[7,"x"]})");
    record.bsonValueFromObj(answer.getField("content").embeddedObject(), true, nullptr);
    EXPECT_EQ(record.contentJson(), R"({"0":7,"1":"x"})");
}

TEST(ContentJson, NumbersArePlain) {
    bson::BSONObjBuilder builder;
    builder.append("int", -5);
    builder.append("long", 9007199254740993LL);
    builder.append("least", std::numeric_limits<long long>::min());
    builder.append("double", 0.1);
    builder.append("whole", 3.0);
    builder.append("large", 1e300);
    builder.append("nan", std::numeric_limits<double>::quiet_NaN());
    builder.append("inf", std::numeric_limits<double>::infinity());
    builder.append("ninf", -std::numeric_limits<double>::infinity());
    builder.append("yes", true);
    builder.append("no", false);
    builder.appendNull("null");
    EXPECT_EQ(
        contentOf(builder.obj()),
        R"({"int":-5,"long":9007199254740993,"least":-9223372036854775808,"double":0.1,"whole":3.0,"large":1e+300,)"
        R"("nan":null,"inf":null,"ninf":null,"yes":true,"no":false,"null":null})");
}

TEST(ContentJson, OrderAndRepeatedMembersAreKept) {
    EXPECT_EQ(filledFrom(R"({"b":1,"a":{"z":[],"y":{}},"b":[{"x":[[1],2]},null]})").contentJson(),
              R"({"b":1,"a":{"z":[],"y":{}},"b":[{"x":[[1],2]},null]})");
}

TEST(ContentJson, TextsAreEscapedWhereJsonMustAndElseLeftAlone) {
    bson::BSONObjBuilder builder;
    builder.append("quote\"\\", "\"\\/\n\r\t\b\x1f\x7f");
    builder.append("utf8", "股");
    builder.append("bytes", "\xff\xc3");
    builder.append("nul", "a\0b"s);
    EXPECT_EQ(contentOf(builder.obj()),
              "{\"quote\\\"\\\\\":\"\\\"\\\\/\\n\\r\\t\\u0008\\u001f\x7f\",\"utf8\":\"股\",\"bytes\":\"\xff\xc3\","
              "\"nul\":\"a\\u0000b\"}");
}

TEST(ContentJson, OtherTypesAreWrittenAsTheirNearest) {
    bson::BSONObjBuilder builder;
    builder.appendDate("date", bson::Date_t(1500000000000ULL));
    builder.append("oid", bson::OID("0123456789abcdef01234567"));
    builder.appendRegex("regex", "a.*b", "i");
    builder.appendUndefined("undefined");
    builder.appendMinKey("min");
    EXPECT_EQ(contentOf(builder.obj()),
              R"({"date":1500000000000,"oid":"0123456789abcdef01234567","regex":"a.*b","undefined":null,"min":null})");
}

TEST(ContentJson, TakesAnyDepth) {
    // Built by hand: the library's own parser would overflow its stack on such a text.
    const int depth = 50000;
    std::string bytes;
    for (int level = depth; level >= 0; --level) {
        const std::uint32_t size = 5 + 8 * static_cast<std::uint32_t>(level);
        for (int shift = 0; shift < 32; shift += 8)
            bytes += static_cast<char>((size >> shift) & 0xFF);
        if (level > 0)
            bytes +=
                "\x03"
                "a\0"s;
    }
    bytes.append(static_cast<std::size_t>(depth) + 1, '\0');
    const std::string json = contentOf(bson::BSONObj(bytes.data()));
    EXPECT_EQ(json.size(), 2u + static_cast<std::size_t>(depth) * 6u);
    EXPECT_EQ(json.substr(0, 14), R"({"a":{"a":{"a")");
}

class CommaForPoint : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
};

TEST(ContentJson, IgnoresTheLocale) {
    const CAlgorithmsParams record = filledFrom("{\"x\":1.5}");
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaForPoint));
    CStkExchangeRateLimit stock;
    stock.rate1 = 2.5;
    EXPECT_EQ(record.contentJson(), "{\"x\":1.5}");
    EXPECT_EQ(stock.toLog(), "CStkExchangeRateLimit{rate1=2.5, rate2=0, rate3=0, rate4=0, rate5=0, rate6=0, count=0}");
    std::locale::global(before);
}

}  // namespace

// The record classes: their log lines, and the conversion of the algorithm record.
// Entry points: toLog(), bsonValueFromObj(), CAlgorithmsParams::contentJson().
// Test: tests/platform/records_test.cpp
#include <mongo/util/assert_util.h>
#include <initializer_list>
#include <new>
#include <stdexcept>

#include "standin/bsonjson.h"
#include "ttplatform/algorithmsparams.h"
#include "ttplatform/idata.h"
#include "ttplatform/ratelimitrecords.h"

namespace {

// "rate1=..., rate2=..., ..."
std::string ratesText(std::initializer_list<double> rates) {
    std::string text;
    int number = 0;
    for (const double rate : rates) {
        ++number;
        if (number > 1) text += ", ";
        text += "rate" + std::to_string(number) + "=" + standin::decimalText(rate);
    }
    return text;
}

template <typename ConnectRecord>
std::string connectRatesText(const ConnectRecord& record) {
    return ratesText({record.rate1, record.rate2, record.rate3, record.rate4, record.rate5, record.rate6, record.rate7,
                      record.rate8, record.rate9, record.rate10, record.rate11, record.rate12, record.rate13,
                      record.rate14});
}

// BSONObj::copy() does not check its allocation and would write through a null pointer; the library's builder checks.
mongo::BSONObj ownedCopy(const mongo::BSONObj& object) {
    constexpr int kNoBuffer = 10000;
    try {
        mongo::BSONObjBuilder builder(object.objsize());
        builder.appendElements(object);
        return builder.obj();
    } catch (const mongo::DBException& failure) {
        if (failure.getCode() == kNoBuffer) throw std::bad_alloc();
        throw;
    }
}

}  // namespace

IData::~IData() = default;

void IData::bsonValueFromObj(const mongo::BSONObj& /*object*/, bool /*flag*/, const void* /*base*/) {}

std::string CStkExchangeRateLimit::toLog() const {
    return "CStkExchangeRateLimit{" + ratesText({rate1, rate2, rate3, rate4, rate5, rate6}) +
           ", count=" + std::to_string(count) + "}";
}

std::string CCustomHGTExchangeRateLimit::toLog() const {
    return "CCustomHGTExchangeRateLimit{" + connectRatesText(*this) + "}";
}

std::string CCustomSgtExchangeRateLimit::toLog() const {
    return "CCustomSgtExchangeRateLimit{" + connectRatesText(*this) + "}";
}

std::string CAlgorithmsParams::toLog() const {
    return "CAlgorithmsParams{name=" + name + ", content=" + contentJson() + "}";
}

void CAlgorithmsParams::bsonValueFromObj(const mongo::BSONObj& object, bool /*flag*/, const void* /*base*/) {
    std::string newName;
    const mongo::BSONElement element = object.getField("name");
    if (!element.eoo()) {
        if (element.type() != mongo::String) {
            throw std::invalid_argument("CAlgorithmsParams: member \"name\" is not a text");
        }
        newName = element.str();
    }
    kept = ownedCopy(object);
    name.swap(newName);
}

const mongo::BSONObj& CAlgorithmsParams::content() const {
    return kept;
}

std::string CAlgorithmsParams::contentJson() const {
    return standin::jsonOfObject(kept);
}

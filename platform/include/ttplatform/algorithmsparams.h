#pragma once

#include <mongo/bson/bson.h>

#include <string>

#include "ttplatform/export.h"
#include "ttplatform/idata.h"

// The parameter description of one algorithm, or of all algorithms of one vendor. Keeps the whole object that it was
// filled from and picks out the member "name". Copies share that object, which is never modified.
class TTPLATFORM_API CAlgorithmsParams : public IData {
public:
    // The name, then the content as JSON.
    std::string toLog() const override;

    // Copies the whole object and takes the name from its first member "name"; without one the name becomes empty.
    // Throws std::invalid_argument when that member is not a string.
    void bsonValueFromObj(const mongo::BSONObj& object, bool flag, const void* base) override;

    // What the record was last filled from; the empty object before that.
    const mongo::BSONObj& content() const;

    // The content as one line of JSON: members in their original order, repeated ones included; integers of any width
    // as plain integers, decimal numbers in their shortest form, NaN and the infinities as null. The bytes of strings
    // are passed through unchanged, valid UTF-8 or not. Types that JSON lacks become the nearest one it has: a date is
    // its milliseconds, an object id its hexadecimal text, an undefined value null.
    std::string contentJson() const;

    // The algorithm's name, as the scripts give it.
    std::string name;

private:
    mongo::BSONObj kept;
};

#pragma once

#include <mongo/bson/bson.h>

#include <string>

#include "ttplatform/export.h"
#include "ttplatform/idata.h"

// The parameter description of one algorithm, or of one vendor's algorithms: whatever object it was filled from, kept
// whole, with the member "name" picked out of it. Copies share the object, which nobody changes.
class TTPLATFORM_API CAlgorithmsParams : public IData {
public:
    // The name, then the content as JSON.
    std::string toLog() const override;

    // Keeps an owned copy of the whole object and takes the name from its first member "name"; without one the name
    // becomes empty. Throws std::invalid_argument when that member is not a text.
    void bsonValueFromObj(const mongo::BSONObj& object, bool flag, const void* base) override;

    // What the record was last filled from; the empty object before that.
    const mongo::BSONObj& content() const;

    // The content as JSON text on one line: members in their order, repeated ones included; integers of any width as
    // plain integers, decimal numbers in their shortest form, NaN and the infinities as null. Text bytes are passed
    // on as they are, valid UTF-8 or not. What JSON has no type for is written as its nearest: a date as its
    // milliseconds, an object id as its hexadecimal text, an undefined value as null.
    std::string contentJson() const;

    // The algorithm's name, as the scripts give it.
    std::string name;

private:
    mongo::BSONObj kept;
};

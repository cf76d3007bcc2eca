#pragma once

#include <string>

#include "ttplatform/export.h"

namespace mongo {
class BSONObj;
}

// Base of the platform's record classes.
//
// Thread safety: a record may be read by any number of threads while nobody fills it.
class TTPLATFORM_API IData {
public:
    virtual ~IData();

    // The record as one line of text for the log. Numbers are written with a point, whatever the process's locale.
    virtual std::string toLog() const = 0;

    // Fills the record from the fields of an object; what the object has no field for keeps its value. Throws an
    // exception derived from std::exception when a field cannot be converted, and the record is then as it was.
    // The flag and the base are for records that refer to others; callers here pass true and null. A record type that
    // overrides nothing takes nothing.
    virtual void bsonValueFromObj(const mongo::BSONObj& object, bool flag, const void* base);

protected:
    IData() = default;
    IData(const IData&) = default;
    IData& operator=(const IData&) = default;
};

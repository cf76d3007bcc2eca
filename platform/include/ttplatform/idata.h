#pragma once

#include <string>

#include "ttplatform/export.h"

namespace mongo {
class BSONObj;
}

// Base of the platform's record classes.
//
// Thread safety: any number of threads may read a record while no thread fills it.
class TTPLATFORM_API IData {
public:
    virtual ~IData();

    // The record as one line of text for the log. Numbers are written with a decimal point in every locale.
    virtual std::string toLog() const = 0;

    // Fills the record from the fields of an object; members without a field keep their values. Throws an exception
    // derived from std::exception when a field cannot be converted; the record is then unchanged. flag and base are for
    // records that refer to others; the configuration library passes true and null. The default does nothing.
    virtual void bsonValueFromObj(const mongo::BSONObj& object, bool flag, const void* base);

protected:
    IData() = default;
    IData(const IData&) = default;
    IData& operator=(const IData&) = default;
};

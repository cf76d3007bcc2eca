#pragma once

#include <mongo/bson/bson.h>

#include <string>

namespace standin {

// The object as one line of JSON, by the rules of CAlgorithmsParams::contentJson(). Nesting may be of any depth.
std::string jsonOfObject(const mongo::BSONObj& object);

// The shortest text that reads back as the same number, such as "0.1" or "1e+300"; "nan", "inf" and "-inf" for NaN and
// the infinities.
std::string decimalText(double number);

}  // namespace standin

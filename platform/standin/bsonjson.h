#pragma once

#include <mongo/bson/bson.h>

#include <string>

namespace standin {

// The object as JSON text on one line, by the rules that CAlgorithmsParams::contentJson() states. Takes any depth.
std::string jsonOfObject(const mongo::BSONObj& object);

// The number in its shortest form that reads back as the same number, such as "0.1" or "1e+300"; "nan", "inf" and
// "-inf" for what is no number.
std::string decimalText(double number);

}  // namespace standin

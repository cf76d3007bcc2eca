#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include <mongo/bson/bson.h>

// The one door to the JSON parser. Scripts answer with JSON texts; the parser behind this door takes more than JSON,
// recurses without a limit and reads numbers by the process's locale, so every text is looked over first:
//
//  - an empty text is an empty object;
//  - the text ends at its first NUL byte, and what follows the first complete object is ignored;
//  - nested deeper than kDeepestJson levels, a text is refused;
//  - a name with an escaped NUL in it is refused: the parsed object could not be trusted;
//  - numbers read the same under every locale. Without a point or an exponent, a number that fits is an int, else a
//    long long; everything else is a double. One too small for a double is 0, one too large is refused;
//  - two escapes that are one character together are made that character;
//  - beyond JSON, names without quotes, texts in single quotes, NaN, Infinity, Date(5) and the like are taken.

namespace ttservice::internal {

// Levels of "{", "[" and "(" that may be open at once.
inline constexpr int kDeepestJson = 100;

// Why a text is refused by the look beforehand; what the parser itself refuses is a mongo::DBException. Either way what
// scripts get wrong is an exception derived from std::exception.
struct RefusedJson : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The object or array that the text holds; an array has the names "0", "1" and so on. Throws when it holds neither.
mongo::BSONObj parseJson(const std::string& text);

// The object that the text holds; nothing for an array and for every text that parseJson() throws for. Throws nothing
// but std::bad_alloc.
std::optional<mongo::BSONObj> readJsonObject(const std::string& text);

// The text as the parser gets it: checked as said above, every decimal point worked into the exponent, every number and
// every comma followed by a blank, so that nothing that some locale reads as a decimal sign has digits beside it.
// Throws RefusedJson.
std::string preparedJson(const std::string& text);

}  // namespace ttservice::internal

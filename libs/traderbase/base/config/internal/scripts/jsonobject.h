#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include <mongo/bson/bson.h>

// The only way to the JSON parser. Scripts answer with JSON texts. The parser accepts more than JSON, recurses without
// a limit and reads numbers by the process's locale, so every text is checked first:
//
//  - an empty text is an empty object;
//  - the text ends at its first NUL byte, and anything after the first complete object is ignored;
//  - a text nested deeper than kDeepestJson levels is refused;
//  - a name with an escaped NUL is refused: the parsed object could not be trusted;
//  - numbers read the same under every locale. Without a point or an exponent, a number is an int if it fits, otherwise
//    a long long; every other number is a double. One too small for a double is 0, one too large is refused;
//  - two escapes that form one character are replaced by that character;
//  - beyond JSON, names without quotes, texts in single quotes, NaN, Infinity, Date(5) and the like are accepted.

namespace ttservice::internal {

// How many levels of "{", "[" and "(" may be open at once.
inline constexpr int kDeepestJson = 100;

// Why the check refused a text; the parser's own refusals are mongo::DBException. Both derive from std::exception.
struct RefusedJson : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The object or array in the text; an array has the names "0", "1" and so on. Throws if the text holds neither.
mongo::BSONObj parseJson(const std::string& text);

// The object in the text; nothing for an array and for any text that parseJson() refuses. Throws only std::bad_alloc.
std::optional<mongo::BSONObj> readJsonObject(const std::string& text);

// The text as the parser gets it: checked as described above, with every decimal point folded into the exponent and a
// blank after every number and comma, so that no locale's decimal sign has digits next to it. Throws RefusedJson.
std::string preparedJson(const std::string& text);

}  // namespace ttservice::internal

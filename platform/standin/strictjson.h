#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ttplatform/export.h"

namespace standin {

// A parsed JSON value that keeps its members in the order of the text.
struct JsonValue {
    enum class Kind { kNull, kBoolean, kInteger, kNumber, kText, kList, kObject };

    Kind kind = Kind::kNull;
    std::int64_t integer = 0;  // of an integer; one that does not fit is a kNumber
    std::string text;          // of a text; of a number, as it was written
    std::vector<JsonValue> items;
    std::vector<std::pair<std::string, JsonValue>> members;
};

// A member's path grown by one step: "stockTypes" + 3 is "stockTypes[3]", "rights" + "a" is "rights.a".
std::string pathWithIndex(const std::string& path, std::size_t index);
std::string pathWithName(const std::string& path, std::string_view name);

// A piece of somebody else's text made fit for a message: control characters shown as \u00XX, cut when long.
TTPLATFORM_API std::string shownInMessage(std::string_view text);

// Parses JSON text and nothing else: no comments, no text behind the value; a byte order mark is skipped. Lists and
// objects may be nested 32 deep, and an object may not give one member twice. On false, problem says what is wrong and
// where: "line 4, column 17: not JSON: ..." (columns count bytes), or "rights.a: given twice".
bool parseStrictJson(std::string_view text, JsonValue& value, std::string& problem);

}  // namespace standin

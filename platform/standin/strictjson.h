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
    std::int64_t integer = 0;  // the value of an integer; one that does not fit is a kNumber
    std::string text;          // the value of a text; a number as it was written
    std::vector<JsonValue> items;
    std::vector<std::pair<std::string, JsonValue>> members;
};

// Extends a path by one step: "stockTypes" + 3 is "stockTypes[3]", "rights" + "a" is "rights.a".
std::string pathWithIndex(const std::string& path, std::size_t index);
std::string pathWithName(const std::string& path, std::string_view name);

// Foreign text made safe for a message: control characters become \u00XX, and long text is cut.
TTPLATFORM_API std::string shownInMessage(std::string_view text);

// Parses strict JSON: no comments and no text after the value; a byte order mark is skipped. Lists and objects may be
// nested 32 levels deep, and an object may not contain a member twice. On false, problem says what is wrong and where:
// "line 4, column 17: not JSON: ..." (columns count bytes), or "rights.a: given twice".
bool parseStrictJson(std::string_view text, JsonValue& value, std::string& problem);

}  // namespace standin

// Writes BSON objects as plain JSON.
// Entry points: jsonOfObject(), decimalText().
// Test: tests/platform/records_test.cpp
#include "standin/bsonjson.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <vector>

namespace standin {

namespace {

void appendText(std::string& json, std::string_view text) {
    constexpr std::string_view kHexDigits = "0123456789abcdef";
    json += '"';
    for (const char character : text) {
        const unsigned char byte = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\') {
            json += '\\';
            json += character;
        } else if (character == '\n') {
            json += "\\n";
        } else if (character == '\r') {
            json += "\\r";
        } else if (character == '\t') {
            json += "\\t";
        } else if (byte < 0x20) {
            json += "\\u00";
            json += kHexDigits[byte >> 4];
            json += kHexDigits[byte & 0x0F];
        } else {
            json += character;
        }
    }
    json += '"';
}

// Strings may contain NULs; BSON's length includes the terminating one.
std::string_view textOf(const mongo::BSONElement& element) {
    return std::string_view(element.valuestr(), static_cast<std::size_t>(element.valuestrsize()) - 1);
}

void appendDecimal(std::string& json, double number) {
    if (!std::isfinite(number)) {
        json += "null";
        return;
    }
    const std::string text = decimalText(number);
    json += text;
    // A whole number keeps its ".0", so that readers keep its type.
    if (text.find_first_not_of("-0123456789") == std::string::npos) json += ".0";
}

// Appends any value except objects and arrays.
void appendScalar(std::string& json, const mongo::BSONElement& element) {
    switch (element.type()) {
        case mongo::NumberInt:
            json += std::to_string(element._numberInt());
            break;
        case mongo::NumberLong:
            json += std::to_string(element._numberLong());
            break;
        case mongo::NumberDouble:
            appendDecimal(json, element._numberDouble());
            break;
        case mongo::Bool:
            json += element.boolean() ? "true" : "false";
            break;
        case mongo::String:
        case mongo::Symbol:
        case mongo::Code:
            appendText(json, textOf(element));
            break;
        case mongo::jstOID:
            appendText(json, element.OID().toString());
            break;
        case mongo::Date:
            json += std::to_string(static_cast<long long>(element.date().millis));
            break;
        case mongo::RegEx:
            appendText(json, element.regex());
            break;
        default:
            json += "null";
            break;
    }
}

struct OpenContainer {
    mongo::BSONObjIterator rest;
    bool isArray;
    bool isFirst;
};

}  // namespace

std::string jsonOfObject(const mongo::BSONObj& object) {
    std::string json = "{";
    // An explicit stack rather than recursion: scripts control how deeply their answers are nested.
    std::vector<OpenContainer> open{{mongo::BSONObjIterator(object), false, true}};
    while (!open.empty()) {
        OpenContainer& inner = open.back();
        if (!inner.rest.more()) {
            json += inner.isArray ? ']' : '}';
            open.pop_back();
            continue;
        }
        const mongo::BSONElement element = inner.rest.next();
        if (!inner.isFirst) json += ',';
        inner.isFirst = false;
        if (!inner.isArray) {
            appendText(json, std::string_view(element.fieldName()));
            json += ':';
        }
        if (element.isABSONObj()) {
            const bool isArray = element.type() == mongo::Array;
            json += isArray ? '[' : '{';
            open.push_back({mongo::BSONObjIterator(element.embeddedObject()), isArray, true});
        } else {
            appendScalar(json, element);
        }
    }
    return json;
}

std::string decimalText(double number) {
    std::array<char, 32> digits{};
    const std::to_chars_result result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return std::string(digits.data(), result.ptr);
}

}  // namespace standin

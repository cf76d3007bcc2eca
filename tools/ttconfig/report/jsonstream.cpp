// JSON for a script element: writes any text so that it cannot become markup of the page.
// Entry points: JsonStream, markupText().
// Owns: a buffer between the writer and the file.
// Covered by tests/tools/ttconfig/report/jsonstream_test.cpp.

#include "ttconfig/report/jsonstream.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "ttconfig/text/utf8.h"

namespace ttconfig {

namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
// Members and elements start a new line down to this depth.
constexpr int kLineDepth = 2;

unsigned byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

// Calls sink(character) for every character; a byte that is not UTF-8 becomes the replacement character.
template <typename Sink>
void forEachCharacter(std::string_view text, Sink&& sink) {
    while (!text.empty()) {
        const std::size_t length = utf8Length(text);
        sink(length == 0 ? kReplacement : text.substr(0, length));
        text.remove_prefix(length == 0 ? 1 : length);
    }
}

bool isPlain(unsigned byte) {
    return byte >= 0x20U && byte < 0x7FU && byte != '"' && byte != '\\' && byte != '<' && byte != '>' && byte != '&';
}

// "\u003c" and the like, for characters that must not appear as they are.
std::string escape(unsigned code) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text = "\\u0000";
    for (std::size_t i = 5; i > 1; --i, code >>= 4U)
        text[i] = kDigits[code & 0xFU];
    return text;
}

}  // namespace

std::string markupText(std::string_view text) {
    std::string markup;
    forEachCharacter(text, [&markup](std::string_view character) {
        switch (character.front()) {
            case '&':
                markup += "&amp;";
                break;
            case '<':
                markup += "&lt;";
                break;
            case '>':
                markup += "&gt;";
                break;
            case '"':
                markup += "&quot;";
                break;
            case '\'':
                markup += "&#39;";
                break;
            default:
                markup += character;
        }
    });
    return markup;
}

JsonStream::JsonStream(Sink whereTo) : sink(std::move(whereTo)) {}

void JsonStream::name(std::string_view memberName) {
    separate();
    put("\"");
    putEscaped(memberName);
    put("\":");
    followsName = true;
}

void JsonStream::text(std::string_view value) {
    separate();
    put("\"");
    putEscaped(value);
    put("\"");
}

void JsonStream::integer(std::int64_t value) {
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    written({digits.data(), static_cast<std::size_t>(end.ptr - digits.data())});
}

void JsonStream::decimal(double value) {
    std::array<char, 40> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    const std::string_view shortest(digits.data(), static_cast<std::size_t>(end.ptr - digits.data()));
    if (std::isfinite(value)) return written(shortest);
    text(shortest);
}

void JsonStream::flag(bool value) {
    written(value ? "true" : "false");
}

void JsonStream::null() {
    written("null");
}

void JsonStream::written(std::string_view json) {
    separate();
    put(json);
}

void JsonStream::flush() {
    if (!buffer.empty()) sink(buffer);
    buffer.clear();
}

void JsonStream::begin(char bracket) {
    separate();
    put({&bracket, 1});
    ++depth;
    needsComma = false;
}

void JsonStream::end(char bracket) {
    put({&bracket, 1});
    --depth;
    needsComma = true;
}

// Writes the comma and the line end that belong before a value or a name.
void JsonStream::separate() {
    if (!followsName && needsComma) put(",");
    if (!followsName && depth > 0 && depth <= kLineDepth) put("\n");
    followsName = false;
    needsComma = true;
}

void JsonStream::put(std::string_view piece) {
    if (buffer.size() + piece.size() > kBufferSize) flush();
    if (piece.size() > kBufferSize) return sink(piece);
    buffer += piece;
}

void JsonStream::putEscaped(std::string_view value) {
    while (!value.empty()) {
        std::size_t plain = 0;
        while (plain < value.size() && isPlain(byteAt(value, plain)))
            ++plain;
        put(value.substr(0, plain));
        value.remove_prefix(plain);
        if (value.empty()) return;
        const std::size_t length = utf8Length(value);
        const unsigned lead = byteAt(value, 0);
        if (length == 0) {
            put(kReplacement);
        } else if (length == 1) {
            put(escape(lead));
        } else {
            put(value.substr(0, length));
        }
        value.remove_prefix(length == 0 ? 1 : length);
    }
}

}  // namespace ttconfig

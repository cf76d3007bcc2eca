// Causes: finds what is wrong with the characters of a piece, whatever its purpose.
// Entry points: causeIn(), inAscii(), isPlain().
// Covered by tests/tools/ttconfig/findings/findingparts_test.cpp.

#include "ttconfig/advice/causes.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

#include "ttconfig/text/showntext.h"
#include "ttconfig/text/utf8.h"

namespace ttconfig {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

unsigned char byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

std::uint32_t codePoint(std::string_view character) {
    std::size_t at = 0;
    return character.size() == 1 ? byteAt(character, 0) : characterAt(character, at);
}

// Full-width ASCII, the ideographic comma and full stop, and the dashes that word processors use in place of "-".
bool isLookAlike(std::uint32_t code) {
    return (code >= 0xFF01 && code <= 0xFF5E) || code == 0x3001 || code == 0x3002 ||
           (code >= 0x2010 && code <= 0x2015) || code == 0x2212;
}

bool isInvisible(std::uint32_t code) {
    return (code < 0x20 && code != '\t') || (code >= 0x7F && code <= 0xA0) || code == 0xAD || code == 0x180E ||
           (code >= 0x2000 && code <= 0x200F) || (code >= 0x2028 && code <= 0x202F) ||
           (code >= 0x205F && code <= 0x2064) || code == 0x3000 || code == 0xFEFF;
}

std::string asciiFor(std::uint32_t code) {
    if (code >= 0xFF01 && code <= 0xFF5E) return std::string(1, static_cast<char>(code - 0xFF01 + '!'));
    if (code == 0x3001) return ",";
    return code == 0x3002 ? "." : "-";
}

std::string invisibleName(std::uint32_t code) {
    if (code == 0xA0) return "a no-break space";
    if (code == 0x3000) return "an ideographic space";
    if (code == 0xFEFF) return "a byte order mark";
    return fmt::format(code < 0xA0 ? "a control character (U+{:04X})" : "an invisible character (U+{:04X})", code);
}

std::optional<Cause> causeOf(std::string_view character, FullWidth fullWidth) {
    const std::uint32_t code = codePoint(character);
    if (isInvisible(code)) return Cause{RuleId::InvisibleCharacter, character, invisibleName(code) + " stands here"};
    if (fullWidth == FullWidth::Fine || !isLookAlike(code)) return std::nullopt;
    return Cause{RuleId::FullWidthCharacter, character,
                 fmt::format("{} stands where an ASCII {} belongs", shownText(character), shownText(asciiFor(code)))};
}

}  // namespace

std::optional<Cause> causeIn(std::string_view piece, FullWidth fullWidth) {
    if (piece.empty()) return std::nullopt;
    if (isBlank(piece.front())) return Cause{RuleId::BlankInList, piece.substr(0, 1), "a blank stands here"};
    for (std::size_t at = 0; at < piece.size();) {
        const std::size_t length = utf8Length(piece.substr(at));
        if (length == 0) {
            return Cause{RuleId::NotUtf8, piece.substr(at, 1),
                         fmt::format("the byte {:02X} is not UTF-8", byteAt(piece, at))};
        }
        if (auto cause = causeOf(piece.substr(at, length), fullWidth)) return cause;
        at += length;
    }
    if (isBlank(piece.back())) return Cause{RuleId::BlankInList, piece.substr(piece.size() - 1), "a blank stands here"};
    return std::nullopt;
}

std::string inAscii(std::string_view text) {
    std::string ascii;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = utf8Length(text.substr(at));
        const std::string_view character = text.substr(at, std::max<std::size_t>(length, 1));
        const bool isOdd = length > 1 && isLookAlike(codePoint(character));
        ascii += isOdd ? asciiFor(codePoint(character)) : std::string(character);
        at += character.size();
    }
    return ascii;
}

bool isPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < '\x7F'; });
}

}  // namespace ttconfig

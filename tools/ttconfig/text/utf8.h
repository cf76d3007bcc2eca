#pragma once

#include <cstddef>
#include <string_view>

namespace ttconfig {

// Whether the byte belongs to a UTF-8 character but is not its first.
inline bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// The length of the UTF-8 character at the start of a text that is not empty; 0 when no valid character starts there.
inline std::size_t utf8Length(std::string_view text) {
    const auto byteAt = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned char first = byteAt(0);
    if (first < 0x80) return 1;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if (!continuesCharacter(text[i])) return 0;
    }
    // Overlong forms, surrogates and values beyond the last code point are not valid.
    const unsigned char second = byteAt(1);
    const bool isOdd = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                       (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
    return isOdd ? 0 : length;
}

inline bool isUtf8(std::string_view text) {
    for (std::size_t length = 0; !text.empty(); text.remove_prefix(length)) {
        length = utf8Length(text);
        if (length == 0) return false;
    }
    return true;
}

// The character that starts at this byte; moves at to the next one. Bytes that are not UTF-8 stand for themselves.
inline char32_t characterAt(std::string_view text, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(text[at++]);
    int more = lead >= 0xF8 ? 0 : lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    char32_t character = more == 0 ? lead : static_cast<char32_t>(lead & (0x3FU >> more));
    while (more-- > 0 && at < text.size() && continuesCharacter(text[at]))
        character = (character << 6U) | (static_cast<unsigned char>(text[at++]) & 0x3FU);
    return character;
}

}  // namespace ttconfig

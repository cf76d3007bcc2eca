#pragma once

#include <cstddef>
#include <string_view>

namespace ttconfig {

// The length of the UTF-8 character at the start of a text that is not empty; 0 when no valid character starts there.
inline std::size_t utf8Length(std::string_view text) {
    const auto byteAt = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned char first = byteAt(0);
    if (first < 0x80) return 1;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xC0U) != 0x80U) return 0;
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

}  // namespace ttconfig

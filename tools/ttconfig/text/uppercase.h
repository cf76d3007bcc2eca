#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace ttconfig {

// Compares and hashes texts as if they were in upper case, without copying them. Only ASCII letters change, as in limit
// tables.

inline char upperLetter(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

// Negative, zero or positive; compares bytes.
inline int compareUpper(std::string_view left, std::string_view right) {
    const std::size_t shared = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < shared; ++i) {
        if (left[i] == right[i]) continue;
        const auto one = static_cast<unsigned char>(upperLetter(left[i]));
        const auto other = static_cast<unsigned char>(upperLetter(right[i]));
        if (one != other) return one < other ? -1 : 1;
    }
    return left.size() == right.size() ? 0 : (left.size() < right.size() ? -1 : 1);
}

inline bool isSameUpper(std::string_view left, std::string_view right) {
    return left.size() == right.size() && compareUpper(left, right) == 0;
}

inline std::size_t upperHash(std::string_view text) {
    std::size_t hash = 0xCBF29CE484222325U;
    for (const char letter : text)
        hash = (hash ^ static_cast<unsigned char>(upperLetter(letter))) * 0x100000001B3U;
    return hash;
}

}  // namespace ttconfig

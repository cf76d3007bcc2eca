#pragma once

#include <string>
#include <string_view>

// Two texts treated as one, to look up "head followed by tail" without building it.

namespace ttservice::internal {

struct JoinedText {
    std::string_view head;
    std::string_view tail;
};

inline std::string textOf(const JoinedText& joined) {
    return std::string(joined.head).append(joined.tail);
}

// Negative, zero or positive, as the text comes before, equals or comes after the joined one in byte order.
inline int compare(std::string_view text, const JoinedText& joined) {
    const int atHead = text.substr(0, joined.head.size()).compare(joined.head);
    return atHead != 0 ? atHead : text.substr(joined.head.size()).compare(joined.tail);
}

// Byte order of texts, for maps that are also searched by a JoinedText.
struct JoinedTextLess {
    using is_transparent = void;

    bool operator()(std::string_view left, std::string_view right) const { return left < right; }
    bool operator()(std::string_view left, const JoinedText& right) const { return compare(left, right) < 0; }
    bool operator()(const JoinedText& left, std::string_view right) const { return compare(right, left) > 0; }
};

}  // namespace ttservice::internal

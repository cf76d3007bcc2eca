#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

// The three ways to split settings at a separator. Pieces are views into the original text, so callers can compute
// where in the value a piece stands.

namespace ttservice::internal {

// Every piece between separators, empty ones included: "a;;b" gives a, "", b, and "" gives one empty piece.
template <typename Sink>
void splitKeepEmpty(std::string_view text, char separator, Sink&& sink) {
    std::size_t from = 0;
    for (std::size_t at = text.find(separator); at != std::string_view::npos; at = text.find(separator, from)) {
        sink(text.substr(from, at - from));
        from = at + 1;
    }
    sink(text.substr(from));
}

// The non-empty pieces: "12,,15," gives 12, 15, and "" gives nothing.
template <typename Sink>
void splitDropEmpty(std::string_view text, char separator, Sink&& sink) {
    splitKeepEmpty(text, separator, [&sink](std::string_view piece) {
        if (!piece.empty()) sink(piece);
    });
}

// A run of separators counts as one, but a separator at either end still produces an empty piece there: ";a;;b" gives
// "", a, b, and "" gives one empty piece.
template <typename Sink>
void splitSqueezed(std::string_view text, char separator, Sink&& sink) {
    std::size_t from = 0;
    for (std::size_t at = text.find(separator); at != std::string_view::npos; at = text.find(separator, from)) {
        sink(text.substr(from, at - from));
        from = text.find_first_not_of(separator, at);
        if (from == std::string_view::npos) from = text.size();
    }
    sink(text.substr(from));
}

// All pieces, empty ones included.
std::vector<std::string_view> pieces(std::string_view text, char separator);

// Whether the text has exactly Count pieces, including empty ones; if so, stores them.
template <std::size_t Count>
bool piecesExactly(std::string_view text, char separator, std::array<std::string_view, Count>& fields) {
    std::size_t found = 0;
    splitKeepEmpty(text, separator, [&](std::string_view piece) {
        if (found < Count) fields[found] = piece;
        ++found;
    });
    return found == Count;
}

}  // namespace ttservice::internal

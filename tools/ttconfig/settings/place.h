#pragma once

#include <standin/settingstext.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace ttconfig {

// A place in a settings file. Line and column count from 1; columns count bytes, as in SettingsText.
struct Place {
    std::uint32_t line = 0;
    std::uint32_t column = 0;
};

constexpr bool operator==(const Place& left, const Place& right) {
    return left.line == right.line && left.column == right.column;
}
constexpr bool operator!=(const Place& left, const Place& right) {
    return !(left == right);
}
// In file order.
constexpr bool operator<(const Place& left, const Place& right) {
    return left.line != right.line ? left.line < right.line : left.column < right.column;
}

inline Place keyPlace(const standin::SettingsEntry& entry) {
    return {entry.line, entry.keyColumn};
}
inline Place valuePlace(const standin::SettingsEntry& entry) {
    return {entry.line, entry.valueColumn};
}

// The place of a piece of the entry's key.
inline Place placeInKey(const standin::SettingsEntry& entry, std::string_view piece) {
    return {entry.line, entry.keyColumn + static_cast<std::uint32_t>(piece.data() - entry.key.data())};
}
// The place of a piece of the entry's value. An empty piece has a place too, as long as it is a view into the value.
inline Place placeInValue(const standin::SettingsEntry& entry, std::string_view piece) {
    return {entry.line, entry.valueColumn + static_cast<std::uint32_t>(piece.data() - entry.value.data())};
}

// The line that contains a view into the text, without its end.
inline std::string_view lineAround(const standin::SettingsText& text, std::string_view view) {
    const std::string_view bytes = text.bytes();
    const auto at = static_cast<std::size_t>(view.data() - bytes.data());
    const std::size_t before = at == 0 ? std::string_view::npos : bytes.rfind('\n', at - 1);
    const std::size_t start = before == std::string_view::npos ? 0 : before + 1;
    const std::size_t end = bytes.find('\n', at);
    std::string_view line = bytes.substr(start, end == std::string_view::npos ? end : end - start);
    if (end != std::string_view::npos && !line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

// The lines of a text by number, for many look-ups. Valid as long as the text.
class LineTexts {
public:
    explicit LineTexts(const standin::SettingsText& text) {
        std::string_view rest = text.bytes();
        while (!rest.empty()) {
            const std::size_t end = rest.find('\n');
            std::string_view line = rest.substr(0, end);
            if (end != std::string_view::npos && !line.empty() && line.back() == '\r') line.remove_suffix(1);
            lines.push_back(line);
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        }
    }

    // The line without its end; empty when there is no such line.
    std::string_view operator[](std::uint32_t number) const {
        return number == 0 || number > lines.size() ? std::string_view() : lines[number - 1];
    }

private:
    std::vector<std::string_view> lines;
};

// One line by its number. Scans the text from its start.
inline std::string_view lineOf(const standin::SettingsText& text, std::uint32_t number) {
    std::string_view rest = text.bytes();
    for (std::uint32_t line = 1; line < number && !rest.empty(); ++line) {
        const std::size_t end = rest.find('\n');
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return rest.empty() ? rest : lineAround(text, rest.substr(0, 0));
}

}  // namespace ttconfig

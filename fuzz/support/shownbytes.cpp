// The bytes of displayed texts, for the targets that parse the tool's output.

#include "fuzz/support/shownbytes.h"

#include <nlohmann/json.hpp>

#include "fuzz/support/target.h"

namespace fuzz {

std::size_t characterLength(std::string_view text) {
    if (text.empty()) return 0;
    const unsigned first = static_cast<unsigned char>(text[0]);
    if (first < 0x80) return 1;
    if (first < 0xC0 || first >= 0xF8) return 0;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (text.size() < length) return 0;
    unsigned code = first & (0x7FU >> length);
    for (std::size_t at = 1; at < length; ++at) {
        const unsigned byte = static_cast<unsigned char>(text[at]);
        if ((byte & 0xC0U) != 0x80U) return 0;
        code = (code << 6U) | (byte & 0x3FU);
    }
    static constexpr unsigned kLeast[] = {0x80, 0x800, 0x10000};
    const bool isSurrogate = code >= 0xD800 && code < 0xE000;
    return code < kLeast[length - 2] || code > 0x10FFFF || isSurrogate ? 0 : length;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::size_t utf16Column(std::string_view line, std::size_t bytesBefore) {
    std::size_t column = 1;
    for (std::size_t at = 0; at < bytesBefore;) {
        const std::size_t length = at < line.size() ? characterLength(line.substr(at)) : 0;
        at += length == 0 ? 1 : length;
        column += length == 4 ? 2 : 1;
    }
    return column;
}

std::string replacedText(const std::string& text) {
    using Json = nlohmann::json;
    return Json::parse(Json(text).dump(-1, ' ', false, Json::error_handler_t::replace)).get<std::string>();
}

std::string plainText(const std::string& text) {
    std::string plain;
    const std::string valid = replacedText(text);
    for (std::size_t at = 0; at < valid.size();) {
        const std::size_t length = characterLength(std::string_view(valid).substr(at));
        const std::string character = valid.substr(at, length);
        plain += character != "\t" && hasControls(character) ? "?" : character;
        at += length;
    }
    return plain;
}

std::vector<std::string> endedLines(std::string_view text) {
    std::vector<std::string> lines;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    require(text.empty(), "what is written ends with its last line", text);
    return lines;
}

std::string withoutColours(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const std::size_t start = std::min(text.find("\x1b["), text.size());
        plain += text.substr(0, start);
        text.remove_prefix(start);
        if (text.empty()) break;
        const std::size_t end = text.find_first_not_of("0123456789;", 2);
        require(end != std::string_view::npos && text[end] == 'm', "an escape sequence is a colour", text);
        text.remove_prefix(end + 1);
    }
    return plain;
}

}  // namespace fuzz

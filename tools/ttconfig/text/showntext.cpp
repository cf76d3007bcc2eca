// Shown text: formats values for messages.
// Entry points: shownText(), shownJson(), cutText(), onOneLine(), visibleText(), withReplacedBytes().
// Covered by tests/tools/ttconfig/text/text_test.cpp.

#include "ttconfig/text/showntext.h"

#include <algorithm>

#include "ttconfig/text/utf8.h"

namespace ttconfig {

namespace {

constexpr std::size_t kMostShownBytes = 60;

bool isControl(char byte) {
    return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
}

// Whether the text needs no escapes in JSON.
bool isSimple(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c >= ' ' && c < '\x7F' && c != '"' && c != '\\'; });
}

// Whether a control character beyond ASCII (U+0080 to U+009F) starts there; terminals obey these as well.
bool isWideControlAt(std::string_view text, std::size_t at) {
    return text[at] == '\xC2' && at + 1 < text.size() && (static_cast<unsigned char>(text[at + 1]) & 0xE0U) == 0x80U;
}

// Escapes U+007F to U+009F, which the JSON library leaves as they are.
std::string withEscapedControls(const std::string& json) {
    constexpr std::string_view kHexDigits = "0123456789abcdef";
    std::string escaped;
    for (std::size_t at = 0; at < json.size(); ++at) {
        const bool isWide = isWideControlAt(json, at);
        if (!isWide && json[at] != '\x7F') {
            escaped += json[at];
            continue;
        }
        const auto code = static_cast<unsigned char>(json[isWide ? ++at : at]);
        escaped.append("\\u00").append({kHexDigits[code >> 4U], kHexDigits[code & 0x0FU]});
    }
    return escaped;
}

}  // namespace

std::string withReplacedBytes(const std::string& text) {
    if (isUtf8(text)) return text;
    // The JSON library replaces invalid UTF-8 only when it writes, so write the text and read it back.
    const std::string written = Argument(text).dump(-1, ' ', false, Argument::error_handler_t::replace);
    return Argument::parse(written).get<std::string>();
}

std::string onOneLine(std::string text) {
    std::replace_if(text.begin(), text.end(), isControl, '?');
    if (!isUtf8(text)) text = withReplacedBytes(text);
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (isWideControlAt(text, at)) text.replace(at, 2, 1, '?');
    }
    return text;
}

std::string visibleText(std::string_view text) {
    const bool isPlain = std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c < '\x7F'; });
    if (isPlain) return std::string(text);
    std::string shown;
    const std::string valid = withReplacedBytes(std::string(text));
    for (std::size_t at = 0; at < valid.size(); ++at) {
        // Quotes and backslashes stay as they are; a control character becomes its JSON escape.
        const bool isWide = isWideControlAt(valid, at);
        if (!isWide && !isControl(valid[at])) {
            shown += valid[at];
            continue;
        }
        const std::string escape = withEscapedControls(Argument(valid.substr(at, isWide ? 2 : 1)).dump());
        shown.append(escape, 1, escape.size() - 2);
        if (isWide) ++at;
    }
    return shown;
}

std::string cutText(std::string_view text, std::size_t mostBytes) {
    if (text.size() <= mostBytes) return std::string(text);
    std::size_t end = mostBytes;
    // Never cut inside a character.
    while (end > 0 && continuesCharacter(text[end]))
        --end;
    return std::string(text.substr(0, end)) + "...";
}

std::string shownText(std::string_view text) {
    if (text.size() <= kMostShownBytes && isSimple(text)) return '"' + std::string(text) + '"';
    return withEscapedControls(
        Argument(cutText(text, kMostShownBytes)).dump(-1, ' ', false, Argument::error_handler_t::replace));
}

std::string shownJson(const Argument& value) {
    if (value.is_string()) return shownText(value.get_ref<const std::string&>());
    if (value.is_array()) return "an array";
    if (value.is_object()) return "an object";
    return value.dump();
}

}  // namespace ttconfig

// Shown text: answers how a value looks in a message.
// Doors: shownText(), shownJson(), cutText(), withReplacedBytes().
// Owns: nothing.
// Covered by tests/tools/ttconfig/text_test.cpp.

#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

constexpr std::size_t kMostShownBytes = 60;

}  // namespace

std::string withReplacedBytes(const std::string& text) {
    // The JSON library knows UTF-8: its replacement is made while writing, so it is written and read back.
    const std::string written = Argument(text).dump(-1, ' ', false, Argument::error_handler_t::replace);
    return Argument::parse(written).get<std::string>();
}

std::string cutText(std::string_view text, std::size_t mostBytes) {
    if (text.size() <= mostBytes) return std::string(text);
    std::size_t end = mostBytes;
    // Not between the bytes of one character.
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        --end;
    return std::string(text.substr(0, end)) + "...";
}

std::string shownText(std::string_view text) {
    return Argument(cutText(text, kMostShownBytes)).dump(-1, ' ', false, Argument::error_handler_t::replace);
}

std::string shownJson(const Argument& value) {
    if (value.is_string()) return shownText(value.get_ref<const std::string&>());
    if (value.is_array()) return "an array";
    if (value.is_object()) return "an object";
    return value.dump();
}

}  // namespace ttconfig

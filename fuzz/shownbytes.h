#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

// The bytes of texts that are shown, worked out slowly and apart from the tool.

// How many bytes the character that the text begins with has; 0 where no UTF-8 begins it.
std::size_t characterLength(std::string_view text);

bool isUtf8(std::string_view text);

// The column in UTF-16 code units, from 1, behind so many bytes of the line; a byte that is not UTF-8 counts as one.
std::size_t utf16Column(std::string_view line, std::size_t bytesBefore);

// The text with U+FFFD for what is not UTF-8, as the JSON library replaces it.
std::string replacedText(const std::string& text);

// The same with a "?" for each control character but the tab.
std::string plainText(const std::string& text);

// The lines in front of each LF; what stands behind the last one has to be nothing.
std::vector<std::string> endedLines(std::string_view text);

// The text without what switches colours on and off.
std::string withoutColours(std::string_view text);

}  // namespace fuzz

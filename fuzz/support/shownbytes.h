#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

// The bytes of displayed texts, computed slowly and independently of the tool.

// The length in bytes of the first character of the text; 0 if the text does not start with valid UTF-8.
std::size_t characterLength(std::string_view text);

bool isUtf8(std::string_view text);

// The column, in UTF-16 code units from 1, after the given number of bytes; a byte that is not UTF-8 counts as one.
std::size_t utf16Column(std::string_view line, std::size_t bytesBefore);

// The text with invalid UTF-8 replaced by U+FFFD, as the JSON library does it.
std::string replacedText(const std::string& text);

// The same, with a "?" for each control character except the tab.
std::string plainText(const std::string& text);

// The lines, each of which must end with LF; no text may follow the last one.
std::vector<std::string> endedLines(std::string_view text);

// The text without colour escape sequences.
std::string withoutColours(std::string_view text);

}  // namespace fuzz

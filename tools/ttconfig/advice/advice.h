#pragma once

#include <string>
#include <string_view>

namespace ttconfig {

// Guesses what the author of an ineffective piece of a value meant, if its characters show it. A proposal, written in
// place of the piece, does what it appears to do.

enum class NumberKind { Integer, Long, Decimal };

// The number meant by a text that the library does not read as that number: 1000000 for 1e6, 1,000,000 or 100万, 16 for
// 0x10, 0.9 for 90% or 0,9, and 12 for full-width digits. Empty when the meaning is unclear or the number does not fit:
// an Integer has 32 bits, a Long 64.
std::string numberMeant(std::string_view text, NumberKind kind);

// "1" for true, on, yes and similar words, "0" for their opposites; empty for anything else.
std::string_view flagMeant(std::string_view text);

// The whole number inside brackets, quotes or other signs; for any other text, the same as numberMeant().
std::string wholeNumberIn(std::string_view text);

// The market and code or category meant by an item without "-": SH-600000 for SH600000, SH.600000 or 600000.SH; empty
// when the item contains no known market.
std::string limitItemMeant(std::string_view text);

// The code after a known market and a "-" or ":"; empty for any other text.
std::string_view codeBehindMarket(std::string_view text);

// The text without surrounding blanks.
std::string_view withoutBlanks(std::string_view text);

// The text with each of the signs replaced by sign.
std::string withSigns(std::string_view text, std::string_view signs, char sign);

// "; write TEXT" with the text in quotes; "; OTHERWISE" when the text is empty or too long to read.
std::string orWrite(std::string_view text, std::string_view otherwise);

}  // namespace ttconfig

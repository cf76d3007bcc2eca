#pragma once

#include <string>
#include <string_view>

namespace ttconfig {

// Guesses what an ineffective piece of a value was meant to be, where its characters show it. Written instead, a
// proposal has the effect that it appears to have.

enum class NumberKind { Integer, Long, Decimal };

// The number that a text means although it is not written as one: 1000000 for 1e6, 1,000,000 or 100万, 16 for 0x10, 0.9
// for 90% or 0,9, and 12 for full-width digits; empty when that is unclear or does not fit. An Integer has 32 bits, a
// Long 64.
std::string numberMeant(std::string_view text, NumberKind kind);

// "1" for true, on, yes and similar words, "0" for their opposites; empty for anything else.
std::string_view flagMeant(std::string_view text);

// The whole number inside brackets, quotes or other signs; for other texts the same as numberMeant().
std::string wholeNumberIn(std::string_view text);

// The market and code or category that an item without "-" means: SH-600000 for SH600000, SH.600000 or 600000.SH; empty
// when it contains no known market.
std::string limitItemMeant(std::string_view text);

// The code that follows a known market and a "-" or ":"; empty for any other text.
std::string_view codeBehindMarket(std::string_view text);

// The text without surrounding blanks.
std::string_view withoutBlanks(std::string_view text);

// The text with each of the signs replaced by sign.
std::string withSigns(std::string_view text, std::string_view signs, char sign);

// "; write TEXT" with the text in quotes. Returns otherwise when the text is empty or too long to read.
std::string orWrite(std::string_view text, std::string_view otherwise);

}  // namespace ttconfig

#pragma once

#include <string>
#include <string_view>

namespace ttconfig {

// What a piece that does not do its work was meant to be, where its characters show it. Whatever is proposed here does
// what it looks like when it is written instead.

enum class NumberKind { Integer, Long, Decimal };

// The number that a text means and is not: 1000000 for 1e6, 1,000,000 or 100万, 16 for 0x10, 0.9 for 90% or 0,9, and
// 12 for full-width digits; empty where it is not clear, or does not fit. An Integer has 32 bits, a Long 64.
std::string numberMeant(std::string_view text, NumberKind kind);

// "1" for true, on, yes and their like, "0" for their opposites; empty for anything else.
std::string_view flagMeant(std::string_view text);

// The whole number that a piece with brackets, quotes or other signs around it means; as numberMeant() otherwise.
std::string wholeNumberIn(std::string_view text);

// The market and code or category that an item without "-" means: SH-600000 for SH600000, SH.600000 or 600000.SH;
// empty where no known market is in it.
std::string limitItemMeant(std::string_view text);

// The code of a text that is a known market, "-" or ":", and a code; empty for any other text.
std::string_view codeBehindMarket(std::string_view text);

// The text without the blanks around it.
std::string_view withoutBlanks(std::string_view text);

// The text with every one of these signs replaced.
std::string withSigns(std::string_view text, std::string_view signs, char sign);

// "; write TEXT" with the text in quotes; the other words where the text is empty or too long to be read.
std::string orWrite(std::string_view text, std::string_view otherwise);

}  // namespace ttconfig

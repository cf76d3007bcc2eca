#pragma once

#include <string>
#include <string_view>

#include "ttconfig/findings/remarks.h"

namespace ttconfig {

// Numbers in pieces of a value. Each answers whether the piece is a number as a whole; if not, it has said so.

enum class LooseKind { Integer, Long, Decimal };

// A field that is read as the C library reads numbers. role names what it is, such as "the limit".
bool checkLooseNumber(EntryRemarks& remarks, std::string_view field, LooseKind kind, std::string_view role);

// A platform ID that has to be one as a whole; the consequence tells what becomes of the piece when it is not.
bool checkPlatformId(EntryRemarks& remarks, std::string_view piece, std::string_view consequence);

// A flag that a row holds: 1 is yes, every other number no.
void checkLooseFlag(EntryRemarks& remarks, std::string_view field, std::string_view role);

// A field that is a number: whether it is below what can be meant.
void checkLeast(EntryRemarks& remarks, std::string_view field, double least, std::string_view consequence);

// A sign and digits, of whatever length.
bool isWholeNumber(std::string_view text);
// Whole numbers between separators, at least two.
bool isNumberList(std::string_view text, std::string_view separators);

}  // namespace ttconfig

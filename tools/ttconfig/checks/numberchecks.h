#pragma once

#include <string>
#include <string_view>

#include "ttconfig/advice/advice.h"
#include "ttconfig/checks/remarks.h"

namespace ttconfig {

// Numbers in pieces of a value. Each answers whether the piece is a number as a whole; if not, it has said so.

// A field that is read as the C library reads numbers. role names what it is, such as "the limit".
bool checkLooseNumber(EntryRemarks& remarks, std::string_view field, NumberKind kind, std::string_view role);

// A platform ID that has to be one as a whole. When it is not, it tells what becomes of the piece, and what to write:
// the ID that is meant, where that is clear, or the advice.
bool checkPlatformId(EntryRemarks& remarks, std::string_view piece, std::string_view becomes, std::string_view advice);

// "write 12" for the number that a text means; otherwise what else to do.
std::string writeNumber(std::string_view text, NumberKind kind, std::string_view otherwise);

// A flag that a row holds: 1 is yes, every other number no.
void checkLooseFlag(EntryRemarks& remarks, std::string_view field, std::string_view role);

// A sign and digits, of whatever length.
bool isWholeNumber(std::string_view text);
// Whole numbers between separators, at least two.
bool isNumberList(std::string_view text, std::string_view separators);

}  // namespace ttconfig

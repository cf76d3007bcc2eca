#pragma once

#include <string>
#include <string_view>

#include "ttconfig/advice/advice.h"
#include "ttconfig/checks/remarks.h"

namespace ttconfig {

// Checks of numbers in pieces of a value. A check that returns false has reported that the piece as a whole is not a
// number.

// A field that is read the way the C library reads numbers. role says what it is, such as "the limit".
bool checkLooseNumber(EntryRemarks& remarks, std::string_view field, NumberKind kind, std::string_view role);

// A platform ID, which must be a whole number and nothing else. Otherwise the message says what becomes of the piece
// and what to write: the ID that was meant, if that is clear, or the advice.
bool checkPlatformId(EntryRemarks& remarks, std::string_view piece, std::string_view becomes, std::string_view advice);

// "write 12" if that is the number that the text means; the parameter otherwise if it means none.
std::string writeNumber(std::string_view text, NumberKind kind, std::string_view otherwise);

// A flag in a row: 1 is yes, every other number no.
void checkLooseFlag(EntryRemarks& remarks, std::string_view field, std::string_view role);

// Whether the text is an optional sign and digits, however many.
bool isWholeNumber(std::string_view text);
// Whether the text is at least two whole numbers between separators.
bool isNumberList(std::string_view text, std::string_view separators);

}  // namespace ttconfig

#pragma once

#include <string_view>
#include <unordered_map>

#include "ttconfig/findings/remarks.h"

namespace ttconfig {

// The names of one list, for telling which stand in it twice.
class SeenNames {
public:
    // Says so when the name was there before.
    void check(EntryRemarks& remarks, std::string_view name);

private:
    std::unordered_map<std::string_view, Place> places;
};

// Says what is wrong with a name of a list: empty, odd characters, or one of the other separators in it.
void checkName(EntryRemarks& remarks, std::string_view name, std::string_view otherSeparators,
               std::string_view separator);

// An entry of several parts that has not exactly one ":".
void checkColons(EntryRemarks& remarks, std::string_view entry, std::string_view consequence);

}  // namespace ttconfig

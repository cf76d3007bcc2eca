#pragma once

#include <string_view>
#include <unordered_map>

#include "ttconfig/advice/marketnames.h"
#include "ttconfig/checks/remarks.h"

namespace ttconfig {

// The names of one list, to find those listed twice.
class SeenNames {
public:
    // Reports a name that was listed before.
    void check(EntryRemarks& remarks, std::string_view name, std::string_view consequence = "once is enough");

private:
    std::unordered_map<std::string_view, Place> places;
};

// Reports what is wrong with a name in a list: it is empty, has odd characters, or contains one of the other
// separators.
void checkName(EntryRemarks& remarks, std::string_view name, std::string_view otherSeparators,
               std::string_view separator);

// The same for a code, which is compared as written, without its market.
void checkCode(EntryRemarks& remarks, std::string_view code, std::string_view otherSeparators);

// Checks a market that is compared as written. Returns false, after reporting it, when nothing names the market.
bool checkMarket(EntryRemarks& remarks, const MarketNames& names, std::string_view market);

// Reports an entry that is passed over because it does not have exactly one ":". The advice says what to do when it is
// unclear what was meant.
void checkColons(EntryRemarks& remarks, std::string_view entry, std::string_view advice);

}  // namespace ttconfig

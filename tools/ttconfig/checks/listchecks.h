#pragma once

#include <string_view>
#include <unordered_map>

#include "ttconfig/advice/marketnames.h"
#include "ttconfig/checks/remarks.h"

namespace ttconfig {

// The names of one list, for telling which stand in it twice.
class SeenNames {
public:
    // Says so when the name was there before.
    void check(EntryRemarks& remarks, std::string_view name, std::string_view consequence = "once is enough");

private:
    std::unordered_map<std::string_view, Place> places;
};

// Says what is wrong with a name of a list: empty, odd characters, or one of the other separators in it.
void checkName(EntryRemarks& remarks, std::string_view name, std::string_view otherSeparators,
               std::string_view separator);

// The same for a code that is compared as it stands, without its market.
void checkCode(EntryRemarks& remarks, std::string_view code, std::string_view otherSeparators);

// A market that is compared as it stands: whether something names it; if not, it has said so.
bool checkMarket(EntryRemarks& remarks, const MarketNames& names, std::string_view market);

// An entry of several parts that has not exactly one ":" and is passed over. The advice is what to do where it is not
// clear what was meant.
void checkColons(EntryRemarks& remarks, std::string_view entry, std::string_view advice);

}  // namespace ttconfig

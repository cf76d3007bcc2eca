#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

// Tables of futures products and money-market funds, as they grow from the settings' texts.

namespace ttservice::internal {

// --- subscription fees

// Enters the fee under the code as written and in upper case; whatever stands there already stays. Upper case is that
// of the process's global locale.
void enterSubscriptionFee(const std::string& productCode, double fee, std::map<std::string, double>& fees);

// --- combinations whose margin is charged once

struct CombinationTables {
    std::vector<std::set<std::string>> groups;
    std::vector<std::string> products;                // of all groups, in order, repeated ones included
    std::map<std::string, std::string> firstOfGroup;  // from each further product of a group to the group's first
};

// The products of each group of the text "A,B,C;D,E", as views into it. Empty groups and empty products count.
std::vector<std::vector<std::string_view>> productGroups(std::string_view value);

// Adds the groups of such a text. A product of two groups keeps the first product of the earlier one.
void enterCombinations(std::string_view value, CombinationTables& tables);

// Adds groups that were read aside; either all of them come in or, for want of memory, none.
void addCombinations(CombinationTables& fresh, CombinationTables& tables);

// --- money-market funds

// The entries of the text "SSE511880,SZSE159001", empty ones included.
std::vector<std::string> fundList(std::string_view value);

// Whether the market followed by the code is an entry of the list.
bool listsFund(const std::vector<std::string>& list, std::string_view market, std::string_view code);

// Whether the list stands for every money-market fund: "ALL" and nothing beside it.
bool listsAllFunds(const std::vector<std::string>& list);

// Replaces the code set of each market that the text "SZSE:159001,159002;SSE:511990" names, and of no other.
void enterMarketCodes(std::string_view value, std::map<std::string, std::set<std::string>>& codesByMarket);

}  // namespace ttservice::internal

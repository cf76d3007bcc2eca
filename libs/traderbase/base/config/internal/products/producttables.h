#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

// Tables of futures products and money-market funds, built from settings.

namespace ttservice::internal {

// --- subscription fees

// Enters the fee under the code as written and in upper case, unless there is an entry already. The process's global
// locale defines upper case.
void enterSubscriptionFee(const std::string& productCode, double fee, std::map<std::string, double>& fees);

// --- combinations whose margin is charged once

struct CombinationTables {
    std::vector<std::set<std::string>> groups;
    std::vector<std::string> products;                // of all groups, in order, including repeated ones
    std::map<std::string, std::string> firstOfGroup;  // maps every other product of a group to the group's first
};

// Adds the groups of the text "A,B,C;D,E"; empty groups and empty products count. A product of two groups keeps the
// first product of the earlier one.
void enterCombinations(std::string_view value, CombinationTables& tables);

// Adds groups that were read separately: all of them or, if memory runs out, none.
void addCombinations(CombinationTables& fresh, CombinationTables& tables);

// --- money-market funds

// The entries of the text "SSE511880,SZSE159001", including empty ones.
std::vector<std::string> fundList(std::string_view value);

// Whether the market followed by the code is an entry of the list.
bool listsFund(const std::vector<std::string>& list, std::string_view market, std::string_view code);

// Whether the list stands for every money-market fund: it contains "ALL" and nothing else.
bool listsAllFunds(const std::vector<std::string>& list);
constexpr bool isAllFunds(std::string_view value) {
    return value == "ALL";
}

// Replaces the code set of each market named in the text "SZSE:159001,159002;SSE:511990"; other markets keep theirs.
void enterMarketCodes(std::string_view value, std::map<std::string, std::set<std::string>>& codesByMarket);

}  // namespace ttservice::internal

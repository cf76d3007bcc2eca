// Product tables: builds the tables of futures products and money-market funds. The store holds them.
// Entry points: the functions of the header, for fees, combinations, funds and fixed prices.
// Covered by tests/config/internal/products/producttables_test.cpp.

#include "traderbase/base/config/internal/products/producttables.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <boost/algorithm/string/case_conv.hpp>

#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/store/replacing.h"
#include "traderbase/base/config/internal/text/joinedtext.h"
#include "traderbase/base/config/internal/text/splitting.h"

namespace ttservice::internal {

void enterSubscriptionFee(const std::string& productCode, double fee, std::map<std::string, double>& fees) {
    fees.emplace(productCode, fee);
    fees.emplace(boost::algorithm::to_upper_copy(productCode), fee);
}

void enterCombinations(std::string_view value, CombinationTables& tables) {
    CombinationTables fresh;
    forEachEntry(kCombinations, value, [&fresh](const GroupEntry& entry) {
        std::set<std::string> group;
        forEachProductOf(entry, [&](std::string_view product) {
            fresh.products.emplace_back(product);
            group.emplace(product);
            // By position, not by name: in "A,B,A" the last A maps to itself.
            if (!isFirstOf(entry, product)) fresh.firstOfGroup.emplace(product, entry.first);
        });
        fresh.groups.push_back(std::move(group));
    });
    addCombinations(fresh, tables);
}

void addCombinations(CombinationTables& fresh, CombinationTables& tables) {
    makeRoomFor(fresh.products.size(), tables.products);
    const auto old = static_cast<std::ptrdiff_t>(tables.groups.size());
    tables.groups.resize(tables.groups.size() + fresh.groups.size());
    // Swapped, because moving a set allocates in some standard libraries.
    std::swap_ranges(fresh.groups.begin(), fresh.groups.end(), tables.groups.begin() + old);
    std::move(fresh.products.begin(), fresh.products.end(), std::back_inserter(tables.products));
    tables.firstOfGroup.merge(fresh.firstOfGroup);
}

std::vector<std::string> fundList(std::string_view value) {
    std::vector<std::string> list;
    forEachEntry(kLendingFirstFunds, value, [&list](std::string_view entry) { list.emplace_back(entry); });
    return list;
}

bool listsFund(const std::vector<std::string>& list, std::string_view market, std::string_view code) {
    const JoinedText fund{market, code};
    return std::any_of(list.begin(), list.end(),
                       [&fund](const std::string& entry) { return compare(entry, fund) == 0; });
}

// "ALL" together with other entries is an ordinary entry.
bool listsAllFunds(const std::vector<std::string>& list) {
    return list.size() == 1 && isAllFunds(list.front());
}

void enterMarketCodes(std::string_view value, std::map<std::string, std::set<std::string>>& codesByMarket) {
    std::map<std::string, std::set<std::string>> fresh;
    splitKeepEmpty(value, kFixedPriceFunds.separator, [&fresh](std::string_view piece) {
        const MarketCodesEntry entry = kFixedPriceFunds.read(piece);
        std::set<std::string> codes;
        forEachCodeOf(entry, [&codes](std::string_view code) { codes.emplace(code); });
        fresh[std::string(entry.market)] = std::move(codes);
    });
    replaceEntries(codesByMarket, fresh);
}

}  // namespace ttservice::internal

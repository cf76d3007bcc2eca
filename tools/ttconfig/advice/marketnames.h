#pragma once

#include <standin/platformdata.h>

#include <set>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace ttconfig {

// Every market that the library's rules name, in upper case.
const std::vector<std::string_view>& namedMarkets();

// Whether the market is one of them, ignoring letter case.
bool isNamedMarket(std::string_view market);

// The markets that the library's rules or the platform data name. A host may know others.
class MarketNames {
public:
    // The data may be null.
    explicit MarketNames(const standin::PlatformData* data);

    // Whether the library or the data names the market; letter case counts.
    bool knows(std::string_view market) const { return names.count(market) > 0; }
    // The middle of a message about an unknown market, such as "the library does not name".
    std::string_view namers() const;
    // "; did you mean NAME?" for a market with one slip in it; otherwise what to do about it.
    std::string didYouMean(std::string_view market) const;

private:
    const bool hasData;
    std::set<std::string> ofData;
    std::unordered_set<std::string_view> names;
    std::vector<std::string_view> inOrder;
};

}  // namespace ttconfig

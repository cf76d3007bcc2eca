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

// Whether the market, in whatever letter case, is one of them.
bool isNamedMarket(std::string_view market);

// The markets that anything names: the library's rules, or the platform data. A host may know others.
class MarketNames {
public:
    // The data may be null.
    explicit MarketNames(const standin::PlatformData* data);

    // Whether something names the market, letter case included.
    bool knows(std::string_view market) const { return names.count(market) > 0; }
    // Who would name it, in words, such as "the library".
    std::string_view namers() const;
    // "; did you mean NAME?" for a market with one slip in it; otherwise a word on what to look at.
    std::string didYouMean(std::string_view market) const;

private:
    const bool hasData;
    std::set<std::string> ofData;
    std::unordered_set<std::string_view> names;
    std::vector<std::string_view> inOrder;
};

}  // namespace ttconfig

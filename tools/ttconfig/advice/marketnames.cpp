// Market names: knows the markets that the library and the platform data name.
// Owns: the list of the markets that the library's rules name.
// Covered by tests/tools/ttconfig/findings/findingparts_test.cpp.

#include "ttconfig/advice/marketnames.h"

#include <ttplatform/text.h>

#include <algorithm>

#include "traderbase/base/config/internal/words/markets.h"
#include "ttconfig/text/nearestname.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

// Market names are so short that two slips turn almost any name into another.
constexpr std::size_t kMostSlips = 1;
constexpr std::size_t kLongestMarket = 16;

}  // namespace

const std::vector<std::string_view>& namedMarkets() {
    // AMEX has no constant: the library knows it only as a code suffix.
    static const std::vector<std::string_view> kMarkets = {
        markets::kSh,   markets::kSz,   markets::kBj,  markets::kSse,     markets::kSzse, markets::kNeeq,
        markets::kSho,  markets::kSzo,  markets::kHgt, markets::kSsehkex, markets::kSgt,  markets::kSzsehkex,
        markets::kDf,   markets::kDce,  markets::kZf,  markets::kCzce,    markets::kSf,   markets::kShfe,
        markets::kGf,   markets::kGfex, markets::kIf,  markets::kCffex,   markets::kIne,  markets::kShge,
        markets::kSge,  markets::kSgx,  markets::kHk,  markets::kGlobex,  markets::kHkfe, markets::kNasdaq,
        markets::kNyse, "AMEX"};
    return kMarkets;
}

bool isNamedMarket(std::string_view market) {
    if (market.empty() || market.size() > kLongestMarket) return false;
    const std::string upper = utils::toUpper(std::string(market));
    return std::find(namedMarkets().begin(), namedMarkets().end(), upper) != namedMarkets().end();
}

MarketNames::MarketNames(const standin::PlatformData* data) : hasData(data != nullptr), inOrder(namedMarkets()) {
    if (data != nullptr) ofData = data->marketNames();
    for (const std::string& name : ofData) {
        if (!isNamedMarket(name)) inOrder.push_back(name);
    }
    names.insert(inOrder.begin(), inOrder.end());
}

std::string_view MarketNames::namers() const {
    return hasData ? "neither the library nor the platform data names" : "the library does not name";
}

std::string MarketNames::didYouMean(std::string_view market) const {
    const std::string_view near = nearestName(market, inOrder, kMostSlips);
    if (!near.empty()) return "; did you mean " + visibleText(near) + "?";
    return hasData ? "; check it" : "; check it, or name it in a --platform file";
}

}  // namespace ttconfig

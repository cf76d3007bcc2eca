#pragma once

#include <string_view>

// The words in which quantities are counted, in UTF-8.

namespace ttservice::internal {

inline constexpr std::string_view kShares = "股";
inline constexpr std::string_view kFundUnits = "份";
inline constexpr std::string_view kBonds = "张";
inline constexpr std::string_view kLots = "手";

}  // namespace ttservice::internal

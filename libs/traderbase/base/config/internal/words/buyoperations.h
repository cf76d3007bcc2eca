#pragma once

#include <cstdint>

// Which operations buy. Edit the list; lookups use bit masks that the compiler derives from it.

namespace ttservice::internal {

// clang-format off
inline constexpr int kBuyOperations[] = {
    0,
    4, 5, 8, 9, 12, 13, 15, 18, 20, 22, 26, 28, 31, 32, 35, 37, 38, 40, 42, 44, 46, 48, 51, 55, 57, 59, 61, 63, 65, 67,
    200, 201, 205, 206, 207, 208,
    1004, 1006, 1011, 1013, 1015, 1017, 1019, 1022, 1025, 1027, 1029, 1032, 1037, 1043, 1045, 1048, 1050, 1052, 1054,
    1056, 1058, 1063,
    1087, 1091, 1098, 1099, 1101, 1102, 1103, 1114, 1115, 1116, 1117, 1126, 1128, 1129, 1132, 1134, 1135, 1138, 1140,
    1141, 1144, 1145, 1148, 1150,
    1152,
};
// clang-format on

static_assert(sizeof(kBuyOperations) / sizeof(kBuyOperations[0]) == 84, "84 operations buy");

// How far an operation lies above the first one; for an operation below it, a distance beyond every mask.
constexpr std::uint32_t operationsAbove(int first, int operation) {
    return static_cast<std::uint32_t>(operation) - static_cast<std::uint32_t>(first);
}

// The buying operations among 64 consecutive ones, one bit each.
struct BuyMask {
    int first;
    std::uint64_t bits;

    constexpr bool covers(int operation) const { return operationsAbove(first, operation) < 64; }
    constexpr bool holds(int operation) const {
        return covers(operation) && (bits >> operationsAbove(first, operation) & 1U) != 0;
    }
};

constexpr BuyMask buyMaskFrom(int first) {
    BuyMask mask{first, 0};
    for (const int operation : kBuyOperations) {
        if (mask.covers(operation)) mask.bits |= std::uint64_t{1} << operationsAbove(first, operation);
    }
    return mask;
}

// The buying operations form four clusters, plus 0 and 1152 on their own.
inline constexpr BuyMask kBuyFrom4 = buyMaskFrom(4);
inline constexpr BuyMask kBuyFrom200 = buyMaskFrom(200);
inline constexpr BuyMask kBuyFrom1004 = buyMaskFrom(1004);
inline constexpr BuyMask kBuyFrom1087 = buyMaskFrom(1087);

constexpr bool isBuyOperation(int operation) {
    return operation == 0 || kBuyFrom4.holds(operation) || kBuyFrom200.holds(operation) ||
           kBuyFrom1004.holds(operation) || kBuyFrom1087.holds(operation) || operation == 1152;
}

constexpr bool everyBuyOperationIsCovered() {
    for (const int operation : kBuyOperations) {
        if (!isBuyOperation(operation)) return false;
    }
    return true;
}
static_assert(everyBuyOperationIsCovered(), "an operation of the list lies outside the masks");

}  // namespace ttservice::internal

#pragma once

#include <string_view>

// The markets named in rules, and the groups of markets treated alike. Compared exactly, including letter case.

namespace ttservice::internal {

namespace markets {

inline constexpr std::string_view kSh = "SH";
inline constexpr std::string_view kSz = "SZ";
inline constexpr std::string_view kBj = "BJ";
inline constexpr std::string_view kSse = "SSE";
inline constexpr std::string_view kSzse = "SZSE";
inline constexpr std::string_view kNeeq = "NEEQ";

inline constexpr std::string_view kSho = "SHO";
inline constexpr std::string_view kSzo = "SZO";

inline constexpr std::string_view kHgt = "HGT";
inline constexpr std::string_view kSsehkex = "SSEHKEX";
inline constexpr std::string_view kSgt = "SGT";
inline constexpr std::string_view kSzsehkex = "SZSEHKEX";

inline constexpr std::string_view kDf = "DF";
inline constexpr std::string_view kDce = "DCE";
inline constexpr std::string_view kZf = "ZF";
inline constexpr std::string_view kCzce = "CZCE";
inline constexpr std::string_view kSf = "SF";
inline constexpr std::string_view kShfe = "SHFE";
inline constexpr std::string_view kGf = "GF";
inline constexpr std::string_view kGfex = "GFEX";

inline constexpr std::string_view kIf = "IF";
inline constexpr std::string_view kCffex = "CFFEX";
inline constexpr std::string_view kIne = "INE";
inline constexpr std::string_view kShge = "SHGE";
inline constexpr std::string_view kSge = "SGE";
inline constexpr std::string_view kSgx = "SGX";
inline constexpr std::string_view kGlobex = "GLOBEX";

inline constexpr std::string_view kHk = "HK";
inline constexpr std::string_view kHkfe = "HKFE";
inline constexpr std::string_view kNasdaq = "NASDAQ";
inline constexpr std::string_view kNyse = "NYSE";

}  // namespace markets

template <typename... Names>
constexpr bool isOneOf(std::string_view market, Names... names) {
    return ((market == names) || ...);
}

constexpr bool isStockExchange(std::string_view market) {
    return isOneOf(market, markets::kSh, markets::kSz, markets::kBj, markets::kSse, markets::kSzse);
}

constexpr bool isOptionExchange(std::string_view market) {
    return isOneOf(market, markets::kSho, markets::kSzo);
}

constexpr bool isShanghaiConnect(std::string_view market) {
    return isOneOf(market, markets::kHgt, markets::kSsehkex);
}

constexpr bool isShenzhenConnect(std::string_view market) {
    return isOneOf(market, markets::kSgt, markets::kSzsehkex);
}

constexpr bool isFuturesExchange(std::string_view market) {
    return isOneOf(market, markets::kDf, markets::kDce, markets::kZf, markets::kCzce, markets::kSf, markets::kShfe,
                   markets::kGf, markets::kGfex);
}

// Other markets that count in lots.
constexpr bool isLotCounted(std::string_view market) {
    return isOneOf(market, markets::kIf, markets::kCffex, markets::kIne, markets::kShge, markets::kSge, markets::kSgx,
                   markets::kGlobex);
}

constexpr bool isUsMarket(std::string_view market) {
    return isOneOf(market, markets::kNasdaq, markets::kNyse);
}

}  // namespace ttservice::internal

#pragma once

#include <string_view>

// The words that stand for a class of instruments, or of instruments and price types, as items of limit rows.

namespace ttservice::internal::words {

inline constexpr std::string_view kStock = "STOCK";
inline constexpr std::string_view kLoan = "LOAN";
inline constexpr std::string_view kFund = "FUND";
inline constexpr std::string_view kMoneyFund = "MONEYFUND";
inline constexpr std::string_view kEtf = "ETF";
inline constexpr std::string_view kIpo = "IPO";
inline constexpr std::string_view kRepurchase = "REPURCHASE";
inline constexpr std::string_view kRepurchaseImpawn = "REPURCHASEIMPAWN";
inline constexpr std::string_view kRepurchaseBuyOut = "REPURCHASEBUYOUT";
inline constexpr std::string_view kCdr = "CDR";
inline constexpr std::string_view kLondonCdr = "LONDONCDR";
inline constexpr std::string_view kInnovation = "INNOVATION";
inline constexpr std::string_view kDef = "DEF";
inline constexpr std::string_view kPif = "PIF";
inline constexpr std::string_view kTechStockLimit = "TECHSTOCKLIMIT";
inline constexpr std::string_view kTechStockMarket = "TECHSTOCKMARKET";
inline constexpr std::string_view kTechStockClose = "TECHSTOCKCLOSE";
inline constexpr std::string_view kMarket = "MARKET";
inline constexpr std::string_view kLimit = "LIMIT";
inline constexpr std::string_view kDirectionalConvertibleBond = "DIRECTIONALCONVERTIBALEBOND";  // (sic)

}  // namespace ttservice::internal::words

#pragma once

#include <string>
#include <string_view>

// The checks of the target "grammars". Each one treats any text as a value of its grammar, reads it with the library
// and with the slow oracles of tests/support, and ends the program if they differ.

namespace fuzz {

// --- numbergrammars.cpp
void checkNumbers(const std::string& text);
void checkInteger(const std::string& text);
void checkDecimal(const std::string& text);

// --- listgrammars.cpp
void checkSplitting(const std::string& text);
void checkPlatformList(const std::string& text);
void checkPerPlatformFlags(const std::string& text);
void checkPerPlatformIntegers(const std::string& text);
void checkPerPlatformFlagsKeepEmpty(const std::string& text);
void checkPerPlatformDecimalsKeepEmpty(const std::string& text);
void checkRatioPairs(const std::string& text);
void checkPlatformCodes(const std::string& text);

// --- limitgrammars.cpp
void checkLimitKey(const std::string& text);
void checkOrderLimitRow(const std::string& text);
void checkBlockTradeLimitRow(const std::string& text);
void checkStockRateRow(const std::string& text);
void checkConnectRateRow(const std::string& text);
void checkFixedIncomeNumbers(const std::string& text);

// --- cataloguegrammars.cpp
void checkProductGroups(const std::string& text);
void checkMarketCodes(const std::string& text);
void checkFunds(const std::string& text);
void checkContracts(const std::string& text);
void checkContractTypes(const std::string& text);
void checkPairs(const std::string& text);
void checkTextsDropEmpty(const std::string& text, char separator);
void checkTexts(const std::string& text, char separator);
void checkTagAndTimes(const std::string& text);

}  // namespace fuzz

#pragma once

#include <string>

#include <ttplatform/enums.h>

#include "luaconfig/export.h"

// How an instrument is counted, and in which steps it is ordered.
//
// Thread safety: nothing is stored, every answer is derived anew from the platform's services and, for the two minimum
// units, from ConfigCollector's switches; any thread may ask whenever those may be asked. Nothing is allocated.
//
// Markets are compared exactly, letter case included. No question fails: what the platform does not know falls through
// the rules to the default named with each operation.
namespace ttservice {

// Whether the operation buys. False for every operation that is not known to, OPT_INVALID among them.
TRADERBASE_API bool isBuyOpt(EOperationType op);

// The word shown beside a quantity, in UTF-8: "股" (shares), "份" (fund units), "张" (bonds and the like) or "手"
// (lots); empty for the code "TRANSFER" of some markets. "股" for what the platform does not know.
TRADERBASE_API std::string getStockUnit(const std::string& market, const std::string& code);

// The exchange's trading unit, in units of getStockUnit(): 100 on the stock exchanges and for type 159, except for
// bonds, repos, options and funds; the instrument record's own on the connect markets and for what passes one of the
// platform's further market tests. 1 for everything else, and where that record is missing.
TRADERBASE_API int getStockTradeUnit(const std::string& market, const std::string& code);

// The smallest step in which the operation orders the instrument; without an operation the same as for OPT_INVALID.
// Without any type or record: 100 on the stock exchanges, 1000 on "BJ" and "NEEQ", 1 elsewhere. Asks the new bond rules
// and the rules of registered issues in ConfigCollector.
TRADERBASE_API int getTradeMinUnit(const std::string& market, const std::string& code);
TRADERBASE_API int getTradeMinUnit(const std::string& market, const std::string& code, EOperationType op);

// The smallest step in the order form; without an operation the same as for OPT_INVALID. With the flag the stricter
// steps of order entry, much as getTradeMinUnit() answers them; without it 1 wherever only those would apply. Some
// steps differ from getTradeMinUnit() either way. Asks the same switches of ConfigCollector.
TRADERBASE_API int getUiMinUnit(const std::string& market, const std::string& code, bool flag);
TRADERBASE_API int getUiMinUnit(const std::string& market, const std::string& code, bool flag, EOperationType op);

}  // namespace ttservice

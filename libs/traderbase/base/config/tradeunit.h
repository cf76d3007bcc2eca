#pragma once

#include <string>

#include <ttplatform/enums.h>

#include "luaconfig/export.h"

// How an instrument is counted, and in which steps it is ordered.
//
// Thread safety: nothing is stored. Every answer is derived anew from the platform's services and, for the two minimum
// units, from ConfigCollector's switches; any thread may call these whenever it may call those. Nothing is allocated.
//
// Markets are compared exactly, including letter case. No query fails: an instrument unknown to the platform gets the
// default named with each operation.
namespace ttservice {

// Whether the operation buys. False for every operation not known to buy, including OPT_INVALID.
TRADERBASE_API bool isBuyOpt(EOperationType op);

// The word shown beside a quantity, in UTF-8: "股" (shares), "份" (fund units), "张" (bonds and the like) or "手"
// (lots). Empty for the code "TRANSFER" in some markets; "股" for instruments unknown to the platform.
TRADERBASE_API std::string getStockUnit(const std::string& market, const std::string& code);

// The exchange's trading unit, in units of getStockUnit(). On the stock exchanges and for type 159 it is 100, except
// for bonds, repos, options and funds. On the connect markets, and for instruments that pass one of the platform's
// further market tests, it is the unit of the instrument record. 1 for everything else, and where that record is
// missing.
TRADERBASE_API int getStockTradeUnit(const std::string& market, const std::string& code);

// The smallest step in which the operation orders the instrument; without an operation, the same as for OPT_INVALID. An
// instrument without types or record gets 100 on the stock exchanges, 1000 on "BJ" and "NEEQ", and 1 elsewhere. Queries
// ConfigCollector for the new bond rules and the registered-issue rules.
TRADERBASE_API int getTradeMinUnit(const std::string& market, const std::string& code);
TRADERBASE_API int getTradeMinUnit(const std::string& market, const std::string& code, EOperationType op);

// The smallest step in the order form; without an operation, the same as for OPT_INVALID. With the flag, it uses the
// stricter steps of order entry, much like getTradeMinUnit(); without it, the answer is 1 wherever only those would
// apply. Some steps differ from getTradeMinUnit() with or without the flag. Queries the same switches of
// ConfigCollector.
TRADERBASE_API int getUiMinUnit(const std::string& market, const std::string& code, bool flag);
TRADERBASE_API int getUiMinUnit(const std::string& market, const std::string& code, bool flag, EOperationType op);

}  // namespace ttservice

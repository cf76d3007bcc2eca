#pragma once

#include <string>

#include "ttplatform/enums.h"
#include "ttplatform/export.h"

// Questions about one instrument that the base trading library answers.
//
// Thread safety: any number of threads may call at once. No query allocates or throws, whatever its arguments. The
// answer for an unknown market or code is "no".
namespace ttservice {

// Whether the instrument belongs to the numbered type. The numbers are the base library's own: a type of
// StockTypeCenter need not exist here, nor the other way round. The configuration library passes an empty text.
TTPLATFORM_API bool isTypedStock(int type, const std::string& market, const std::string& code, const std::string& text);

// Whether the bond follows the new bond rules for that operation and trade type; OPT_INVALID means no particular
// operation.
TTPLATFORM_API bool isNewRulesBond(const std::string& market, const std::string& code, EOperationType operation,
                                   EBondTradeType tradeType);

// The bond trade type that an operation belongs to; BOND_TRADE_ORDINARY for every operation that is not special.
TTPLATFORM_API EBondTradeType getBondTradeType(EOperationType operation);

// Whether the instrument is a depositary receipt of the technology board.
TTPLATFORM_API bool isTechBoardCDRCode(const std::string& market, const std::string& code);

// Whether the instrument is an additional issue of shares.
TTPLATFORM_API bool isIssueAdditionalStock(const std::string& market, const std::string& code);

}  // namespace ttservice

#pragma once

#include "ttconfig/reasons/explainedcalls.h"

namespace ttconfig {

// The kinds of account that getContractInfo is asked for.
inline constexpr int kStockAccount = 2;
inline constexpr int kCreditAccount = 3;

// Edits that might give one product's record, the products of one kind of account or all of them, or another product
// for a type.
void suggestContract(const Question& question, const Wanted& wanted, Edits& edits);
void suggestContractsOf(const Question& question, const Wanted& wanted, Edits& edits);
void suggestAllContracts(const Question& question, const Wanted& wanted, Edits& edits);
void suggestProductOfType(const Question& question, const Wanted& wanted, Edits& edits);

}  // namespace ttconfig

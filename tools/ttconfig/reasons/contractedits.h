#pragma once

#include "ttconfig/reasons/explainedcalls.h"

namespace ttconfig {

// The kinds of account that getContractInfo distinguishes.
inline constexpr int kStockAccount = 2;
inline constexpr int kCreditAccount = 3;

// Suggest edits that might lead to the wanted answer about one product, the products for one kind of account, all
// products, or the product of a type.
void suggestContract(const Question& question, const Wanted& wanted, Edits& edits);
void suggestContractsOf(const Question& question, const Wanted& wanted, Edits& edits);
void suggestAllContracts(const Question& question, const Wanted& wanted, Edits& edits);
void suggestProductOfType(const Question& question, const Wanted& wanted, Edits& edits);

}  // namespace ttconfig

// Calls: product catalogues and trading times.
// Entry points: addCatalogueCalls().
// Covered by tests/tools/ttconfig/calls/calltable_test.cpp, products_test.cpp and the golden sessions.

#include "ttconfig/calls/binding.h"
#include "ttconfig/calls/storerecords.h"

namespace ttconfig {

using ttservice::ConfigCollector;
using ttservice::ContractInfo;
using ContractInfoPtr = boost::shared_ptr<ContractInfo>;

void addCatalogueCalls(CallTable& table) {
    // algorithm products
    table.add("getContractInfo",
              storeCall(overload<ContractInfoPtr(const std::string&, bool) const>(&ConfigCollector::getContractInfo)));
    table.add("getContractInfo",
              storeCall(overload<std::vector<ContractInfoPtr>(int) const>(&ConfigCollector::getContractInfo)));
    TT_STORE_CALL(getAllContractInfo);
    TT_STORE_CALL(getProductIdbyAlgoName);
    TT_STORE_CALL(isHttpProductID);
    TT_STORE_CALL(getAlgoTypes);
    TT_STORE_CALL(getBuySellHideAlgoTypes);
    TT_STORE_CALL(getT0Strategy);

    // special products
    TT_STORE_CALL(getSubFee);
    TT_STORE_CALL(getSingleMarginProductName);
    TT_STORE_CALL(getETFBrokerCLientTag);
    TT_STORE_CALL(getETFBrokerCLientQueryTimes);

    // money-market funds
    TT_STORE_CALL(isMonetaryFundUseSloBalanceFirst);
    TT_STORE_CALL(isNeedFixPriceByNonTradeMonetaryFund);
}

}  // namespace ttconfig

// Calls: product catalogues and trading times.
// Doors: addCatalogueCalls().
// Owns: nothing.
// Covered by tests/tools/ttconfig/calltable_test.cpp, products_test.cpp and the golden sessions.

#include "traderbase/base/config/contractinfo.h"
#include "ttconfig/calls/binding.h"

namespace ttconfig {

using ttservice::ConfigCollector;
using ttservice::ContractInfo;
using ContractInfoPtr = boost::shared_ptr<ContractInfo>;

template <>
struct RecordMembers<ContractInfo> {
    static void write(const ContractInfo& record, Answer& object, Records& /*records*/) {
        object["intValue"] = record.intValue;
        object["doubleValue"] = record.doubleValue;
        object["longValue"] = record.longValue;
        object["productId"] = record.productId;
        object["textValue"] = record.textValue;
        object["isCredit"] = record.isCredit;
    }
};

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

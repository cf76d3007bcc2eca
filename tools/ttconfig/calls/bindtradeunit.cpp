// Calls: the trade unit functions.
// Entry points: addTradeUnitCalls().
// Covered by tests/tools/ttconfig/calls/calltable_test.cpp and the golden sessions.

#include <string>

#include "traderbase/base/config/tradeunit.h"
#include "ttconfig/calls/binding.h"

namespace ttconfig {

void addTradeUnitCalls(CallTable& table) {
    using Text = const std::string&;

    table.add("isBuyOpt", freeCall(&ttservice::isBuyOpt));
    table.add("getStockUnit", freeCall(&ttservice::getStockUnit));
    table.add("getStockTradeUnit", freeCall(&ttservice::getStockTradeUnit));
    table.add("getTradeMinUnit", freeCall(overload<int(Text, Text)>(&ttservice::getTradeMinUnit)));
    table.add("getTradeMinUnit", freeCall(overload<int(Text, Text, EOperationType)>(&ttservice::getTradeMinUnit)));
    table.add("getUiMinUnit", freeCall(overload<int(Text, Text, bool)>(&ttservice::getUiMinUnit)));
    table.add("getUiMinUnit", freeCall(overload<int(Text, Text, bool, EOperationType)>(&ttservice::getUiMinUnit)));
}

}  // namespace ttconfig

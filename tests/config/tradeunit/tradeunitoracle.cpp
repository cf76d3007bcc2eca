#include "tests/config/tradeunit/tradeunitoracle.h"

namespace tests::oracle {

namespace {

const Condition kStockExchange = market({"SH", "SZ", "BJ", "SSE", "SZSE"});
const Condition kOptionExchange = market({"SHO", "SZO"});
const Condition kConnect = market({"HGT", "SSEHKEX", "SGT", "SZSEHKEX"});
const Condition kFutures = market({"DF", "DCE", "ZF", "CZCE", "SF", "SHFE", "GF", "GFEX"});
const Condition kLotCounted = market({"IF", "CFFEX", "INE", "SHGE", "SGE", "SGX", "GLOBEX"});
const Condition kNewBoard = market({"NEEQ", "BJ"});
const Condition kBond = type({100016});
const Condition kBondOrRepo = type({100016, 126, 100017, 142});

}  // namespace

const std::vector<Row<std::string>>& wordTable() {
    static const Condition kMiddle = either({number(29, 38), number(40, 62)});
    static const std::vector<Row<std::string>> table = {
        {{type({100003})}, "股"},
        {{either({type({100013, 100004, 100024, 100036}), cdr})}, "份"},
        {{either({kBondOrRepo, kOptionExchange})}, "张"},
        {{kFutures}, "手"},
        {{kLotCounted}, "手"},
        {{number(39, 39)}, "股"},
        {{number(63, 1000)}, "股"},
        {{kMiddle, codeIs("TRANSFER")}, ""},
        {{kMiddle, market({"HK", "NASDAQ", "NYSE", "HKFE"})}, "股"},
        {{kMiddle, codeHas({".HK"}), no(codeHas({".HKFE"}))}, "股"},
        {{kMiddle, no(codeHas({".NASDAQ", ".NYSE", ".AMEX"}))}, "手"},
        {{}, "股"},
    };
    return table;
}

const std::vector<Row<Number>>& exchangeTable() {
    static const Condition kOtherUnits = either({kBondOrRepo, kOptionExchange, type({100004, 100013, 100024})});
    static const std::vector<Row<Number>> table = {
        {{either({kStockExchange, type({159})}), no(kOtherUnits)}, is(100)},
        {{either({kConnect, marketTest}), record}, field(2001)},
        {{}, is(1)},
    };
    return table;
}

const std::vector<Row<Number>>& minTable() {
    static const Condition kLarge = op({{57, 64}, {1037, 1038}, {1103, 1104}});
    static const std::vector<Row<Number>> table = {
        {{newBonds, type({100021})}, is(10)},
        {{newBonds, no(bondRule)}, is(1000)},
        {{newBonds, buysOrNone}, leastPurchase},
        {{newBonds}, leastSale},
        {{type({10006}), no(record)}, is(1)},
        {{type({10006}), no(step(2009))}, is(100)},
        {{type({10006})}, field(2009)},
        {{type({124})}, is(10000)},
        {{codeTyped(126, "SH")}, is(1000)},
        {{codeTyped(100017, "SZ")}, is(10)},
        {{type({100104}), kLarge}, is(500)},
        {{type({100104}), op({{51, 52}})}, is(1)},
        {{type({100104})}, is(10)},
        {{type({100103}), either({kLarge, op({{1032, 1036}, {1052, 1053}})})}, is(1000)},
        {{type({100103})}, is(100)},
        {{additional, no(market({"SH"}))}, is(1)},
        {{additional, registered}, is(500)},
        {{additional}, is(1000)},
        {{kBond, op({{30, 31}}), market({"SZ"})}, is(1)},
        {{kBond, op({{51, 52}}), type({10019})}, is(1)},
        {{kBond}, is(10)},
        {{either({type({142}), base({1117})})}, is(10)},
        {{type({290, 278})}, is(500)},
        {{market({"SH"}), base({1062}), registered}, is(500)},
        {{market({"SH"}), base({1062})}, is(1000)},
        {{market({"SZ"}), base({1062})}, is(500)},
        {{kNewBoard, op({{1029, 1030}})}, is(1)},
        {{kNewBoard, either({codeTyped(20000, "NEEQ"), base({1606, 1607, 1608, 1609, 1610})})}, is(100)},
        {{kNewBoard}, is(1000)},
        {{type({10040, 167, 168, 10075})}, is(1)},
        {{base({1172})}, is(200)},
        {{kStockExchange, no(type({157}))}, is(100)},
        {{either({kConnect, market({"HK"})}), record}, field(2001)},
        {{}, is(1)},
    };
    return table;
}

const std::vector<Row<Number>>& formTable() {
    static const std::vector<Row<Number>> table = {
        {{newBonds, type({100021})}, is(10)},
        {{newBonds, no(flag)}, is(1)},
        {{newBonds, bondRule}, leastPurchase},
        {{newBonds}, is(1000)},
        {{type({100104}), flag}, is(10)},
        {{type({124})}, is(10000)},
        {{codeTyped(126, "SH")}, is(1000)},
        {{codeTyped(100017, "SZ")}, is(10)},
        {{kBond, flag}, is(10)},
        {{additional, no(market({"SH"}))}, is(1)},
        {{additional, registered}, is(500)},
        {{additional}, is(1000)},
        {{type({142})}, is(10)},
        {{type({290, 278})}, is(500)},
        {{market({"SH"}), base({1062}), registered}, is(500)},
        {{market({"SH"}), base({1062})}, is(1000)},
        {{market({"SZ"}), base({1062})}, is(500)},
        {{kNewBoard, flag, op({{1029, 1030}})}, is(1)},
        {{kNewBoard, flag, either({codeTyped(20000, "NEEQ"), base({1606, 1607})})}, is(100)},
        {{kNewBoard, flag, base({1608, 1609, 1610})}, is(1)},
        {{kNewBoard, flag}, is(1000)},
        {{type({10006}), no(record)}, is(1)},
        {{type({10006}), flag, step(2009)}, field(2009)},
        {{type({10006}), flag}, is(100)},
        {{type({10006}), step(2013)}, field(2013)},
        {{type({10006})}, is(1)},
        {{type({10040, 167, 168, 10075})}, is(1)},
        {{base({1172})}, is(1)},
        {{market({"BJ"})}, is(1)},
        {{kStockExchange, no(type({157})), flag}, is(100)},
        {{either({kConnect, marketTest}), record}, field(2001)},
        {{}, is(1)},
    };
    return table;
}

}  // namespace tests::oracle

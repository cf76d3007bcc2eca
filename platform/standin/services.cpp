// The host's services, answered from the installed platform data.
// Entry points: StockTypeCenter, TraderCenter, IDataCenter, the instrument queries and the rights query.
// Owns: the two singletons, which are stateless.
// Test: tests/platform/services_test.cpp
#include "standin/installeddata.h"
#include "standin/platformdata.h"
#include "standin/queryhook.h"
#include "ttplatform/instruments.h"
#include "ttplatform/rights.h"
#include "ttplatform/stocktypecenter.h"
#include "ttplatform/tradercenter.h"

IInstrumentRecord::~IInstrumentRecord() = default;
IDataCenter::~IDataCenter() = default;

namespace {

using standin::installedData;
using standin::showQuery;

class DataCenter : public IDataCenter {
public:
    boost::shared_ptr<const IInstrumentRecord> getInstrument(const std::string& market,
                                                             const std::string& code) const override {
        showQuery("IDataCenter::getInstrument", 0, market, code);
        return installedData().instrument(market, code);
    }

    boost::shared_ptr<const BondRuleRecord> getBondRule(const std::string& market, const std::string& code,
                                                        EBondTradeType tradeType) const override {
        showQuery("IDataCenter::getBondRule", tradeType, market, code);
        return installedData().bondRule(market, code, tradeType);
    }

    bool passesFirstMarketTest(const std::string& market, const std::string& code) const override {
        showQuery("IDataCenter::passesFirstMarketTest", 0, market, code);
        return installedData().passesFirstMarketTest(market, code);
    }

    bool passesSecondMarketTest(const std::string& market, const std::string& code) const override {
        showQuery("IDataCenter::passesSecondMarketTest", 0, market, code);
        return installedData().passesSecondMarketTest(market, code);
    }
};

}  // namespace

// The singletons are never destroyed: static destructors may still use them.

StockTypeCenter& StockTypeCenter::instance() {
    static StockTypeCenter& only = *new StockTypeCenter;
    return only;
}

bool StockTypeCenter::isTypedStock(int type, const std::string& market, const std::string& code) const {
    showQuery("StockTypeCenter::isTypedStock", type, market, code);
    return installedData().isStockType(type, market, code);
}

int StockTypeCenter::getMarketEnumFromString(const std::string& market) const {
    showQuery("StockTypeCenter::getMarketEnumFromString", 0, market, {});
    return installedData().marketNumber(market);
}

TraderCenter& TraderCenter::instance() {
    static TraderCenter& only = *new TraderCenter;
    return only;
}

const IDataCenter& TraderCenter::getDataCenter() const {
    static const DataCenter& only = *new DataCenter;
    return only;
}

namespace ttservice {

bool isTypedStock(int type, const std::string& market, const std::string& code, const std::string& /*text*/) {
    showQuery("ttservice::isTypedStock", type, market, code);
    return installedData().isBaseType(type, market, code);
}

bool isNewRulesBond(const std::string& market, const std::string& code, EOperationType operation,
                    EBondTradeType /*tradeType*/) {
    showQuery("ttservice::isNewRulesBond", operation, market, code);
    return installedData().isNewRulesBond(market, code);
}

EBondTradeType getBondTradeType(EOperationType operation) {
    showQuery("ttservice::getBondTradeType", operation, {}, {});
    return static_cast<EBondTradeType>(installedData().bondTradeType(operation));
}

bool isTechBoardCDRCode(const std::string& market, const std::string& code) {
    showQuery("ttservice::isTechBoardCDRCode", 0, market, code);
    return installedData().isTechBoardCdr(market, code);
}

bool isIssueAdditionalStock(const std::string& market, const std::string& code) {
    showQuery("ttservice::isIssueAdditionalStock", 0, market, code);
    return installedData().isIssueAdditional(market, code);
}

bool testAuth(const std::string& group, const std::string& product) {
    showQuery("ttservice::testAuth", 0, group, product);
    return installedData().hasRight(group, product);
}

}  // namespace ttservice

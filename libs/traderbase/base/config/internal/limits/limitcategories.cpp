// Limit categories: answers which category word each limit table uses for an instrument, and which rule decided.
// Entry points: orderLimitCategory(), blockTrade...Category(), ...RateCategory().
// Owns: the rules and their order, one function per table. The tables differ deliberately.
// Covered by tests/config/internal/limits/limitcategories_test.cpp.

#include "traderbase/base/config/internal/limits/limitcategories.h"

#include <ttplatform/instruments.h>
#include <ttplatform/stocktypecenter.h>

#include "traderbase/base/config/internal/words/categorywords.h"
#include "traderbase/base/config/internal/words/markets.h"

namespace ttservice::internal {

namespace {

// One instrument and its types. The base library and the stock type centre number their types independently.
class Instrument {
public:
    Instrument(const std::string& instrumentMarket, const std::string& instrumentCode)
        : market(instrumentMarket), code(instrumentCode) {}

    bool isBaseType(int type) const {
        static const std::string kNoText;
        return isTypedStock(type, market, code, kNoText);
    }

    bool isType(int type) const { return StockTypeCenter::instance().isTypedStock(type, market, code); }

private:
    const std::string& market;
    const std::string& code;
};

// The price types of option market orders.
bool isOptionMarketPrice(int priceType) {
    return (priceType >= 84 && priceType <= 89) || (priceType >= 130 && priceType <= 137) ||
           (priceType >= 140 && priceType <= 142);
}

LimitCategory techStockCategory(int priceType) {
    if (priceType == 50) return {words::kTechStockLimit, "base type 1172, price type 50"};
    if (priceType == 117) return {words::kTechStockClose, "base type 1172, price type 117"};
    return {words::kTechStockMarket, "base type 1172, any other price type"};
}

LimitCategory repurchaseCategory(const Instrument& instrument) {
    if (instrument.isType(100021)) return {words::kRepurchaseImpawn, "type 126 or 100017, and type 100021"};
    if (instrument.isType(124)) return {words::kRepurchaseBuyOut, "type 126 or 100017, and type 124"};
    return {words::kRepurchase, "type 126 or 100017"};
}

}  // namespace

LimitCategory orderLimitCategory(const std::string& market, const std::string& code, EBrokerPriceType priceType) {
    const Instrument instrument(market, code);
    if (instrument.isBaseType(1062) || instrument.isBaseType(1117)) return {words::kIpo, "base type 1062 or 1117"};
    if (instrument.isBaseType(1172)) return techStockCategory(priceType);
    if (instrument.isType(100003)) return {words::kStock, "type 100003"};
    if (isShanghaiConnect(market) || isShenzhenConnect(market))
        return {words::kStock, "market HGT, SSEHKEX, SGT or SZSEHKEX"};
    if (instrument.isType(100024)) return {words::kMoneyFund, "type 100024"};
    if (instrument.isType(100016)) return {words::kLoan, "type 100016"};
    if (instrument.isType(100103)) return {words::kPif, "type 100103"};
    if (instrument.isType(100004)) return {words::kFund, "type 100004"};
    if (instrument.isType(100013)) return {words::kEtf, "type 100013"};
    if (instrument.isType(126) || instrument.isType(100017)) return repurchaseCategory(instrument);
    if (market == markets::kNeeq) return {words::kDef, "market NEEQ"};
    if (isOptionExchange(market)) {
        if (isOptionMarketPrice(priceType)) return {words::kMarket, "market SHO or SZO, a market price type"};
        return {words::kLimit, "market SHO or SZO, any other price type"};
    }
    return {words::kDef, "no other rule"};
}

LimitCategory blockTradeQuantityCategory(const std::string& market, const std::string& code) {
    const Instrument instrument(market, code);
    if (instrument.isType(100003)) return {words::kStock, "type 100003"};
    if (instrument.isType(100104)) return {words::kDirectionalConvertibleBond, "type 100104"};
    if (instrument.isType(100103)) return {words::kPif, "type 100103"};
    if (instrument.isType(100016)) return {words::kLoan, "type 100016"};
    // In block trades, exchange-traded funds share a row with the other funds; order limits have a separate row for
    // them.
    if (instrument.isType(100004) || instrument.isType(100013)) return {words::kFund, "type 100004 or 100013"};
    return {words::kStock, "no other rule"};
}

// Deliberately without "PIF" and directional convertible bonds: they use the stock row for the amount, and rows of
// their own for the quantity.
LimitCategory blockTradeAmountCategory(const std::string& market, const std::string& code) {
    const Instrument instrument(market, code);
    if (instrument.isType(100003)) return {words::kStock, "type 100003"};
    if (instrument.isType(100016)) return {words::kLoan, "type 100016"};
    if (instrument.isType(100004) || instrument.isType(100013)) return {words::kFund, "type 100004 or 100013"};
    return {words::kStock, "no other rule"};
}

LimitCategory stockRateCategory(const std::string& market, const std::string& code) {
    const Instrument instrument(market, code);
    if (instrument.isBaseType(1154)) return {words::kLondonCdr, "base type 1154"};
    if (instrument.isBaseType(1124)) return {words::kInnovation, "base type 1124"};
    if (instrument.isBaseType(1136)) return {words::kCdr, "base type 1136"};
    if (instrument.isType(100003)) return {words::kStock, "type 100003"};
    if (instrument.isType(100016)) return {words::kLoan, "type 100016"};
    if (instrument.isType(100103)) return {words::kPif, "type 100103"};
    if (instrument.isType(100004)) return {words::kFund, "type 100004"};
    if (instrument.isType(100013)) return {words::kEtf, "type 100013"};
    // Rate limits know one kind of repurchase; only order limits distinguish pledged repurchase from buy-out.
    if (instrument.isType(126) || instrument.isType(100017)) return {words::kRepurchase, "type 126 or 100017"};
    return {words::kDef, "no other rule"};
}

LimitCategory shanghaiConnectRateCategory(const std::string& market, const std::string& code) {
    // The market alone decides: every code of the connect counts as a stock.
    if (isShanghaiConnect(market)) return {words::kStock, "market HGT or SSEHKEX"};
    if (Instrument(market, code).isType(100016)) return {words::kLoan, "type 100016"};
    return {words::kDef, "no other rule"};
}

// Nothing is classified here: bonds and unknown codes use the stock row as well.
LimitCategory shenzhenConnectRateCategory() {
    return {words::kStock, "always"};
}

}  // namespace ttservice::internal

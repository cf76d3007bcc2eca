// Limit facts: answers what holds for the order of an instrument, and what decided it.
// Doors: limitFacts().
// Owns: nothing; rows are those of tables/limittablefacts.h, categories and units go by the rules that the store has.
// Covered by tests/tools/ttconfig/limits_test.cpp.

#include "ttconfig/listings/limitfacts.h"

#include <ttplatform/text.h>

#include <utility>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/words/markets.h"
#include "ttconfig/calls/calltable.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsText;
using ttservice::ConfigCollector;

constexpr UnitSwitches kStoreSwitches{
    [](const std::string& market) { return ConfigCollector::instance()->useNewBondRules(market); },
    [] { return ConfigCollector::instance()->useRegistIPORules(); },
};

LimitReason reasonOf(const LimitTable& rows, const std::string& market, LimitCategory category) {
    LimitReason reason{market + '-' + std::string(category.word), category, std::nullopt};
    if (const auto entry = rows.find(market, category.word)) reason.row = *entry;
    return reason;
}

LimitReason reasonOf(const LimitTable& rows, const std::string& market, const std::string& code,
                     LimitCategory category) {
    if (const auto entry = rows.find(market, code)) return {market + '-' + code, {}, *entry};
    return reasonOf(rows, market, category);
}

template <typename Rule>
LimitReason reasonOf(Rule rule) {
    LimitReason reason;
    reason.rule = &describe(rule);
    return reason;
}

// --- facts

// One question's facts. Limits are looked up in upper case, units under the market and code as they were given.
class Facts {
public:
    Facts(const SettingsText& settings, const LimitQuestion& asked)
        : text(settings),
          question(asked),
          upperMarket(utils::toUpper(asked.market)),
          upperCode(utils::toUpper(asked.code)),
          priceType(asked.priceType.value_or(BROKER_PRICE_INVALID)),
          op(asked.op.value_or(OPT_INVALID)) {}

    std::vector<LimitFact> all() {
        addLimits();
        addUnits();
        addRates();
        return std::move(facts);
    }

private:
    void addLimits() {
        const auto category = orderLimitCategory(upperMarket, upperCode, static_cast<EBrokerPriceType>(priceType));
        add("orderLimit", "order limit", ask("getOrderLimit", {priceType}),
            reasonOf(orderLimitTable(text), upperMarket, upperCode, category));
        const LimitTable blockTrades = blockTradeTable(text);
        // By category alone: the code's own row is never looked for.
        add("blockTradeQuantity", "block trade, quantity", ask("getDazongOrderNumLimit"),
            reasonOf(blockTrades, upperMarket, blockTradeQuantityCategory(upperMarket, upperCode)));
        add("blockTradeAmount", "block trade, amount", ask("getDazongOrderTradeAmountLimit"),
            reasonOf(blockTrades, upperMarket, blockTradeAmountCategory(upperMarket, upperCode)));
    }

    void addUnits() {
        const std::string& market = question.market;
        const std::string& code = question.code;
        add("unitWord", "unit word", ask("getStockUnit"), reasonOf(stockUnit(market, code).rule));
        add("tradeUnit", "trade unit", ask("getStockTradeUnit"), reasonOf(stockTradeUnit(market, code).rule));
        add("minUnit", "minimum unit", ask("getTradeMinUnit", {op}),
            reasonOf(tradeMinUnit(market, code, op, kStoreSwitches).rule));
        add("formUnitWithFlag", "order form, flag true", ask("getUiMinUnit", {true, op}),
            reasonOf(uiMinUnit(market, code, true, op, kStoreSwitches).rule));
        add("formUnitWithoutFlag", "order form, flag false", ask("getUiMinUnit", {false, op}),
            reasonOf(uiMinUnit(market, code, false, op, kStoreSwitches).rule));
        if (question.op) add("buys", "operation buys", callTable().answer(state, "isBuyOpt", {op}), {});
    }

    void addRates() {
        add("stockRates", "stock rates", ask("getRateLimitPtr").at("fields"),
            reasonOf(stockRateTable(text), upperMarket, upperCode, stockRateCategory(upperMarket, upperCode)));
        // HK goes by the rows of either connect.
        const bool isHongKong = upperMarket == markets::kHk;
        if (isHongKong || isShanghaiConnect(upperMarket)) {
            const std::string market = isHongKong ? std::string(markets::kHgt) : upperMarket;
            add("shanghaiConnectRates", "Shanghai connect rates", ask("getHGTExchangeRateLimitPtr").at("fields"),
                reasonOf(shanghaiConnectRateTable(text), market, upperCode,
                         shanghaiConnectRateCategory(market, upperCode)));
        }
        if (isHongKong || isShenzhenConnect(upperMarket)) {
            const std::string market = isHongKong ? std::string(markets::kSgt) : upperMarket;
            add("shenzhenConnectRates", "Shenzhen connect rates", ask("getSgtExchangeRateLimitPtr").at("fields"),
                reasonOf(shenzhenConnectRateTable(text), market, upperCode, shenzhenConnectRateCategory()));
        }
    }

    void add(const char* name, const char* label, Answer answer, LimitReason reason) {
        facts.push_back({name, label, std::move(answer), std::move(reason)});
    }

    // The operation's answer for the instrument as it was given, and what else it takes.
    Answer ask(const char* operation, const Arguments& more = {}) {
        Arguments arguments{question.market, question.code};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return callTable().answer(state, operation, arguments);
    }

    const SettingsText& text;
    const LimitQuestion& question;
    const std::string upperMarket;
    const std::string upperCode;
    const int priceType;
    const int op;
    CallState state;
    std::vector<LimitFact> facts;
};

}  // namespace

std::vector<LimitFact> limitFacts(const SettingsText& text, const LimitQuestion& question) {
    return Facts(text, question).all();
}

}  // namespace ttconfig

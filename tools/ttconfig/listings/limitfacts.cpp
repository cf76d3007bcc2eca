// Limit facts: collects the limits, units and rates of an instrument, and what decided each.
// Entry points: limitFacts().
// Covered by tests/tools/ttconfig/reasons/limitreasons_test.cpp.

#include "ttconfig/listings/limitfacts.h"

#include <ttplatform/text.h>

#include <utility>

#include "traderbase/base/config/internal/limits/limittables.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

// Collects the facts for one question.
class Facts {
public:
    Facts(const standin::SettingsText& settings, const LimitQuestion& asked) : question(asked), explainer(settings) {}

    std::vector<LimitFact> all() {
        const int op = question.op.value_or(OPT_INVALID);
        addInstrument("orderLimit", "order limit", "getOrderLimit",
                      {question.priceType.value_or(BROKER_PRICE_INVALID)});
        addInstrument("blockTradeQuantity", "block trade, quantity", "getDazongOrderNumLimit");
        addInstrument("blockTradeAmount", "block trade, amount", "getDazongOrderTradeAmountLimit");
        addInstrument("unitWord", "unit word", "getStockUnit");
        addInstrument("tradeUnit", "trade unit", "getStockTradeUnit");
        addInstrument("minUnit", "minimum unit", "getTradeMinUnit", {op});
        addInstrument("formUnitWithFlag", "order form, flag true", "getUiMinUnit", {true, op});
        addInstrument("formUnitWithoutFlag", "order form, flag false", "getUiMinUnit", {false, op});
        if (question.op) add("buys", "operation buys", "isBuyOpt", {op});
        addInstrument("stockRates", "stock rates", "getRateLimitPtr");
        const std::string market = utils::toUpper(question.market);
        if (market == markets::kHk || isShanghaiConnect(market)) {
            addInstrument("shanghaiConnectRates", "Shanghai connect rates", "getHGTExchangeRateLimitPtr");
        }
        if (market == markets::kHk || isShenzhenConnect(market)) {
            addInstrument("shenzhenConnectRates", "Shenzhen connect rates", "getSgtExchangeRateLimitPtr");
        }
        return std::move(facts);
    }

private:
    // Asks about the instrument as given. more holds the operation's other arguments.
    void addInstrument(const char* name, const char* label, const char* operation, const Arguments& more = {}) {
        Arguments arguments{question.market, question.code};
        arguments.insert(arguments.end(), more.begin(), more.end());
        add(name, label, operation, arguments);
    }

    void add(const char* name, const char* label, const char* operation, const Arguments& arguments) {
        Answer answer = callTable().answer(state, operation, arguments);
        if (answer.is_object()) answer = Answer(answer.at("fields"));
        facts.push_back({name, label, std::move(answer), explainer.explain(operation, arguments)});
    }

    const LimitQuestion& question;
    const Explainer explainer;
    CallState state;
    std::vector<LimitFact> facts;
};

}  // namespace

std::vector<LimitFact> limitFacts(const standin::SettingsText& text, const LimitQuestion& question) {
    return Facts(text, question).all();
}

}  // namespace ttconfig

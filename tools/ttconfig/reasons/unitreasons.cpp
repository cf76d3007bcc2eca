// Reasons for the trade units: which numbered rule decides, and which settings it read.
// Entry points: addUnitReasons().
// Owns: the question whose settings the rules are reading, one per thread.
// Covered by reasons/explainer_test.cpp and explaining/explainedanswers_test.cpp in tests/tools/ttconfig/.

#include <ttplatform/enums.h>

#include "traderbase/base/config/internal/units/tradeunitrules.h"
#include "traderbase/base/config/internal/words/buyoperations.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/text/answertext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;

// The rules read switches through plain functions. While a Consulting object lives, these functions answer from the
// settings of its question and record what the rules read.
class Consulting {
public:
    explicit Consulting(const Question& asked) : question(asked), before(current) { current = this; }
    Consulting(const Consulting&) = delete;
    Consulting& operator=(const Consulting&) = delete;
    ~Consulting() { current = before; }

    static bool newBondRules(const std::string& market) { return current->ask("useNewBondRules", {market}); }
    static bool registIPORules() { return current->ask("useRegistIPORules", {}); }

    std::vector<Candidate> consulted;

private:
    bool ask(const std::string& call, const Arguments& arguments) {
        const Explanation flag = explainCall(call, {question.facts, arguments});
        const bool isOn = flag.answer.get<bool>();
        // For a market without such a flag, no setting is consulted.
        if (flag.reason != Reason::Fixed) {
            consulted.push_back({flag.reason, flag.rule, flag.place, isOn ? "the rule is on" : "the rule is off"});
        }
        return isOn;
    }

    static thread_local Consulting* current;

    const Question& question;
    Consulting* before;
};

thread_local Consulting* Consulting::current = nullptr;

constexpr internal::UnitSwitches kSwitches{&Consulting::newBondRules, &Consulting::registIPORules};

Explanation byRule(const Answer& answer, const internal::UnitRuleText& rule, std::vector<Candidate> consulted) {
    Explanation explanation{answer, Reason::UnitRule,
                            "rule " + std::string(rule.number) + ": " + std::string(rule.meaning), std::nullopt,
                            std::move(consulted)};
    explanation.unitRule = &rule;
    return explanation;
}

Explanation explainStockUnit(const Question& question) {
    const auto unit = internal::stockUnit(question.text(0), question.text(1));
    return byRule(std::string(unit.value), internal::describe(unit.rule), {});
}

Explanation explainTradeUnit(const Question& question) {
    const auto unit = internal::stockTradeUnit(question.text(0), question.text(1));
    return byRule(unit.value, internal::describe(unit.rule), {});
}

int operationOf(const Question& question, std::size_t place) {
    return question.arguments.size() > place ? question.number(place) : OPT_INVALID;
}

Explanation explainMinUnit(const Question& question) {
    Consulting consulting(question);
    const auto unit = internal::tradeMinUnit(question.text(0), question.text(1), operationOf(question, 2), kSwitches);
    return byRule(unit.value, internal::describe(unit.rule), std::move(consulting.consulted));
}

Explanation explainUiUnit(const Question& question) {
    Consulting consulting(question);
    const auto unit =
        internal::uiMinUnit(question.text(0), question.text(1), question.flag(2), operationOf(question, 3), kSwitches);
    return byRule(unit.value, internal::describe(unit.rule), std::move(consulting.consulted));
}

Explanation explainBuys(const Question& question) {
    const bool buys = internal::isBuyOperation(question.number(0));
    return decided(buys, Reason::Fixed,
                   std::string(buys ? "one of the " : "none of the ") +
                       std::to_string(std::size(internal::kBuyOperations)) + " operations that buy");
}

// Suggests both values for each flag that the rules consult.
void suggestFlags(const Question& /*question*/, const Wanted& /*wanted*/, Edits& edits) {
    for (const internal::SettingKey* key :
         {&keys::shangHaiNewBondRules, &keys::shenZhenNewBondRules, &keys::registIPORules}) {
        edits.reaching("every instrument that the rules are about");
        edits.setValue(*key, "1");
        edits.setValue(*key, "0");
        edits.removeLine(*key);
    }
}

}  // namespace

void addUnitReasons(ExplainedCalls& calls) {
    calls.add("getStockUnit", {explainStockUnit, {}});
    calls.add("getStockTradeUnit", {explainTradeUnit, {}});
    calls.add("getTradeMinUnit", {explainMinUnit, suggestFlags});
    calls.add("getUiMinUnit", {explainUiUnit, suggestFlags});
    calls.add("isBuyOpt", {explainBuys, {}});
}

}  // namespace ttconfig

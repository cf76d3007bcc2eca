// The explainer: says why the library gives an answer.
// Entry points: Explainer, explainedCalls().
// Owns: the table of operations that can be explained.
// Covered by reasons/explainer_test.cpp and explaining/explainedanswers_test.cpp in tests/tools/ttconfig/.

#include "ttconfig/reasons/explainer.h"

#include <utility>

#include "ttconfig/reasons/explainedcalls.h"

namespace ttconfig {

const ExplainedCalls& explainedCalls() {
    static const ExplainedCalls calls = [] {
        ExplainedCalls rows;
        addSwitchReasons(rows);
        addSingleValueReasons(rows);
        addPlatformValueReasons(rows);
        addLimitReasons(rows);
        addBondReasons(rows);
        addCreditReasons(rows);
        addContractReasons(rows);
        addListReasons(rows);
        addProductReasons(rows);
        addEtfReasons(rows);
        addUnitReasons(rows);
        addClientReasons(rows);
        return rows;
    }();
    return calls;
}

Explanation explainCall(const std::string& call, const Question& question) {
    const ExplainedCall* row = explainedCalls().find(call);
    if (row == nullptr) throw CallRefused(call + " is no question about settings: there is nothing to explain");
    return row->explain(question);
}

Explainer::Explainer(const standin::SettingsText& text, std::map<std::string, bool> overrides, std::string settingsPath)
    : settings(std::make_unique<SettingsFacts>(text, std::move(overrides), std::move(settingsPath))) {}

Explainer::~Explainer() = default;

bool Explainer::explains(const std::string& call) {
    return explainedCalls().find(call) != nullptr;
}

Explanation Explainer::explain(const std::string& call, const Arguments& arguments) const {
    CallState state;
    callTable().requireArguments(state, call, arguments);
    return explainCall(call, {*settings, arguments});
}

}  // namespace ttconfig

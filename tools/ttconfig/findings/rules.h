#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "ttconfig/findings/finding.h"

namespace ttconfig {

// The rules of rules.def. A rule's number is its position there, from 0.
enum class RuleId : std::uint16_t {
#define TT_CHECK_RULE(id, name, severity, title, explanation) id,
#include "ttconfig/findings/rules.def"
};

struct Rule {
    std::string_view name;
    Severity severity;
    std::string_view title;
    std::string_view explanation;
};

inline constexpr Rule kRules[] = {
#define TT_CHECK_RULE(id, name, severity, title, explanation) {name, Severity::severity, title, explanation},
#include "ttconfig/findings/rules.def"
};

inline constexpr std::size_t kRuleCount = sizeof(kRules) / sizeof(kRules[0]);

constexpr const Rule& ruleOf(RuleId id) {
    return kRules[static_cast<std::size_t>(id)];
}

// The number of the rule of that name. When there is none, throws a usage Fault that names the nearest rule.
std::size_t requireRule(std::string_view name);

// One rule and all rules as `check --explain` shows them, and the reference page of all rules.
std::string ruleText(const Rule& rule);
std::string rulesText();
std::string rulesPage();

}  // namespace ttconfig

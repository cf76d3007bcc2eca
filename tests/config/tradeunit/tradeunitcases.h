#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

#include "tests/config/tradeunit/tradeunitmade.h"
#include "tests/support/store.h"

// Tables of cases, grouped by the rule that should decide them or that they should narrowly miss.

namespace tests {

enum class Kind { Decides, Misses };
inline constexpr Kind decides = Kind::Decides;
inline constexpr Kind misses = Kind::Misses;

template <typename Rule, typename Value>
struct RuleCase {
    Rule rule;
    Kind kind;
    Made made;
    Asked asked;
    Value value;
};

template <typename Answer, typename Value>
struct BothAnswers {
    Answer explained;
    Value open;  // the public operation's answer
};

// Passes each case to answer(made, asked), after setting the store's switches as the case requires.
template <typename Rule, typename Value, typename Answers>
void expectCases(const std::vector<RuleCase<Rule, Value>>& cases, const std::map<std::string, int>& marketNumbers,
                 Answers answer) {
    standin::PlatformData data = emptyPlatform(marketNumbers);
    for (const auto& row : cases)
        row.made.addTo(data);
    standin::PlatformData::install(std::move(data));

    LoadedStore store;
    for (unsigned switches = kNone; switches <= kAllSwitches; ++switches) {
        store.load(settingsWith(switches));
        for (const auto& row : cases) {
            if (row.asked.switches != switches) continue;
            const auto both = answer(row.made, row.asked);
            SCOPED_TRACE("rule " + std::string(describe(row.rule).number) +
                         (row.kind == Kind::Decides ? " decides: " : " misses: ") + row.made.text() + "; " +
                         row.asked.text());
            EXPECT_EQ(both.open, row.value);
            EXPECT_EQ(both.explained.value, row.value);
            const std::string decidedBy(describe(both.explained.rule).number);
            if (row.kind == Kind::Decides) {
                EXPECT_EQ(decidedBy, describe(row.rule).number);
            } else {
                EXPECT_NE(decidedBy, describe(row.rule).number);
            }
        }
    }
}

// Every rule has a case that it decides, unless an earlier rule always wins, and one that narrowly misses it.
template <typename Rule, typename Value, std::size_t Count>
void expectCasesForEveryRule(const std::vector<RuleCase<Rule, Value>>& cases,
                             const ttservice::internal::UnitRuleText (&rules)[Count]) {
    using ttservice::internal::RuleReach;
    for (std::size_t index = 0; index < Count; ++index) {
        int decided = 0;
        int missed = 0;
        for (const auto& row : cases) {
            if (static_cast<std::size_t>(row.rule) != index) continue;
            (row.kind == Kind::Decides ? decided : missed) += 1;
        }
        if (rules[index].reach == RuleReach::Decides) {
            EXPECT_GT(decided, 0) << "no case is decided by rule " << rules[index].number;
        } else {
            EXPECT_EQ(decided, 0) << "rule " << rules[index].number << " cannot decide anything";
        }
        EXPECT_GT(missed, 0) << "no case just misses rule " << rules[index].number;
    }
}

}  // namespace tests

// Edits between generated texts: for two settings texts that differ in one line, how could the first give the answers
// of the second? There must be an edit, and it must change no more bytes than the texts differ in.

#include <gmock/gmock.h>
#include <standin/platformdatafile.h>

#include <algorithm>
#include <iostream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "tests/support/clientfolder.h"
#include "tests/support/sanitizers.h"
#include "tests/tools/ttconfig/support/madepairs.h"
#include "tests/tools/ttconfig/support/madesettings.h"
#include "tests/tools/ttconfig/support/writings.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "ttconfig/explaining/whynot.h"
#include "ttconfig/findings/checking.h"
#include "ttconfig/reasons/explainer.h"
#include "ttconfig/text/answertext.h"

namespace {

using tests::MadeChange;
using tests::MadePair;
using ttconfig::Answer;
using ttconfig::Arguments;
using ttconfig::callTable;
using ttconfig::Explainer;
using ttconfig::Wanted;

constexpr unsigned kTexts = 2000 / tests::kTriedOneIn;
constexpr unsigned kPairsOfText = 6;
constexpr unsigned kQuestionsOfPair = 12;
// At most this many tries per operation; switches are all alike.
constexpr unsigned kMostOfCall = 60;
constexpr unsigned kMostOfSwitch = 5;

// A change that nobody would make on purpose, such as one that breaks a row or a list, may need fewer bytes than the
// proposed edit. So may odd notations that no rule mentions; these are rare.
constexpr unsigned kMissedOf1000 = 3;
constexpr unsigned kLargerOf100 = 5;

struct Counts {
    unsigned asked = 0;
    unsigned found = 0;
    unsigned meant = 0;  // pairs whose change somebody could make on purpose
    unsigned small = 0;  // of those, edits with no more bytes than the change

    void add(const Counts& other) {
        asked += other.asked;
        found += other.found;
        meant += other.meant;
        small += other.small;
    }
};

struct Case {
    const MadePair& pair;
    const std::string& call;
    const Arguments& arguments;
};

std::string shown(const Case& asked, const std::string& wanted) {
    return asked.call +
           ttconfig::Argument(asked.arguments).dump(-1, ' ', false, ttconfig::Argument::error_handler_t::replace) +
           " wanted " + wanted + " (" + std::string(wordOf(asked.pair.kind)) + ")\n" + asked.pair.shown() + "\n";
}

bool isSwitch(const std::string& name) {
    const auto& rows = ttservice::internal::kPlatformSwitches;
    return std::any_of(std::begin(rows), std::end(rows), [&](const auto& row) { return row.predicate == name; });
}

// Whether the changed line gives the answer, and the change adds no finding. A renamed key loses its former effect.
bool isMeant(const MadePair& pair, const ttconfig::Explanation& then) {
    return pair.kind != MadeChange::OtherKey && then.place && then.place->line == pair.line &&
           ttconfig::checkSettings(standin::SettingsText(pair.after)).size() <=
               ttconfig::checkSettings(standin::SettingsText(pair.before)).size();
}

class WhyNotPairs : public testing::Test {
protected:
    void SetUp() override {
        std::string error;
        ASSERT_TRUE(standin::installPlatformFile(TT_SOURCE_DIR "/samples/platform.json", error)) << error;
    }

    void askAll(const MadePair& pair, tests::MadeQuestions& made) {
        const standin::SettingsText before(pair.before);
        const standin::SettingsText after(pair.after);
        const Explainer now(before);
        const Explainer then(after);
        for (const auto& [name, overloads] : callTable().rows()) {
            if (!Explainer::explains(name)) continue;
            if (counts[name].asked >= (isSwitch(name) ? kMostOfSwitch : kMostOfCall)) continue;
            for (unsigned i = 0; i < (isSwitch(name) ? 1 : kQuestionsOfPair); ++i) {
                const Arguments arguments = madeArguments(made, name, overloads[made.below(overloads.size())]);
                const ttconfig::Explanation wanted = then.explain(name, arguments);
                const Answer former = now.explain(name, arguments).answer;
                if (ttconfig::answerJson(former) == ttconfig::answerJson(wanted.answer)) continue;
                ask({pair, name, arguments}, now, wanted);
                break;
            }
        }
    }

    void ask(const Case& asked, const Explainer& now, const ttconfig::Explanation& then) {
        Counts& count = counts[asked.call];
        const std::vector<std::string> ways = tests::writings(then.answer);
        const std::string& wanted = ways[count.asked % ways.size()];
        ++count.asked;
        const auto whyNot = ttconfig::whyNot(now, asked.call, asked.arguments, Wanted(wanted));
        // As text, a list of one empty text is written like an empty list.
        const bool isFound = whyNot.edit || whyNot.isSoAlready;
        if (isFound) {
            ++count.found;
        } else {
            missed += shown(asked, wanted);
        }
        // True or false can be reached in many ways that keep nothing of the old line.
        if (then.answer.is_boolean() || !isMeant(asked.pair, then)) return;
        ++count.meant;
        if (whyNot.isSoAlready || (whyNot.edit && whyNot.edit->changedBytes() <= asked.pair.changedBytes)) {
            ++count.small;
        } else if (whyNot.edit) {
            larger += shown(asked, wanted) + "{+" + whyNot.edit->replacement + "+}\n";
        }
    }

    tests::ClientFolder client{"function getMarkets() return '{}' end\n"};
    std::map<std::string, Counts> counts;
    std::string missed;
    std::string larger;
};

TEST_F(WhyNotPairs, GetTheEditBetweenThemOrASmallerOne) {
    for (unsigned seed = 0; seed < kTexts; ++seed) {
        tests::MadePairs pairs(seed);
        tests::MadeQuestions made(seed);
        for (unsigned i = 0; i < kPairsOfText; ++i)
            askAll(pairs.next(), made);
    }
    Counts all;
    for (const auto& [name, count] : counts) {
        all.add(count);
        if (count.asked == 0) continue;
        std::cout << name << ": " << count.found << " found of " << count.asked << ", " << count.small
                  << " no larger of " << count.meant << "\n";
    }
    std::cout << "all: " << all.found << " found of " << all.asked << ", " << all.small << " no larger of " << all.meant
              << "\n";
    EXPECT_GT(all.asked, 2000U / tests::kTriedOneIn);
    EXPECT_GT(all.meant, 300U / tests::kTriedOneIn);
    EXPECT_LE((all.asked - all.found) * 1000, all.asked * kMissedOf1000) << missed;
    EXPECT_LE((all.meant - all.small) * 100, all.meant * kLargerOf100) << larger;
}

}  // namespace

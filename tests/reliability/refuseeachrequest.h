#pragma once

#include <gtest/gtest.h>

#include <new>
#include <utility>

#include "tests/reliability/failingallocations.h"

namespace tests {

enum class Outcome { Done, NoMemory, OtherException };

// Which request a round refuses, and what the outcome was.
class Refusal {
public:
    Refusal(long number, Shortage kind) : nth(number), shortage(kind) {}

    // Does the work while memory is refused. Outcome::Done means that the work succeeded in spite of the refusal.
    template <typename Work>
    Outcome during(Work&& work) const {
        const FailingAllocations failing(nth, shortage);
        const Outcome outcome = outcomeOf(std::forward<Work>(work));
        refused = failing.refused();
        return outcome;
    }

    bool wasRefused() const { return refused; }
    bool isOnce() const { return shortage == Shortage::Once; }

private:
    template <typename Work>
    static Outcome outcomeOf(Work&& work) {
        try {
            std::forward<Work>(work)();
            return Outcome::Done;
        } catch (const std::bad_alloc&) {
            return Outcome::NoMemory;
        } catch (...) {
            return Outcome::OtherException;
        }
    }

    long nth;
    Shortage shortage;
    mutable bool refused = false;
};

// Runs rounds of one kind until a round makes fewer requests than the number of the one to refuse. Returns how many
// were refused.
template <typename Round>
long refuseEachRequest(Shortage shortage, const Round& round) {
    long nth = 1;
    for (; !testing::Test::HasFatalFailure(); ++nth) {
        SCOPED_TRACE(testing::Message() << "request " << nth << (shortage == Shortage::Once ? "" : " and all others"));
        const Refusal refusal(nth, shortage);
        long before = piecesHeld();
        round(refusal);
        // Objects created once per process stay, and the first error of a kind creates some of them. So only memory
        // that the same round leaves behind a second time is a leak.
        if (piecesHeld() != before && !testing::Test::HasFatalFailure()) {
            before = piecesHeld();
            round(refusal);
            EXPECT_EQ(piecesHeld(), before);
        }
        if (!refusal.wasRefused()) break;
    }
    return nth - 1;
}

// Refuses each request that a round makes in Refusal::during(), once alone and once with all that follow. A round does
// its whole work from the beginning and frees everything before it returns.
template <typename Round>
long refuseEachRequest(const Round& round) {
    return refuseEachRequest(Shortage::Once, round) + refuseEachRequest(Shortage::FromThenOn, round);
}

}  // namespace tests

#pragma once

#include <gtest/gtest.h>

#include <new>
#include <utility>

#include "tests/reliability/failingallocations.h"

namespace tests {

enum class Outcome { Done, NoMemory, OtherException };

// Which request is refused in a round, and what came of it.
class Refusal {
public:
    Refusal(long number, Shortage kind) : nth(number), shortage(kind) {}

    // Does the work while memory is refused. Done although something was refused: the work coped with that.
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

// Goes through the rounds of one kind until one makes fewer requests than the one to be refused, and answers how many
// were refused.
template <typename Round>
long refuseEachRequest(Shortage shortage, const Round& round) {
    long nth = 1;
    for (; !testing::Test::HasFatalFailure(); ++nth) {
        SCOPED_TRACE(testing::Message() << "request " << nth << (shortage == Shortage::Once ? "" : " and all others"));
        const Refusal refusal(nth, shortage);
        long before = piecesHeld();
        round(refusal);
        // What is made once in a process stays, and some of that is made for the first error of its kind: a leak is
        // what the same round leaves behind again.
        if (piecesHeld() != before && !testing::Test::HasFatalFailure()) {
            before = piecesHeld();
            round(refusal);
            EXPECT_EQ(piecesHeld(), before);
        }
        if (!refusal.wasRefused()) break;
    }
    return nth - 1;
}

// A round does its work, all of it, from the beginning, some part of it by Refusal::during(); what it made is gone when
// it returns. Refuses each request of that part, alone and with all that follow.
template <typename Round>
long refuseEachRequest(const Round& round) {
    return refuseEachRequest(Shortage::Once, round) + refuseEachRequest(Shortage::FromThenOn, round);
}

}  // namespace tests

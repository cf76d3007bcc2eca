#pragma once

#include <exception>
#include <new>
#include <utility>

namespace tests {

// Whether only one request fails, or that one and all that follow.
enum class Shortage { Once, FromThenOn };

// Refuses memory to this thread from its n-th request on, counted from 1, for as long as it lives. The program must
// link failingallocations.cpp, which stands in for the global operator new.
class FailingAllocations {
public:
    FailingAllocations(long nth, Shortage shortage);
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;
    ~FailingAllocations();

    // Whether a request was refused so far.
    bool refused() const;
};

// How many pieces of memory all threads together hold now.
long piecesHeld();

// How many requests were refused in this process.
long requestsRefused();

enum class Outcome { Done, NoMemory, OtherException };

// Does the work while memory is refused as said. Done and refused: the work coped with the refusal.
struct Attempt {
    Outcome outcome;
    bool refused;
};

template <typename Work>
Attempt attempt(long nth, Shortage shortage, Work&& work) {
    const FailingAllocations failing(nth, shortage);
    try {
        std::forward<Work>(work)();
        return {Outcome::Done, failing.refused()};
    } catch (const std::bad_alloc&) {
        return {Outcome::NoMemory, failing.refused()};
    } catch (...) {
        return {Outcome::OtherException, failing.refused()};
    }
}

}  // namespace tests

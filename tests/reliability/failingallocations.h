#pragma once

namespace tests {

// Whether only one request fails, or that one and all that follow.
enum class Shortage { Once, FromThenOn };

// Refuses memory to this thread from its n-th request on, counted from 1, for as long as it lives. The program must
// link failingallocations.cpp and either failingmalloc.cpp, which sees every request in the process, or failingnew.cpp,
// which sees those of C++ alone.
class FailingAllocations {
public:
    FailingAllocations(long nth, Shortage shortage);
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;
    ~FailingAllocations();

    // Whether a request was refused so far.
    bool refused() const;
};

// Whether failingmalloc.cpp is linked.
bool isEverybodyRefused();

// How many pieces of memory all threads together hold now.
long piecesHeld();

}  // namespace tests

#pragma once

namespace tests {

// Whether only one request fails, or that one and all that follow.
enum class Shortage { Once, FromThenOn };

// While it lives, refuses memory to this thread from its n-th request on, counting from 1. The program must link
// failingallocations.cpp and either failingmalloc.cpp, which sees every request of the process, or failingnew.cpp,
// which sees only those of C++.
class FailingAllocations {
public:
    FailingAllocations(long nth, Shortage shortage);
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;
    ~FailingAllocations();

    // Whether any request has been refused so far.
    bool refused() const;
};

// Whether failingmalloc.cpp is linked.
bool isEverybodyRefused();

// How many blocks of memory all threads together hold now.
long piecesHeld();

}  // namespace tests

#pragma once

namespace tests {

// Counts this thread's heap allocations while it lives. The program must link tests/support/allocations.cpp, which
// replaces the global operator new.
class Allocations {
public:
    Allocations();
    // How often this thread has allocated memory since construction.
    long made() const;
    // How many more blocks all threads together hold now than at construction.
    long held() const;

private:
    long madeBefore;
    long heldBefore;
};

}  // namespace tests

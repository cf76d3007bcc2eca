#pragma once

namespace tests {

// Counts what this thread takes from the heap for as long as it lives. The program must link
// tests/support/allocations.cpp, which stands in for the global operator new.
class Allocations {
public:
    Allocations();
    // How often this thread has taken memory since.
    long made() const;
    // How many more pieces of memory all threads together hold now than then.
    long held() const;

private:
    long madeBefore;
    long heldBefore;
};

}  // namespace tests

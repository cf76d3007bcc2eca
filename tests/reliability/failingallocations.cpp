#include "tests/reliability/failingallocations.h"

#include <atomic>

#include "tests/reliability/refusals.h"

namespace tests {

namespace {

// Plain values: reading them must not allocate.
thread_local long untilRefusal = 0;  // 0: nothing is refused
thread_local bool goesOn = false;
thread_local bool wasRefused = false;
std::atomic<long> held{0};

}  // namespace

namespace refusals {

bool isRefused() noexcept {
    if (untilRefusal == 0 || --untilRefusal > 0) return false;
    if (goesOn) untilRefusal = 1;
    wasRefused = true;
    return true;
}

void taken() noexcept {
    ++held;
}

void givenBack() noexcept {
    --held;
}

}  // namespace refusals

FailingAllocations::FailingAllocations(long nth, Shortage shortage) {
    wasRefused = false;
    goesOn = shortage == Shortage::FromThenOn;
    untilRefusal = nth;
}

FailingAllocations::~FailingAllocations() {
    untilRefusal = 0;
}

bool FailingAllocations::refused() const {
    return wasRefused;
}

long piecesHeld() {
    return held;
}

}  // namespace tests

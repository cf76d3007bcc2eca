#include "tests/reliability/failingallocations.h"

#include <atomic>
#include <cstdlib>

namespace {

thread_local long untilRefusal = 0;  // 0: nothing is refused
thread_local bool goesOn = false;
thread_local bool wasRefused = false;
std::atomic<long> held{0};
std::atomic<long> refusals{0};

bool isRefused() {
    if (untilRefusal == 0 || --untilRefusal > 0) return false;
    if (goesOn) untilRefusal = 1;
    wasRefused = true;
    ++refusals;
    return true;
}

void* take(std::size_t bytes) noexcept {
    if (isRefused()) return nullptr;
    void* const memory = std::malloc(bytes == 0 ? 1 : bytes);
    if (memory != nullptr) ++held;
    return memory;
}

void* takeOrThrow(std::size_t bytes) {
    if (void* memory = take(bytes)) return memory;
    throw std::bad_alloc();
}

void giveBack(void* memory) noexcept {
    if (memory == nullptr) return;
    --held;
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t bytes) {
    return takeOrThrow(bytes);
}
void* operator new[](std::size_t bytes) {
    return takeOrThrow(bytes);
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
    return take(bytes);
}
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept {
    return take(bytes);
}
void operator delete(void* memory) noexcept {
    giveBack(memory);
}
void operator delete[](void* memory) noexcept {
    giveBack(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    giveBack(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    giveBack(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    giveBack(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    giveBack(memory);
}

namespace tests {

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

long requestsRefused() {
    return refusals;
}

}  // namespace tests

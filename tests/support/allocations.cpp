#include "tests/support/allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

thread_local long allocations = 0;
std::atomic<long> piecesHeld{0};

void* take(std::size_t bytes) {
    ++allocations;
    ++piecesHeld;
    if (void* memory = std::malloc(bytes == 0 ? 1 : bytes)) return memory;
    throw std::bad_alloc();
}

void giveBack(void* memory) {
    if (memory == nullptr) return;
    --piecesHeld;
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t bytes) {
    return take(bytes);
}
void* operator new[](std::size_t bytes) {
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

namespace tests {

Allocations::Allocations() : madeBefore(allocations), heldBefore(piecesHeld) {}

long Allocations::made() const {
    return allocations - madeBefore;
}

long Allocations::held() const {
    return piecesHeld - heldBefore;
}

}  // namespace tests

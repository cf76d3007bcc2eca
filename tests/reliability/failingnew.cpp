// Refuses C++ allocations: replaces the global operator new, including the aligned forms. For builds in which malloc
// cannot be replaced, as with sanitizers, which replace it themselves.

#include <cstddef>
#include <cstdlib>
#include <new>

#include "tests/reliability/failingallocations.h"
#include "tests/reliability/refusals.h"

namespace {

void* take(std::size_t bytes) noexcept {
    if (tests::refusals::isRefused()) return nullptr;
    void* const memory = std::malloc(bytes == 0 ? 1 : bytes);
    if (memory != nullptr) tests::refusals::taken();
    return memory;
}

void* take(std::size_t bytes, std::align_val_t alignment) noexcept {
    if (tests::refusals::isRefused()) return nullptr;
    const auto step = static_cast<std::size_t>(alignment);
    void* const memory = std::aligned_alloc(step, (bytes + step - 1) / step * step);
    if (memory != nullptr) tests::refusals::taken();
    return memory;
}

template <typename... Alignment>
void* takeOrThrow(std::size_t bytes, Alignment... alignment) {
    if (void* memory = take(bytes, alignment...)) return memory;
    throw std::bad_alloc();
}

void giveBack(void* memory) noexcept {
    if (memory == nullptr) return;
    tests::refusals::givenBack();
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
void* operator new(std::size_t bytes, std::align_val_t alignment) {
    return takeOrThrow(bytes, alignment);
}
void* operator new[](std::size_t bytes, std::align_val_t alignment) {
    return takeOrThrow(bytes, alignment);
}
void* operator new(std::size_t bytes, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return take(bytes, alignment);
}
void* operator new[](std::size_t bytes, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return take(bytes, alignment);
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
void operator delete(void* memory, std::align_val_t) noexcept {
    giveBack(memory);
}
void operator delete[](void* memory, std::align_val_t) noexcept {
    giveBack(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    giveBack(memory);
}
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept {
    giveBack(memory);
}
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
    giveBack(memory);
}
void operator delete[](void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
    giveBack(memory);
}

bool tests::isEverybodyRefused() {
    return false;
}

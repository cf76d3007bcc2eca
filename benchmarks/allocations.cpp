// Counts heap allocations by replacing the C library's functions, which operator new calls too. Works with glibc only,
// and not under a sanitizer.

#include "benchmarks/allocations.h"

#include <cstddef>

namespace {

thread_local std::uint64_t count = 0;

}  // namespace

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t number, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

__attribute__((visibility("default"))) void* malloc(std::size_t size) {
    ++count;
    return __libc_malloc(size);
}

__attribute__((visibility("default"))) void* calloc(std::size_t number, std::size_t size) {
    ++count;
    return __libc_calloc(number, size);
}

__attribute__((visibility("default"))) void* realloc(void* block, std::size_t size) {
    ++count;
    return __libc_realloc(block, size);
}

}  // extern "C"

namespace benchmarks {

std::uint64_t allocationsSoFar() {
    return count;
}

}  // namespace benchmarks

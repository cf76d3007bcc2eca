// Refuses any allocation in the process: replaces malloc and its relatives, which operator new, the JSON library's
// buffers, the interpreter and the C library's files use. For builds without a sanitizer on glibc, whose own functions
// remain callable as __libc_malloc and so on.

#include <cerrno>
#include <cstddef>
#include <cstdint>

#include "tests/reliability/failingallocations.h"
#include "tests/reliability/refusals.h"

#define TT_FOR_EVERYBODY extern "C" __attribute__((visibility("default")))

extern "C" {
void* __libc_malloc(std::size_t bytes);
void* __libc_calloc(std::size_t count, std::size_t bytes);
void* __libc_realloc(void* memory, std::size_t bytes);
void* __libc_memalign(std::size_t alignment, std::size_t bytes);
void __libc_free(void* memory);
}

namespace {

void* counted(void* memory) noexcept {
    if (memory != nullptr) tests::refusals::taken();
    return memory;
}

bool isRefused() noexcept {
    if (!tests::refusals::isRefused()) return false;
    errno = ENOMEM;
    return true;
}

}  // namespace

TT_FOR_EVERYBODY void* malloc(std::size_t bytes) noexcept {
    return isRefused() ? nullptr : counted(__libc_malloc(bytes));
}

TT_FOR_EVERYBODY void* calloc(std::size_t count, std::size_t bytes) noexcept {
    return isRefused() ? nullptr : counted(__libc_calloc(count, bytes));
}

// The block stays in place when it cannot grow. A request to shrink is refused too: no caller may rely on it.
TT_FOR_EVERYBODY void* realloc(void* memory, std::size_t bytes) noexcept {
    if (memory != nullptr && bytes == 0) {
        tests::refusals::givenBack();
        return __libc_realloc(memory, bytes);
    }
    if (isRefused()) return nullptr;
    return memory == nullptr ? counted(__libc_malloc(bytes)) : __libc_realloc(memory, bytes);
}

TT_FOR_EVERYBODY void* memalign(std::size_t alignment, std::size_t bytes) noexcept {
    return isRefused() ? nullptr : counted(__libc_memalign(alignment, bytes));
}

TT_FOR_EVERYBODY void* aligned_alloc(std::size_t alignment, std::size_t bytes) noexcept {
    return memalign(alignment, bytes);
}

TT_FOR_EVERYBODY int posix_memalign(void** memory, std::size_t alignment, std::size_t bytes) noexcept {
    void* const fresh = memalign(alignment, bytes);
    if (fresh == nullptr) return ENOMEM;
    *memory = fresh;
    return 0;
}

TT_FOR_EVERYBODY void free(void* memory) noexcept {
    if (memory == nullptr) return;
    tests::refusals::givenBack();
    __libc_free(memory);
}

bool tests::isEverybodyRefused() {
    return true;
}

// A host that loads the library, uses it and unloads it a hundred times. The library must really be unloaded each time,
// and leak no memory. The host links the libraries that it depends on, so these stay loaded.

#include <dlfcn.h>
#include <malloc.h>

#include <cstdio>
#include <cstdlib>

#include "tests/support/sanitizers.h"

namespace {

constexpr int kRounds = 100;
constexpr int kWarmUp = 20;  // these rounds cover what other libraries allocate once

void require(bool holds, const char* what) {
    if (holds) return;
    const char* const reason = dlerror();
    std::printf("broken: %s%s%s\n", what, reason != nullptr ? ": " : "", reason != nullptr ? reason : "");
    std::exit(1);
}

void loadUseUnload(const char* path, const char* settings) {
    void* const user = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    require(user != nullptr, "the library is loaded");
    using Use = int (*)(const char*);
    const auto use = reinterpret_cast<Use>(dlsym(user, "useTheLibrary"));
    require(use != nullptr, "its user is found");
    require(use(settings) == 0, "it answers");
    require(dlclose(user) == 0, "it is unloaded");
    require(dlopen(path, RTLD_NOW | RTLD_NOLOAD) == nullptr, "its user is gone");
    require(dlopen(TT_LIBRARY_PATH, RTLD_NOW | RTLD_NOLOAD) == nullptr, "the library is gone");
}

std::size_t bytesInUse() {
    return mallinfo2().uordblks;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    for (int round = 0; round < kWarmUp; ++round)
        loadUseUnload(argv[1], argv[2]);
    const std::size_t before = bytesInUse();
    for (int round = 0; round < kRounds; ++round)
        loadUseUnload(argv[1], argv[2]);
    const std::size_t after = bytesInUse();
    std::printf("%d rounds, %zu bytes in use before, %zu after\n", kRounds, before, after);
    // The loader's own lists grow in steps, independently of the rounds; one leaked record per round would exceed this.
    require(tests::kUnderSanitizer || after <= before + kRounds * 100, "nothing is left behind");
    std::puts("came and went");
    return 0;
}

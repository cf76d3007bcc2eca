// Lets tests observe the queries made to the stand-in services.
// Entry points: setQueryHook(), showQuery().
// Owns: the hook.
// Test: tests/platform/services_test.cpp
#include "standin/queryhook.h"

#include <atomic>
#include <utility>

namespace standin {

namespace {

std::atomic<bool> hookIsSet{false};

// Never destroyed: static destructors may still query the services.
QueryHook& storedHook() {
    static QueryHook& hook = *new QueryHook;
    return hook;
}

}  // namespace

void setQueryHook(QueryHook hook) {
    storedHook() = std::move(hook);
    hookIsSet.store(static_cast<bool>(storedHook()), std::memory_order_release);
}

void showQuery(std::string_view operation, int number, std::string_view first, std::string_view second) {
    if (!hookIsSet.load(std::memory_order_acquire)) return;
    storedHook()(Query{operation, number, first, second});
}

}  // namespace standin

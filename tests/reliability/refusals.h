#pragma once

// Connects the replaced allocator (failingmalloc.cpp or failingnew.cpp) with the tests.

namespace tests::refusals {

// Called at every request: whether to refuse it.
bool isRefused() noexcept;

// Called for every block of memory that is allocated or freed.
void taken() noexcept;
void givenBack() noexcept;

}  // namespace tests::refusals

#pragma once

// Between what stands in for an allocator (failingmalloc.cpp or failingnew.cpp) and what the tests say about it.

namespace tests::refusals {

// Asked at every request: whether it is refused.
bool isRefused() noexcept;

// Told of every piece of memory that is handed out and that comes back.
void taken() noexcept;
void givenBack() noexcept;

}  // namespace tests::refusals

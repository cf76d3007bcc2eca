#pragma once

#include <cstdint>

namespace benchmarks {

// The number of heap allocations of this thread so far, including those of C libraries. Only in programs built with
// allocations.cpp.
std::uint64_t allocationsSoFar();

}  // namespace benchmarks

#pragma once

#include <cstdint>

namespace benchmarks {

// How often this thread has asked the heap for memory so far, whoever asked: C libraries count as well. Only in
// programs that are built with allocations.cpp.
std::uint64_t allocationsSoFar();

}  // namespace benchmarks

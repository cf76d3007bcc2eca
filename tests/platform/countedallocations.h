#pragma once

namespace tests {

// How often this process, including its shared libraries, has allocated from the heap.
long allocationCount();

}  // namespace tests

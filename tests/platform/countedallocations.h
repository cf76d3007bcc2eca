#pragma once

namespace tests {

// How often anybody in this process, its shared libraries included, has asked the free store for memory.
long allocationCount();

}  // namespace tests

// The reader/writer mutex of the switch table: how a writer gets alone.
// Entry points: ReadMostlyMutex::Writer; the readers' way is in the header.
// Covered by tests/config/internal/switches/readmostlymutex_test.cpp.

#include "traderbase/base/config/internal/switches/readmostlymutex.h"

#include <thread>

namespace ttservice::internal {

void ReadMostlyMutex::shutOutReaders() {
    writerInside.store(true, std::memory_order_seq_cst);
    for (Place& place : places) {
        // Readers inside look something up and leave; a reader that was put off its core in between needs that core.
        while (place.taken.load(std::memory_order_seq_cst))
            std::this_thread::yield();
    }
}

}  // namespace ttservice::internal

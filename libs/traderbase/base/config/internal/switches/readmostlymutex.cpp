// The reader/writer mutex of the switch table: how a writer gets exclusive access.
// Entry points: ReadMostlyMutex::Writer; the readers' side is in the header.
// Covered by tests/config/internal/switches/readmostlymutex_test.cpp.

#include "traderbase/base/config/internal/switches/readmostlymutex.h"

#include <thread>

namespace ttservice::internal {

void ReadMostlyMutex::shutOutReaders() {
    writerInside.store(true, std::memory_order_seq_cst);
    for (Place& place : places) {
        // Readers leave after one look-up, so spinning is short; yield in case a preempted reader needs this core.
        while (place.taken.load(std::memory_order_seq_cst))
            std::this_thread::yield();
    }
}

}  // namespace ttservice::internal

#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

#include <boost/thread/shared_mutex.hpp>

// A reader/writer mutex for data that is read by many threads and rarely written.
//
// A reader that meets no writer marks a place of its own, a cache line that no other thread writes to, so readers on
// several cores do not slow one another down. A writer first shuts out new readers, which then queue at an ordinary
// shared mutex, and waits for those inside to leave. So a writer never starves, and readers wait no longer than it
// writes. Readers that find their places taken queue at the ordinary mutex as well; none is refused.
//
// As with every such mutex, a thread that is reading must not start another read or a write before it has finished.

namespace ttservice::internal {

class ReadMostlyMutex {
public:
    ReadMostlyMutex() = default;
    ReadMostlyMutex(const ReadMostlyMutex&) = delete;
    ReadMostlyMutex& operator=(const ReadMostlyMutex&) = delete;

    // Holds shared access for its lifetime, on the thread that created it.
    class Reader {
    public:
        explicit Reader(ReadMostlyMutex& owner) : mutex(owner), place(owner.enter(this)) {
            if (place == nullptr) mutex.queue.lock_shared();
        }
        Reader(const Reader&) = delete;
        Reader& operator=(const Reader&) = delete;
        ~Reader() {  // NOLINT(bugprone-exception-escape): unlocking throws only for a mutex that is not locked
            if (place != nullptr) {
                place->store(false, std::memory_order_release);
            } else {
                mutex.queue.unlock_shared();
            }
        }

    private:
        ReadMostlyMutex& mutex;
        std::atomic<bool>* place;  // null if the reader queued
    };

    // Holds exclusive access for its lifetime.
    class Writer {
    public:
        explicit Writer(ReadMostlyMutex& owner) : mutex(owner) {
            mutex.queue.lock();
            mutex.shutOutReaders();
        }
        Writer(const Writer&) = delete;
        Writer& operator=(const Writer&) = delete;
        ~Writer() {  // NOLINT(bugprone-exception-escape): unlocking throws only for a mutex that is not locked
            mutex.writerInside.store(false, std::memory_order_release);
            mutex.queue.unlock();
        }

    private:
        ReadMostlyMutex& mutex;
    };

private:
    struct alignas(64) Place {
        std::atomic<bool> taken{false};
    };
    static constexpr std::size_t kPlaces = 64;
    static constexpr std::size_t kTries = 2;

    // Threads have different stacks, so the 64 KiB block of an address on the stack tells them apart well enough. If
    // two threads collide, or a thread's stack crosses into another block, only the choice of the place changes.
    static std::size_t firstPlaceFor(const void* onStack) {
        const std::uint64_t stretch = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(onStack)) >> 16;
        return static_cast<std::size_t>((stretch * 0x9E3779B97F4A7C15ULL) >> 58);
    }

    // Takes a place; null if the caller must queue. The reader takes a place before it checks for a writer, and a
    // writer announces itself before it checks the places. Both are in one total order, so at least one of them sees
    // the other.
    std::atomic<bool>* enter(const void* onStack) {
        if (writerInside.load(std::memory_order_relaxed)) return nullptr;
        const std::size_t first = firstPlaceFor(onStack);
        for (std::size_t i = 0; i < kTries; ++i) {
            std::atomic<bool>& taken = places[(first + i) % kPlaces].taken;
            if (taken.exchange(true, std::memory_order_seq_cst)) continue;
            if (!writerInside.load(std::memory_order_seq_cst)) return &taken;
            taken.store(false, std::memory_order_release);
            return nullptr;
        }
        return nullptr;
    }

    // Must be called with exclusive access to the queue: new readers go there and wait.
    void shutOutReaders();

    std::array<Place, kPlaces> places;
    std::atomic<bool> writerInside{false};
    boost::shared_mutex queue;
};

}  // namespace ttservice::internal

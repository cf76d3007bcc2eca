#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

#include <boost/thread/shared_mutex.hpp>

// A reader/writer mutex for data that everybody reads and hardly anybody writes.
//
// A reader that meets no writer publishes itself in a place of its own, a cache line that no other thread writes to, so
// readers on several cores do not slow one another down. A writer first shuts out newcomers, who then queue at an
// ordinary shared mutex, and waits for those inside to leave: it is never starved, and readers are held up for no
// longer than it writes. Readers that find their places taken queue at the ordinary mutex as well; nobody is turned
// away.
//
// As with every such mutex, a thread that reads must not ask to read or write again before it has left.

namespace ttservice::internal {

class ReadMostlyMutex {
public:
    ReadMostlyMutex() = default;
    ReadMostlyMutex(const ReadMostlyMutex&) = delete;
    ReadMostlyMutex& operator=(const ReadMostlyMutex&) = delete;

    // Reads for as long as it lives, on the thread that made it.
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
        std::atomic<bool>* place;  // null for a reader that queued
    };

    // Writes for as long as it lives, alone.
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

    // Two threads have different stacks, so an address on the stack tells them apart well enough; when it does not, or
    // when the thread's stack reaches into another stretch, only the choice of the place changes. 64 KiB a stretch.
    static std::size_t firstPlaceFor(const void* onStack) {
        const std::uint64_t stretch = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(onStack)) >> 16;
        return static_cast<std::size_t>((stretch * 0x9E3779B97F4A7C15ULL) >> 58);
    }

    // Takes a place; null when the caller has to queue. A place is taken before the writer is looked for, and a writer
    // announces itself before it looks at the places: with both in one total order, at least one sees the other.
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

    // Called with the queue held alone: newcomers go there and wait.
    void shutOutReaders();

    std::array<Place, kPlaces> places;
    std::atomic<bool> writerInside{false};
    boost::shared_mutex queue;
};

}  // namespace ttservice::internal

#include "traderbase/base/config/internal/switches/readmostlymutex.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

using ttservice::internal::ReadMostlyMutex;

TEST(ReadMostlyMutex, AWriterHasExclusiveAccess) {
    ReadMostlyMutex mutex;
    // Plain numbers on purpose: a reader that meets a writer sees them differ, and the thread sanitizer reports the
    // race.
    long first = 0;
    long second = 0;
    std::atomic<bool> stop{false};
    std::atomic<long> torn{0};
    std::atomic<long> reads{0};
    std::vector<std::thread> readers;
    for (int i = 0; i < 4; ++i) {
        readers.emplace_back([&] {
            while (!stop) {
                const ReadMostlyMutex::Reader reader(mutex);
                torn += first != second;
                ++reads;
            }
        });
    }
    std::vector<std::thread> writers;
    for (int i = 0; i < 2; ++i) {
        writers.emplace_back([&] {
            for (int j = 0; j < 2000; ++j) {
                const ReadMostlyMutex::Writer writer(mutex);
                ++first;
                ++second;
            }
        });
    }
    for (std::thread& writer : writers)
        writer.join();
    stop = true;
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_EQ(torn, 0);
    EXPECT_EQ(first, 4000);
    EXPECT_EQ(second, 4000);
    EXPECT_GT(reads, 0);
}

TEST(ReadMostlyMutex, ManyReadersAreInsideTogether) {
    // More readers than slots, so that some have to queue.
    constexpr int kReaders = 100;
    ReadMostlyMutex mutex;
    std::atomic<int> inside{0};
    std::vector<std::thread> readers;
    readers.reserve(kReaders);
    for (int i = 0; i < kReaders; ++i) {
        readers.emplace_back([&] {
            const ReadMostlyMutex::Reader reader(mutex);
            ++inside;
            while (inside < kReaders)
                std::this_thread::yield();  // would never end if one reader excluded another
        });
    }
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_EQ(inside, kReaders);
}

TEST(ReadMostlyMutex, AWriterGetsInWhileReadersComeAndGoWithoutPause) {
    ReadMostlyMutex mutex;
    std::atomic<bool> stop{false};
    std::vector<std::thread> readers;
    for (int i = 0; i < 4; ++i) {
        readers.emplace_back([&] {
            while (!stop) {
                const ReadMostlyMutex::Reader reader(mutex);
            }
        });
    }
    for (int i = 0; i < 1000; ++i) {
        const ReadMostlyMutex::Writer writer(mutex);  // if the test hangs here, the writer starves
    }
    stop = true;
    for (std::thread& reader : readers)
        reader.join();
    SUCCEED();
}

TEST(ReadMostlyMutex, ReadersGetInWhileWritersComeAndGoWithoutPause) {
    ReadMostlyMutex mutex;
    std::atomic<bool> stop{false};
    std::vector<std::thread> writers;
    for (int i = 0; i < 2; ++i) {
        writers.emplace_back([&] {
            while (!stop) {
                const ReadMostlyMutex::Writer writer(mutex);
            }
        });
    }
    for (int i = 0; i < 1000; ++i) {
        const ReadMostlyMutex::Reader reader(mutex);
    }
    stop = true;
    for (std::thread& writer : writers)
        writer.join();
    SUCCEED();
}

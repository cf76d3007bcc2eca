#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/tempfile.h"

// Settings files that change while they are being read, and the possible results of loading one.

namespace tests {

using SwitchLists = std::map<std::string, std::vector<int>>;

// The files are large, so that there is time to change them, and consist of whole memory pages: each page holds the
// header or one switch, padded with blanks. A file that is cut between two pages, or in the second half of a page,
// therefore ends after a whole switch.
constexpr std::size_t kPageSize = 4096;

// A file with count switches, each with this list: 8 MiB for 2,047 of them.
std::string pagesOfSwitches(std::size_t count, const std::vector<int>& list);

// What a load of it finds.
SwitchLists listsOfPages(std::size_t count, const std::vector<int>& list);

// The result of loading a file that was cut in the middle of a page during the read.
enum class CutLoad { Illegal, Whole, Short, Damaged };

// A load may find every switch up to some page after the cut, or all of them. The system zeroes the cut page from the
// cut on. A read at exactly that moment sees NULs there, which join the lines on both sides, so that a list gains or
// loses entries: a damaged load.
CutLoad judgedCutLoad(const SwitchLists& loaded, const SwitchLists& whole, std::size_t cutPage);

// Runs the action once, on a thread of its own, as soon as the file has been opened the given number of times. Its
// destructor waits for that.
class WhenOpened {
public:
    WhenOpened(std::string path, int times, const std::function<void()>& action);
    WhenOpened(const WhenOpened&) = delete;
    WhenOpened& operator=(const WhenOpened&) = delete;
    ~WhenOpened();

private:
    const std::string path;
    const int times;
    const int notices;  // inotify descriptor for the file
    std::thread thread;
};

// While it lives, keeps replacing a file with one text and then the other, as fast as it can.
class Replacing {
public:
    // Writes the texts into the folder, which also holds the replaced file.
    Replacing(const TempFolder& folder, const std::string& first, const std::string& second);
    Replacing(const Replacing&) = delete;
    Replacing& operator=(const Replacing&) = delete;
    ~Replacing();

    const std::string& path() const { return place; }
    long times() const { return count; }

private:
    void put(const std::string& file) const;

    const std::string place;
    const std::string next;
    std::atomic<bool> ended{false};
    std::atomic<long> count{0};
    std::thread thread;
};

}  // namespace tests

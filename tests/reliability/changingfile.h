#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/tempfile.h"

// Settings files that change while they are read, and what a load of one may give.

namespace tests {

using SwitchLists = std::map<std::string, std::vector<int>>;

// The files are large, so that there is time to change them, and take whole pages of memory: a page holds the header or
// one switch and then blanks up to its end. So wherever between two pages, or in the second half of a page, a file
// ends, it ends behind a whole switch.
constexpr std::size_t kPageSize = 4096;

// A file of so many switches, each with this list: 8 MiB for 2,047 of them.
std::string pagesOfSwitches(std::size_t count, const std::vector<int>& list);

// What is loaded from it.
SwitchLists listsOfPages(std::size_t count, const std::vector<int>& list);

// What a load of a file gave that was cut off in the middle of a page while it was read.
enum class CutLoad { Illegal, Whole, Short, Damaged };

// Every switch up to some page behind the cut, or all of them. Only in the page of the cut, which the system clears
// from there on, a read that meets just that moment finds NULs; they join the lines on both sides, and the list has
// more or fewer of its one number: a damaged load.
CutLoad judgedCutLoad(const SwitchLists& loaded, const SwitchLists& whole, std::size_t cutPage);

// Does something once, on a thread of its own, as soon as a file was opened so many times. At its end it has done it.
class WhenOpened {
public:
    WhenOpened(std::string path, int times, const std::function<void()>& action);
    WhenOpened(const WhenOpened&) = delete;
    WhenOpened& operator=(const WhenOpened&) = delete;
    ~WhenOpened();

private:
    const std::string path;
    const int times;
    const int notices;  // of the system, about the file
    std::thread thread;
};

// Puts one file and the other in a place in turn, as fast as it can, for as long as it lives.
class Replacing {
public:
    // The texts are written into the folder; the place is a file in it, too.
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

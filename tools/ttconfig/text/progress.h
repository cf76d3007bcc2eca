#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace ttconfig {

// One line about long work, on the standard error stream when that is a terminal, and nowhere else. It appears after a
// third of a second, is written at most ten times a second, and goes away with the object, so that nothing of it stands
// among messages or answers that are written later. Messages that are written while it shows must hide() it first.
class Progress {
public:
    // What is done, such as "checking", and how many steps there are; 0 when nobody knows.
    explicit Progress(std::string work, std::size_t stepCount = 0);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // A step has begun: how many are done, and what this one is about. Costs next to nothing in a tight loop.
    void at(std::size_t done, std::string_view about = {}) {
        if (shows && (++calls % kCallsBetweenLooks) == 0) look(done, about);
    }

    // The same for steps that take long by themselves: the clock is looked at each time.
    void atLongStep(std::size_t done, std::string_view about = {}) {
        if (shows) look(done, about);
    }

    // Takes the line away until the next step.
    void hide();

private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::size_t kCallsBetweenLooks = 256;

    void look(std::size_t done, std::string_view about);

    const std::string doing;
    const std::size_t steps;
    const bool shows;
    std::size_t calls = 0;
    Clock::time_point next;  // not to be written before
    bool written = false;
};

}  // namespace ttconfig

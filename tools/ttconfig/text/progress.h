#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace ttconfig {

// The progress line of a long task, written to standard error only when that is a terminal. It appears after a third of
// a second, is updated at most ten times a second, and disappears with the object, so that it never mixes with later
// messages or answers. To write a message while the line shows, call hide() first.
class Progress {
public:
    // The work, such as "checking", and the number of steps; 0 when that is unknown.
    explicit Progress(std::string work, std::size_t stepCount = 0);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // A step has begun: how many are done, and what this one is about. Cheap enough for a tight loop.
    void at(std::size_t done, std::string_view about = {}) {
        if (shows && (++calls % kCallsBetweenLooks) == 0) look(done, about);
    }

    // The same for steps that are slow themselves: looks at the clock every time.
    void atLongStep(std::size_t done, std::string_view about = {}) {
        if (shows) look(done, about);
    }

    // Removes the line until the next step.
    void hide();

private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::size_t kCallsBetweenLooks = 256;

    void look(std::size_t done, std::string_view about);

    const std::string doing;
    const std::size_t steps;
    const bool shows;
    std::size_t calls = 0;
    Clock::time_point next;  // the earliest time of the next update
    bool written = false;
};

}  // namespace ttconfig

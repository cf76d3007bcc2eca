// Progress: shows a person at a terminal how far a long task has got.
// Entry points: Progress.
// Owns: the terminal's last line while the progress line shows.
// Covered by tests/tools/ttconfig/text/progress_test.cpp.

#include "ttconfig/text/progress.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdlib>
#include <utility>

#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kBeforeTheFirst{300};
constexpr milliseconds kBetween{100};
constexpr std::string_view kTakeAway = "\r\x1b[K";

// A terminal that cannot erase a line gets no progress line.
bool canShow() {
    const char* terminal = std::getenv("TERM");
    return isatty(STDERR_FILENO) == 1 && terminal != nullptr && std::string_view(terminal) != "dumb";
}

// A failed write does not matter: nothing depends on this line.
void writeOut(std::string_view text) {
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
}

}  // namespace

Progress::Progress(std::string work, std::size_t stepCount)
    : doing(std::move(work)), steps(stepCount), shows(canShow()), next(Clock::now() + kBeforeTheFirst) {}

Progress::~Progress() {
    hide();
}

void Progress::hide() {
    if (written) writeOut(kTakeAway);
    written = false;
}

void Progress::look(std::size_t done, std::string_view about) {
    const Clock::time_point now = Clock::now();
    if (now < next) return;
    next = now + kBetween;
    std::string line = fmt::format("{}{}", kTakeAway, doing);
    if (steps > 0) line += fmt::format(" {} of {}", done, steps);
    if (!about.empty()) line += ": " + shownText(about);
    writeOut(line);
    written = true;
}

}  // namespace ttconfig

// Work in a child process with a time limit. POSIX only, like the rest of the program.
// Entry points: runInChild().
// Covered by tests/tools/ttconfig/scripts/childprocess_test.cpp.

#include "ttconfig/scripts/childprocess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <system_error>

#include "ttconfig/invocation/fault.h"

namespace ttconfig {

namespace {

using Clock = std::chrono::steady_clock;

// The child sends this last, after the work has returned. No line of the work contains it.
constexpr char kFinishedMark = '\0';

[[noreturn]] void failToStart() {
    throw Fault(kExitInternal, "no process can be started: " + std::generic_category().message(errno));
}

void writeAll(int descriptor, const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t written = ::write(descriptor, bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno != EINTR) return;  // the parent no longer reads
        if (written > 0) done += static_cast<std::size_t>(written);
    }
}

[[noreturn]] void beChild(int descriptor, const std::function<void(const SendLine&)>& work) {
    ::setpgid(0, 0);
    const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (nothing >= 0) ::dup2(nothing, STDIN_FILENO);
    try {
        work([descriptor](const std::string& line) { writeAll(descriptor, line + '\n'); });
        std::fflush(nullptr);
        writeAll(descriptor, std::string(1, kFinishedMark));
    } catch (...) {
        ::_exit(kExitInternal);
    }
    ::_exit(kExitDone);
}

int millisecondsUntil(Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(left, 0, 1000000));
}

// Reads lines from the pipe until it closes or the deadline passes.
class Reader {
public:
    enum class End { Closed, TimedOut };

    Reader(int from, const std::function<void(const std::string&)>& onLine) : descriptor(from), sink(onLine) {}

    End readUntil(Clock::time_point deadline) {
        std::array<char, 4096> piece;
        while (true) {
            const int patience = millisecondsUntil(deadline);
            if (patience == 0) return End::TimedOut;
            pollfd readable{descriptor, POLLIN, 0};
            const int ready = ::poll(&readable, 1, patience);
            if (ready <= 0) continue;
            const ssize_t count = ::read(descriptor, piece.data(), piece.size());
            if (count == 0) return End::Closed;
            if (count > 0) take(std::string(piece.data(), static_cast<std::size_t>(count)));
            if (isFinished) return End::Closed;
        }
    }

    bool finished() const { return isFinished; }

private:
    void take(const std::string& bytes) {
        for (const char c : bytes) {
            if (c == '\n') {
                sink(line);
                line.clear();
            } else if (c == kFinishedMark) {
                isFinished = true;
            } else {
                line += c;
            }
        }
    }

    int descriptor;
    const std::function<void(const std::string&)>& sink;
    std::string line;
    bool isFinished = false;
};

int waitFor(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

// Kills the child if it still runs, and everything it left running in its process group; returns the child's exit
// status. A child that closed its end of the pipe itself is waited for first, so that its own exit status is known.
int collect(pid_t child, bool endsByItself) {
    if (!endsByItself && ::kill(-child, SIGKILL) != 0)
        ::kill(child, SIGKILL);  // the group does not exist before the child's setpgid()
    const int status = waitFor(child);
    ::kill(-child, SIGKILL);
    return status;
}

}  // namespace

ChildEnd runInChild(std::chrono::milliseconds limit, const std::function<void(const SendLine& send)>& work,
                    const std::function<void(const std::string& line)>& onLine) {
    std::array<int, 2> ends;
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) failToStart();
    const Clock::time_point deadline = Clock::now() + limit;
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child < 0) failToStart();
    if (child == 0) {
        ::close(ends[0]);
        beChild(ends[1], work);
    }
    ::close(ends[1]);
    Reader reader(ends[0], onLine);
    const Reader::End end = reader.readUntil(deadline);
    const int status = collect(child, end == Reader::End::Closed && !reader.finished());
    ::close(ends[0]);
    if (reader.finished()) return {};
    if (end == Reader::End::TimedOut) return {ChildEnd::How::TimedOut, 0};
    if (WIFSIGNALED(status)) return {ChildEnd::How::Signalled, WTERMSIG(status)};
    return {ChildEnd::How::Exited, WEXITSTATUS(status)};
}

}  // namespace ttconfig

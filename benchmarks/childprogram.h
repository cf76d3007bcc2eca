#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

extern "C" char** environ;

// Runs a program to completion and measures the resources it used.

namespace benchmarks {

struct ChildUse {
    double seconds = 0;           // elapsed time from start to end
    double processorSeconds = 0;  // user and system time
    double peakBytes = 0;
};

inline double secondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

// Returns nothing if the program could not be run or if its exit code is above largestExitCode. Discards its output.
inline std::optional<ChildUse> runChild(const std::vector<std::string>& command, int largestExitCode = 0) {
    std::vector<char*> arguments;
    for (const std::string& piece : command)
        arguments.push_back(const_cast<char*>(piece.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int stream : {0, 1, 2})
        posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", stream == 0 ? O_RDONLY : O_WRONLY, 0);

    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    const bool started = posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    if (!started) return std::nullopt;
    int status = 0;
    rusage use{};
    if (wait4(child, &status, 0, &use) != child) return std::nullopt;
    if (!WIFEXITED(status) || WEXITSTATUS(status) > largestExitCode) return std::nullopt;
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    return ChildUse{taken.count(), secondsOf(use.ru_utime) + secondsOf(use.ru_stime),
                    static_cast<double>(use.ru_maxrss) * 1024};
}

}  // namespace benchmarks

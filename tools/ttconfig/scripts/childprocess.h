#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace ttconfig {

// How work in a child process ended.
struct ChildEnd {
    enum class How {
        Finished,   // the work returned
        Exited,     // the process exited during the work; number is its exit code
        Signalled,  // a signal ended the process; number is the signal
        TimedOut,   // the work was still running at the limit and was killed
    };
    How how = How::Finished;
    int number = 0;
};

// Sends one line, without line ends, from the work to the parent.
using SendLine = std::function<void(const std::string& line)>;

// Runs the work in a child process with a process group of its own, and passes every line that the work sends to onLine
// as it arrives. Nothing that the work does to its process affects this one. Its standard input is empty. Throws Fault
// when no process can be created. Call it only while the program has no other threads.
ChildEnd runInChild(std::chrono::milliseconds limit, const std::function<void(const SendLine& send)>& work,
                    const std::function<void(const std::string& line)>& onLine);

}  // namespace ttconfig

#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace ttconfig {

// How work in a process of its own came to its end.
struct ChildEnd {
    enum class How {
        Finished,   // the work returned
        Exited,     // somebody ended the process; number is its exit code
        Signalled,  // the system ended it; number is the signal's
        TimedOut,   // it was still running when its time was over, and was ended
    };
    How how = How::Finished;
    int number = 0;
};

// Sends one line, without line ends in it, from the work to its parent.
using SendLine = std::function<void(const std::string& line)>;

// Does the work in a process of its own, and whatever that starts in its process group; hands each line that the work
// sends to onLine as it comes. Nothing that the work does to its process touches this one. It finds its standard input
// empty. Throws Fault when no process can be made. To be called while the program has no other threads.
ChildEnd runInChild(std::chrono::milliseconds limit, const std::function<void(const SendLine& send)>& work,
                    const std::function<void(const std::string& line)>& onLine);

}  // namespace ttconfig

#include "tests/tools/ttconfig/support/terminalrun.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace tests {

namespace {

// Runs in the child and never returns.
[[noreturn]] void becomeTool(std::vector<std::string> arguments, Terminal which, const char* terminal,
                             const std::vector<std::string>& environment) {
    const int nothing = open("/dev/null", O_RDWR);
    const int stream = open(terminal, O_RDWR | O_NOCTTY);
    dup2(nothing, STDIN_FILENO);
    dup2(which == Terminal::Output ? stream : nothing, STDOUT_FILENO);
    dup2(which == Terminal::Error ? stream : nothing, STDERR_FILENO);
    for (const std::string& each : environment) {
        const std::size_t mark = each.find('=');
        if (mark == std::string::npos) {
            unsetenv(each.c_str());
        } else {
            setenv(each.substr(0, mark).c_str(), each.substr(mark + 1).c_str(), 1);
        }
    }
    std::vector<char*> words;
    std::string program = TTCONFIG_PATH;
    words.push_back(program.data());
    for (std::string& argument : arguments)
        words.push_back(argument.data());
    words.push_back(nullptr);
    execv(program.c_str(), words.data());
    _exit(127);
}

}  // namespace

bool hasTerminals() {
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    if (master < 0) return false;
    const bool opened = grantpt(master) == 0 && unlockpt(master) == 0 && ptsname(master) != nullptr &&
                        access(ptsname(master), R_OK | W_OK) == 0;
    close(master);
    return opened;
}

std::string runOnTerminal(const std::vector<std::string>& arguments, Terminal which,
                          const std::vector<std::string>& environment) {
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) return "no terminal";
    const char* name = ptsname(master);
    const int kept = open(name, O_RDWR | O_NOCTTY);  // keeps the child's output readable after it ends
    const pid_t child = fork();
    if (child == 0) becomeTool(arguments, which, name, environment);
    std::string told;
    char piece[4096];
    int status = 0;
    fcntl(master, F_SETFL, O_NONBLOCK);
    for (bool ended = false;;) {
        const ssize_t size = read(master, piece, sizeof piece);
        if (size > 0) {
            told.append(piece, static_cast<std::size_t>(size));
        } else if (ended) {
            break;
        } else {
            ended = waitpid(child, &status, WNOHANG) == child;
            if (!ended) usleep(1000);
        }
    }
    close(kept);
    close(master);
    return told;
}

}  // namespace tests

// Output: writes answers, and nothing else, to standard output.
// Entry points: Output::write, Output::isTerminal.
// Owns: a descriptor of the program's original standard output.
// Covered by tests/tools/ttconfig/asking/session_test.cpp.

#include "ttconfig/invocation/output.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string>
#include <system_error>

#include "ttconfig/invocation/fault.h"

namespace ttconfig {

Output::Output() : descriptor(dup(STDOUT_FILENO)) {
    // Without SIGPIPE, write() reports that the reader has gone.
    std::signal(SIGPIPE, SIG_IGN);
    dup2(STDERR_FILENO, STDOUT_FILENO);
}

Output::~Output() {
    std::fflush(stdout);
    if (descriptor < 0) return;
    dup2(descriptor, STDOUT_FILENO);
    close(descriptor);
}

bool Output::write(std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EPIPE) {
            return false;
        } else if (errno != EINTR) {
            throw Fault(kExitInternal, "standard output cannot be written: " + std::generic_category().message(errno));
        }
    }
    return true;
}

bool Output::isTerminal() const {
    return isatty(descriptor) == 1;
}

}  // namespace ttconfig

#pragma once

#include <unistd.h>

#include <cstdio>
#include <string>

#include "fuzz/support/target.h"
#include "ttconfig/invocation/output.h"

namespace fuzz {

// Captures standard output as a string: while it exists, standard output goes to an unnamed temporary file.
class CapturedOutput {
public:
    CapturedOutput() : file(scratch()), before(dup(STDOUT_FILENO)) {
        require(file >= 0 && before >= 0 && ftruncate(file, 0) == 0 && lseek(file, 0, SEEK_SET) == 0 &&
                    dup2(file, STDOUT_FILENO) >= 0,
                "standard output can be captured");
    }
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;
    ~CapturedOutput() {
        dup2(before, STDOUT_FILENO);
        close(before);
    }

    // Everything written so far.
    std::string text() const {
        const off_t size = lseek(file, 0, SEEK_END);
        std::string bytes(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
        require(pread(file, bytes.data(), bytes.size(), 0) == size, "what was written can be read");
        return bytes;
    }

private:
    static int scratch() {
        static std::FILE* const kept = std::tmpfile();
        return kept == nullptr ? -1 : fileno(kept);
    }

    const int file;
    const int before;
};

// Calls a function that takes an Output and returns what it wrote.
template <typename Run>
std::string outputOf(const Run& run) {
    const CapturedOutput captured;
    {
        ttconfig::Output output;
        run(output);
    }
    return captured.text();
}

}  // namespace fuzz

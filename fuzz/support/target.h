#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <string_view>

// Shared by all fuzz targets. A target defines runInput(), which libFuzzer or replay.cpp calls.

namespace fuzz {

// Runs one input; a failed check ends the program.
void runInput(std::string_view input);

// Optional: whether the seeds that have run so far cover enough. Prints what is missing to standard error. Called by
// replay.cpp.
bool seedsSuffice();

// Ends the program with one line unless the condition holds.
inline void require(bool holds, const char* rule, std::string_view about = {}) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", rule);
    if (!about.empty()) std::fprintf(stderr, "  about: %.*s\n", static_cast<int>(about.size()), about.data());
    std::abort();
}

// While it exists, discards what the library writes to std::cerr. The sanitizers and libFuzzer do not write through
// this stream.
class SilentErrors {
public:
    SilentErrors() : before(std::cerr.rdbuf(&nowhere)) {}
    SilentErrors(const SilentErrors&) = delete;
    SilentErrors& operator=(const SilentErrors&) = delete;
    ~SilentErrors() { std::cerr.rdbuf(before); }

private:
    struct Nowhere : std::streambuf {
        int overflow(int character) override { return character == EOF ? 0 : character; }
        std::streamsize xsputn(const char* /*text*/, std::streamsize size) override { return size; }
    };

    Nowhere nowhere;
    std::streambuf* before;
};

// While it exists, captures what is written to std::cerr.
class CapturedErrors {
public:
    CapturedErrors() : screen(std::cerr.rdbuf(kept.rdbuf())) {}
    CapturedErrors(const CapturedErrors&) = delete;
    CapturedErrors& operator=(const CapturedErrors&) = delete;
    ~CapturedErrors() { std::cerr.rdbuf(screen); }

    std::string text() const { return kept.str(); }

private:
    std::ostringstream kept;
    std::streambuf* screen;
};

// Whether one view lies within another.
inline bool isWithin(std::string_view part, std::string_view whole) {
    return part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size();
}

// Replaces every non-ASCII byte: the result is valid UTF-8, and a JSON text keeps its structure.
inline std::string withPlainBytes(std::string text) {
    for (char& character : text) {
        if (static_cast<unsigned char>(character) >= 0x80) character = '?';
    }
    return text;
}

// Whether the text contains a character that a terminal would obey: an ASCII control character, or one from U+0080 to
// U+009F.
inline bool hasControls(std::string_view text) {
    unsigned char before = 0;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte == 0x7F || (before == 0xC2 && byte < 0xA0)) return true;
        before = byte;
    }
    return false;
}

}  // namespace fuzz

// Defines the entry point that libFuzzer and replay.cpp call. Each target ends with this line.
#define TT_FUZZ_TARGET                                                                                                \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);                                \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {                               \
        fuzz::runInput(size == 0 ? std::string_view() : std::string_view(reinterpret_cast<const char*>(data), size)); \
        return 0;                                                                                                     \
    }

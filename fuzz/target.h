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

// What the fuzz targets share. A target defines runInput(); libFuzzer or replay.cpp calls it.

namespace fuzz {

// Runs one input; whatever does not hold ends the program.
void runInput(std::string_view input);

// A target may define it: whether the seeds that were run before are enough. Says on the standard error stream what
// they lack. Asked by replay.cpp.
bool seedsSuffice();

// Ends the program with one line unless the condition holds.
inline void require(bool holds, const char* rule, std::string_view about = {}) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", rule);
    if (!about.empty()) std::fprintf(stderr, "  about: %.*s\n", static_cast<int>(about.size()), about.data());
    std::abort();
}

// Keeps the library's own lines off the standard error stream as long as it lives. The sanitizers and libFuzzer do not
// write through this stream.
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

// Keeps what is written to the standard error stream as long as it lives.
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

// Whether a view lies within another one.
inline bool isWithin(std::string_view part, std::string_view whole) {
    return part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size();
}

// The text with every byte beyond ASCII replaced: the structure of a JSON text is the same, and it is valid UTF-8.
inline std::string withPlainBytes(std::string text) {
    for (char& character : text) {
        if (static_cast<unsigned char>(character) >= 0x80) character = '?';
    }
    return text;
}

// Whether the text has a character that a terminal would obey: a control character of ASCII, or one of U+0080 to
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

// The door that libFuzzer and replay.cpp know. Each target has it by this line at its end.
#define TT_FUZZ_TARGET                                                                                                \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);                                \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {                               \
        fuzz::runInput(size == 0 ? std::string_view() : std::string_view(reinterpret_cast<const char*>(data), size)); \
        return 0;                                                                                                     \
    }

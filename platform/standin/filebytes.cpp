// Reading of whole files for the stand-in services.
// Doors: readFileBytes(), fileProblemText().
// Owns: nothing.
// Test: tests/platform/filebytes_test.cpp
#include "standin/filebytes.h"

#include <cerrno>
#include <exception>
#include <filesystem>
#include <fstream>
#include <new>
#include <system_error>

namespace standin {

namespace {

// Longer texts are no path on any system; JSON handed in as a path is told by this before it is taken apart.
constexpr std::size_t kLongestPath = 32767;

// A system that lacks memory to open or to read a file says nothing about the file: whoever took it for an empty one
// would work with wrong values.
void throwIfNoMemory(const std::error_code& code) {
    if (code == std::errc::not_enough_memory) throw std::bad_alloc();
}

FileProblem problemOf(const std::filesystem::path& path) {
    std::error_code code;
    const std::filesystem::file_status status = std::filesystem::status(path, code);
    switch (status.type()) {
        case std::filesystem::file_type::regular:
            return FileProblem::kNone;
        case std::filesystem::file_type::not_found:
            return FileProblem::kMissing;
        case std::filesystem::file_type::directory:
            return FileProblem::kDirectory;
        case std::filesystem::file_type::none:
            throwIfNoMemory(code);
            return code == std::errc::filename_too_long ? FileProblem::kBadPath : FileProblem::kUnreadable;
        default:
            return FileProblem::kNotRegular;
    }
}

// The stream over the file. One that could not be opened leaves the system's reason in errno, and nowhere else.
std::ifstream openedStream(const std::filesystem::path& path) {
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) throwIfNoMemory(std::error_code(errno, std::generic_category()));
    return stream;
}

// Reads up to the end rather than the size that the file system tells: some files tell none, others grow meanwhile.
FileProblem readToEnd(const std::filesystem::path& path, std::string& bytes) {
    std::error_code code;
    const std::uintmax_t expected = std::filesystem::file_size(path, code);
    if (!code && expected > kLargestFile) return FileProblem::kTooLarge;
    std::ifstream stream = openedStream(path);
    if (!stream) return FileProblem::kUnreadable;
    stream.exceptions(std::ios::badbit);  // what goes wrong from here on is an exception, which has a reason
    // One byte more than expected, so that the end of the file is met within the first read.
    std::size_t step = code ? std::size_t{1} << 16 : static_cast<std::size_t>(expected) + 1;
    while (true) {
        const std::size_t before = bytes.size();
        bytes.resize(before + step);
        stream.read(&bytes[before], static_cast<std::streamsize>(step));
        bytes.resize(before + static_cast<std::size_t>(stream.gcount()));
        if (bytes.size() > kLargestFile) return FileProblem::kTooLarge;
        if (stream.eof()) return FileProblem::kNone;
        step = std::size_t{1} << 16;
    }
}

}  // namespace

FileProblem readFileBytes(const std::string& path, std::string& bytes) {
    bytes.clear();
    if (path.empty() || path.size() > kLongestPath || path.find('\0') != std::string::npos) {
        return FileProblem::kBadPath;
    }
    FileProblem problem = FileProblem::kNone;
    try {
        const std::filesystem::path native(path);
        problem = problemOf(native);
        if (problem == FileProblem::kNone) problem = readToEnd(native, bytes);
    } catch (const std::bad_alloc&) {
        bytes.clear();
        throw;
    } catch (const std::ios_base::failure& failure) {
        bytes.clear();
        throwIfNoMemory(failure.code());
        problem = FileProblem::kUnreadable;
    } catch (const std::exception&) {
        // Some systems convert path texts, and not every text converts.
        problem = FileProblem::kBadPath;
    }
    if (problem != FileProblem::kNone) bytes.clear();
    return problem;
}

const char* fileProblemText(FileProblem problem) {
    switch (problem) {
        case FileProblem::kNone:
            return "no problem";
        case FileProblem::kBadPath:
            return "not a usable path";
        case FileProblem::kMissing:
            return "no such file";
        case FileProblem::kDirectory:
            return "is a directory";
        case FileProblem::kNotRegular:
            return "not a regular file";
        case FileProblem::kUnreadable:
            return "cannot be read";
        case FileProblem::kTooLarge:
            return "too large";
    }
    return "unknown problem";
}

}  // namespace standin

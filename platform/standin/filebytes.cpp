// Reads whole files for the stand-in services.
// Entry points: readFileBytes(), fileProblemText().
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

// No system has longer paths. The limit also turns away long JSON texts that callers pass in as a path.
constexpr std::size_t kLongestPath = 32767;

// When the system lacks the memory to open or read a file, the file itself may be fine: treating it as empty would give
// callers wrong values.
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

// Opens the file. When that fails, the only trace of the reason is errno.
std::ifstream openedStream(const std::filesystem::path& path) {
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) throwIfNoMemory(std::error_code(errno, std::generic_category()));
    return stream;
}

// Reads to the end instead of trusting the reported size: some files report none, others grow while they are read.
FileProblem readToEnd(const std::filesystem::path& path, std::string& bytes) {
    std::error_code code;
    const std::uintmax_t expected = std::filesystem::file_size(path, code);
    if (!code && expected > kLargestFile) return FileProblem::kTooLarge;
    std::ifstream stream = openedStream(path);
    if (!stream) return FileProblem::kUnreadable;
    stream.exceptions(std::ios::badbit);  // from here on, errors are exceptions, which carry a reason
    // Ask for one byte more than expected, so that the first read reaches the end of the file.
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
        // Some systems convert paths to another encoding, and not every path can be converted.
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

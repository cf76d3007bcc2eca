// The settings file: checks that the named file can hold settings.
// Entry points: requireUsableSettings(), FileMoment.
// Covered by tests/tools/ttconfig/settings/startup_test.cpp.

#include "ttconfig/settings/settingsfile.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "ttconfig/invocation/fault.h"

namespace ttconfig {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestSettings = std::uintmax_t{256} << 20;
constexpr std::size_t kPieceSize = std::size_t{1} << 16;

[[noreturn]] void refuse(const std::string& path, std::string_view trouble, std::string_view remedy) {
    throw Fault(kExitInput, "settings file " + path + ": " + std::string(trouble) + "; " + std::string(remedy));
}

bool holdsNul(std::ifstream& file) {
    std::vector<char> piece(kPieceSize);
    while (file) {
        file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        const auto end = piece.begin() + static_cast<std::ptrdiff_t>(file.gcount());
        if (std::find(piece.begin(), end, '\0') != end) return true;
    }
    return false;
}

}  // namespace

void requireUsableSettings(const std::string& path) {
    constexpr std::string_view kNameAnother = "name the settings file itself";
    std::error_code trouble;
    const fs::file_status status = fs::status(path, trouble);
    if (status.type() == fs::file_type::not_found) {
        refuse(path, "does not exist", "check the name");
    }
    if (trouble) refuse(path, trouble.message(), "check the name and who may read it");
    if (fs::is_directory(status)) refuse(path, "is a directory", kNameAnother);
    if (!fs::is_regular_file(status)) refuse(path, "is not a regular file", kNameAnother);
    const std::uintmax_t size = fs::file_size(path, trouble);
    if (!trouble && size == 0) refuse(path, "is empty", "check whether it was written to the end");
    if (!trouble && size > kLargestSettings) refuse(path, "is larger than 256 MiB", "that is no settings file");
    std::ifstream file(path, std::ios::binary);
    if (!file) refuse(path, "cannot be read", "check who may read it");
    if (holdsNul(file))
        refuse(path, "holds NUL bytes", "save it as plain text, in UTF-8 or another encoding without NULs");
    if (file.bad()) refuse(path, "cannot be read to the end", "check the disk it is on");
}

FileMoment::FileMoment(std::string file) : path(std::move(file)) {
    std::error_code none;  // an unknown value is the same both times
    size = fs::file_size(path, none);
    written = fs::last_write_time(path, none);
}

void FileMoment::requireUnchanged() const {
    const FileMoment now(path);
    if (now.size == size && now.written == written) return;
    refuse(path, "was changed while it was read", "run it again when nothing writes to it");
}

}  // namespace ttconfig

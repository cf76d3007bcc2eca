#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace ttconfig {

// Throws Fault for a file that cannot hold settings: missing, not a regular file, unreadable, empty, larger than 256
// MiB, or binary. The library itself silently treats any of these as an empty file.
void requireUsableSettings(const std::string& path);

// The state of a file at one moment, as far as the file system can tell it from another.
class FileMoment {
public:
    explicit FileMoment(std::string file);
    // Throws Fault when the file has since been written to, replaced or removed.
    void requireUnchanged() const;

private:
    std::string path;
    std::uintmax_t size = 0;
    std::filesystem::file_time_type written;
};

}  // namespace ttconfig

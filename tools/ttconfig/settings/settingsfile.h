#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace ttconfig {

// Throws Fault for a settings file that cannot be meant: missing, no regular file, unreadable, empty, larger than
// 256 MiB, or binary. The library itself takes any of these for an empty file and says nothing.
void requireUsableSettings(const std::string& path);

// A file as it was at one moment, as far as the file system tells it from what is there at another.
class FileMoment {
public:
    explicit FileMoment(std::string file);
    // Throws Fault when the file was written to, replaced or removed since.
    void requireUnchanged() const;

private:
    std::string path;
    std::uintmax_t size = 0;
    std::filesystem::file_time_type written;
};

}  // namespace ttconfig

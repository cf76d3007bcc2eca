#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "tests/support/tempfile.h"

namespace fuzz {

// A scratch folder that stands for the client's folder; the current folder for the rest of the program. It holds only
// what the target writes: no script, no other file.
class ScratchFolder {
public:
    ScratchFolder() {
        std::filesystem::create_directories(folder.path("bin"));
        std::filesystem::current_path(folder.path("bin"));
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::current_path(before, ignored);
    }

    // Writes a file, named relative to the client's folder, and returns its path.
    std::string write(const std::string& name, std::string_view bytes) const { return folder.write(name, bytes); }
    // The same, but removes an existing file first: overwriting it would wait for the disk.
    std::string writeAnew(const std::string& name, std::string_view bytes) const {
        remove(name);
        return folder.write(name, bytes);
    }
    void remove(const std::string& name) const { std::filesystem::remove(folder.path(name)); }

    // Copies a file, or the content of a folder, into a folder below this one.
    void copy(const std::string& from, const std::string& to) const {
        std::filesystem::create_directories(folder.path(to));
        std::filesystem::copy(from, folder.path(to), std::filesystem::copy_options::recursive);
    }

private:
    tests::TempFolder folder;
    std::filesystem::path before = std::filesystem::current_path();
};

}  // namespace fuzz

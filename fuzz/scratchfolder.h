#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "tests/support/tempfile.h"

namespace fuzz {

// A client's folder of the target's own, entered for as long as the program runs: no script, no file that was not
// written by the target.
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

    // Writes a file, seen from the client's own folder, and answers its path.
    std::string write(const std::string& name, std::string_view bytes) const { return folder.write(name, bytes); }
    // The same in place of one that may be there: writing over it would wait for the disk.
    std::string writeAnew(const std::string& name, std::string_view bytes) const {
        remove(name);
        return folder.write(name, bytes);
    }
    void remove(const std::string& name) const { std::filesystem::remove(folder.path(name)); }

    // Copies a file into a folder of it, or what is in a folder.
    void copy(const std::string& from, const std::string& to) const {
        std::filesystem::create_directories(folder.path(to));
        std::filesystem::copy(from, folder.path(to), std::filesystem::copy_options::recursive);
    }

private:
    tests::TempFolder folder;
    std::filesystem::path before = std::filesystem::current_path();
};

}  // namespace fuzz

#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

namespace tests {

// A folder for one test, removed with its contents at the end.
class TempFolder {
public:
    TempFolder() {
        std::random_device random;
        do {
            folder = std::filesystem::temp_directory_path() / ("traderbase-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(folder));
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }

    std::string path(const std::string& name) const { return (folder / name).string(); }

    // Writes a file and returns its path.
    std::string write(const std::string& name, std::string_view bytes) const {
        const std::string file = path(name);
        std::filesystem::create_directories(std::filesystem::path(file).parent_path());
        std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return file;
    }

private:
    std::filesystem::path folder;
};

}  // namespace tests

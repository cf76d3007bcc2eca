#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <random>
#include <streambuf>
#include <string>
#include <vector>

namespace benchmarks {

// A temporary file with the given text; the destructor removes it.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& text)
        : file(
              (std::filesystem::temp_directory_path() / ("settings-" + std::to_string(std::random_device()()) + ".ini"))
                  .string()) {
        std::ofstream(file, std::ios::binary) << text;
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { std::remove(file.c_str()); }

    const std::string& path() const { return file; }

private:
    std::string file;
};

// Settings with keyCount switch keys, each with a short list of platforms.
inline std::string generatedText(int keyCount) {
    std::mt19937 random(42);
    std::string text = "[setting]\n";
    for (int key = 0; key < keyCount; ++key) {
        text += "generatedswitch" + std::to_string(random() % 1000) + "number" + std::to_string(key) + "=";
        for (auto i = random() % 6; i > 0; --i)
            text += std::to_string(random() % 500) + ",";
        text += std::to_string(random() % 500) + "\n";
    }
    return text;
}

// The same as a file; one file per count.
inline const TemporaryFile& generatedFile(int keyCount) {
    static std::map<int, std::unique_ptr<TemporaryFile>> files;
    auto& file = files[keyCount];
    if (!file) file = std::make_unique<TemporaryFile>(generatedText(keyCount));
    return *file;
}

// The given keys and enough others to reach the count, each listing platforms 3, 12 and 47.
inline const TemporaryFile& switchFile(int keyCount, const std::vector<std::string>& keys) {
    static std::map<int, std::unique_ptr<TemporaryFile>> files;
    auto& file = files[keyCount];
    if (!file) {
        std::string text = "[setting]\n";
        for (const std::string& key : keys)
            text += key + "=3,12,47\n";
        for (int i = static_cast<int>(keys.size()); i < keyCount; ++i)
            text += "generatedswitch" + std::to_string(i) + "=3,12,47\n";
        file = std::make_unique<TemporaryFile>(text);
    }
    return *file;
}

// Discards the library's messages about bad pieces; they are still formatted.
class QuietStandardError {
public:
    QuietStandardError() : before(std::cerr.rdbuf(&nowhere)) {}
    QuietStandardError(const QuietStandardError&) = delete;
    QuietStandardError& operator=(const QuietStandardError&) = delete;
    ~QuietStandardError() { std::cerr.rdbuf(before); }

private:
    class Nowhere : public std::streambuf {
    protected:
        std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
        int_type overflow(int_type character) override { return traits_type::not_eof(character); }
    };

    Nowhere nowhere;
    std::streambuf* before;
};

}  // namespace benchmarks

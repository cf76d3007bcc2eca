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

// A text in a file that goes away at the end.
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

// Settings of that many switch keys, each with a short list of platforms.
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

// The same in a file, one for each count.
inline const TemporaryFile& generatedFile(int keyCount) {
    static std::map<int, std::unique_ptr<TemporaryFile>> files;
    auto& file = files[keyCount];
    if (!file) file = std::make_unique<TemporaryFile>(generatedText(keyCount));
    return *file;
}

// The keys given and as many others as make up the count, the platforms 3, 12 and 47 each.
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

// Drops what the library writes about bad pieces: every line is written out, and to nowhere.
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

#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <streambuf>
#include <string>

namespace benchmarks {

// A settings file of that many switch keys, each with a short list of platforms, in a file that goes away at the end.
class GeneratedSettings {
public:
    explicit GeneratedSettings(int keyCount) {
        std::mt19937 random(42);
        std::string text = "[setting]\n";
        for (int key = 0; key < keyCount; ++key) {
            text += "generatedswitch" + std::to_string(random() % 1000) + "number" + std::to_string(key) + "=";
            for (auto i = random() % 6; i > 0; --i)
                text += std::to_string(random() % 500) + ",";
            text += std::to_string(random() % 500) + "\n";
        }
        file =
            (std::filesystem::temp_directory_path() / ("settings-" + std::to_string(std::random_device()()) + ".ini"))
                .string();
        std::ofstream(file, std::ios::binary) << text;
    }
    GeneratedSettings(const GeneratedSettings&) = delete;
    GeneratedSettings& operator=(const GeneratedSettings&) = delete;
    ~GeneratedSettings() { std::remove(file.c_str()); }

    const std::string& path() const { return file; }

private:
    std::string file;
};

// Keeps what the library writes about bad pieces away from the terminal.
class QuietStandardError {
public:
    QuietStandardError() : before(std::cerr.rdbuf(nullptr)) {}
    QuietStandardError(const QuietStandardError&) = delete;
    QuietStandardError& operator=(const QuietStandardError&) = delete;
    ~QuietStandardError() {
        std::cerr.rdbuf(before);
        std::cerr.clear();
    }

private:
    std::streambuf* before;
};

}  // namespace benchmarks

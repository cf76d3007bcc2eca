#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/tools/ttconfig/support/toolrun.h"

namespace tests {

// Holds a text against the record in a file. With TT_REGENERATE in the environment, which setup/regenerate.sh sets, the
// text becomes the record.
inline void expectAsRecorded(const std::string& text, const std::filesystem::path& file) {
    if (std::getenv("TT_REGENERATE") != nullptr) std::ofstream(file, std::ios::binary) << text;
    if (text == fileText(file.string())) return;
    const std::string folder = file.parent_path().filename().string();
    const std::string received = TT_BINARY_DIR "/" + folder + '-' + file.stem().string() + ".received";
    std::ofstream(received, std::ios::binary) << text;
    ADD_FAILURE() << "differs: diff " << file.string() << ' ' << received << "\nsetup/regenerate.sh accepts it";
}

}  // namespace tests

#pragma once

#include <filesystem>
#include <string_view>

#include "tests/support/tempfile.h"

namespace tests {

// Enters a folder in which ../luaScripts/MarketTime.lua is the given script, or one without a script.
class ClientFolder {
public:
    ClientFolder() { enter(); }
    explicit ClientFolder(std::string_view script) {
        folder.write("luaScripts/MarketTime.lua", script);
        enter();
    }
    ClientFolder(const ClientFolder&) = delete;
    ClientFolder& operator=(const ClientFolder&) = delete;
    ~ClientFolder() { std::filesystem::current_path(before); }

private:
    void enter() {
        std::filesystem::create_directory(folder.path("bin"));
        std::filesystem::current_path(folder.path("bin"));
    }

    TempFolder folder;
    std::filesystem::path before = std::filesystem::current_path();
};

}  // namespace tests

#pragma once

#include <string>
#include <string_view>

#include "luaconfig/luaconfig.h"
#include "tests/support/tempfile.h"

namespace luabase {

// Gives tests access to an instance's interpreter.
struct LuaConfigPeer {
    static lua_State* interpreter(const LuaConfig& config) { return config.state; }
    static int results(const LuaConfig& config) { return lua_gettop(config.state); }
};

}  // namespace luabase

namespace tests {

// A script file, loaded into an instance of its own.
class Script {
public:
    explicit Script(std::string_view source) : path(folder.write("script.lua", source)) { config.init(path); }

    luabase::LuaConfig& operator*() { return config; }
    luabase::LuaConfig* operator->() { return &config; }

    // The path as Lua names it in its messages.
    const std::string& where() const { return path; }

private:
    TempFolder folder;
    std::string path;
    luabase::LuaConfig config;
};

}  // namespace tests

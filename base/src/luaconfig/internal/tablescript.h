#pragma once

#include <string>

namespace luabase {

class LuaConfig;

// Script access for code that fills a table with the answers. Works like LuaConfig's own operations, including the log
// lines, but throws std::bad_alloc when the interpreter runs out of memory: an empty answer would erase what the table
// holds. A script that took 64 MiB or more itself counts as a failed script, and its answers are empty.
struct TableScript {
    static void init(LuaConfig& script, const std::string& path);

    // Also throws if memory ran out while the script was loaded, whichever code loaded it: the script may be
    // incomplete.
    static std::string getConfig(LuaConfig& script, const std::string& function);
    static std::string getConfig(LuaConfig& script, const std::string& function, const std::string& argument);
};

}  // namespace luabase

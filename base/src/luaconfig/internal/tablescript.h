#pragma once

#include <string>

namespace luabase {

class LuaConfig;

// How a script is asked by who fills a table with its answers: as by LuaConfig's own operations, lines in the log
// included, but that memory which its interpreter runs out of is std::bad_alloc. Answered by an empty text, it would
// replace what the table holds by nothing. A script that took all the memory itself, 64 MiB or more, is one that
// failed, and answers empty texts.
struct TableScript {
    static void init(LuaConfig& script, const std::string& path);

    // Throws as well when memory ran out while the script was loaded, whoever loaded it: what it answers may be half of
    // what it was to answer.
    static std::string getConfig(LuaConfig& script, const std::string& function);
    static std::string getConfig(LuaConfig& script, const std::string& function, const std::string& argument);
};

}  // namespace luabase

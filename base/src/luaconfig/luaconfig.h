#pragma once

#include <string>

#include <boost/thread/recursive_mutex.hpp>
#include <lua.hpp>

#include "luaconfig/export.h"

namespace luabase {

// Writes a line to the standard logger at ERROR level, as it stands; scripts know it as printLog. Silent without a
// logger or when it does not want errors. Any thread may call it; it throws nothing.
TRADERBASE_API void printLog(std::string message);

// One interpreter with one script, asked for texts: construct, init() once, getConfig() as often as needed, destroy.
//
// Thread safety: every operation holds the instance's recursive lock from start to end, so threads may share an
// instance, and a call that comes back to the same instance from inside a script's printLog is answered. Destroy it
// when nobody asks any more. Instances share nothing.
//
// Whatever a script gets wrong is one line at ERROR level, Lua's own message, and an empty answer; so is running out of
// the interpreter's memory, "not enough memory". Nothing is thrown but std::bad_alloc, when there is no memory for an
// interpreter or for an answer. (The store and the catalogue tell a lack of memory from an empty answer and keep what
// they have.)
// Scripts are trusted: one that runs for ever is waited for, and one that ends the process by os.exit, or by a string
// pattern of many thousand items, for which the interpreter takes the stack of the process, ends it.
class LuaConfig {
public:
    // Both stay inline: whoever owns an instance brings the interpreter's library along.
    LuaConfig() = default;
    ~LuaConfig() {
        if (state != nullptr) lua_close(state);
    }
    LuaConfig(const LuaConfig&) = delete;
    LuaConfig& operator=(const LuaConfig&) = delete;

    // Starts an interpreter with the standard libraries, loads the file and runs it once; what the script returns stays
    // on the interpreter's stack. printLog is there only after that, and only when the script ran to its end: its
    // functions may use it, its top level may not. After a failure the interpreter stays, with what the script had
    // defined by then. A pipe is not opened: nobody may ever write to it. Every call starts an interpreter anew and
    // gives up the one before, unclosed: call it once.
    TRADERBASE_API void init(std::string path);

    // Calls the script's global function, without or with one argument, and answers the text that it gives, up to a NUL
    // byte; a number gives its decimal text. Empty for every other result and when the function is missing or fails.
    // Empty, and silent, before init().
    TRADERBASE_API std::string getConfig(std::string function);
    TRADERBASE_API std::string getConfig(std::string function, std::string argument);

private:
    // The tests' way to the interpreter.
    friend struct LuaConfigPeer;
    // The library's own way to learn that an empty answer means a lack of memory.
    friend struct TableScript;

    // What came of running a script or one of its functions.
    enum class Run { Done, Failed, NoMemory };

    Run start(const char* path);
    Run ask(const char* function, const char* argument, std::string& answer);
    std::string askForTable(const char* function, const char* argument);

    lua_State* state = nullptr;
    boost::recursive_mutex mutex;
};

}  // namespace luabase

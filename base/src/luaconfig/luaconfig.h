#pragma once

#include <string>

#include <boost/thread/recursive_mutex.hpp>
#include <lua.hpp>

#include "luaconfig/export.h"

namespace luabase {

// Logs the message to the standard logger at ERROR level, unchanged; scripts call it as printLog. Does nothing if there
// is no logger or it does not want errors. Any thread may call it; throws nothing.
TRADERBASE_API void printLog(std::string message);

// One interpreter with one script that returns texts. Construct it, call init() once, call getConfig() as often as
// needed, destroy it.
//
// Thread safety: every operation holds the instance's recursive lock throughout, so threads may share an instance, and
// a call back into the same instance from within a script's printLog works. Destroy it only when no thread uses it any
// more. Instances share nothing.
//
// Any fault in a script is logged as one line at ERROR level with Lua's own message, and the answer is empty. If the
// interpreter runs out of memory, the same happens, with "not enough memory". Only std::bad_alloc is thrown, when there
// is no memory for an interpreter or for an answer. (The store and the catalogue can tell a lack of memory from an
// empty answer and then keep what they have.)
//
// Scripts are trusted. One that never returns blocks its caller. A script can end the process by calling os.exit, or
// with a string pattern of many thousand items, which makes the interpreter overflow the stack.
class LuaConfig {
public:
    // Both are inline, so that code that owns an instance links the interpreter's library itself.
    LuaConfig() = default;
    ~LuaConfig() {
        if (state != nullptr) lua_close(state);
    }
    LuaConfig(const LuaConfig&) = delete;
    LuaConfig& operator=(const LuaConfig&) = delete;

    // Starts an interpreter with the standard libraries, loads the file and runs it once; the values that the script
    // returns stay on the interpreter's stack. printLog is registered only after the script has run to its end: its
    // functions may call it, its top level may not. After a failure the interpreter stays, with whatever the script had
    // defined by then. A pipe is not opened, because opening it might block for ever. Call init() once: each further
    // call starts a new interpreter and abandons the previous one without closing it.
    TRADERBASE_API void init(std::string path);

    // Calls the script's global function, with one argument or none, and returns its text up to the first NUL byte; a
    // number is returned as decimal text. Empty for any other result, and if the function is missing or fails. Empty,
    // without a log line, before init().
    TRADERBASE_API std::string getConfig(std::string function);
    TRADERBASE_API std::string getConfig(std::string function, std::string argument);

private:
    // Gives the tests access to the interpreter.
    friend struct LuaConfigPeer;
    // Tells the library's own code when an empty answer means a lack of memory.
    friend struct TableScript;

    // The result of running a script or one of its functions.
    enum class Run { Done, Failed, NoMemory };

    Run start(const char* path);
    Run ask(const char* function, const char* argument, std::string& answer);
    std::string askForTable(const char* function, const char* argument);

    lua_State* state = nullptr;
    boost::recursive_mutex mutex;
};

}  // namespace luabase

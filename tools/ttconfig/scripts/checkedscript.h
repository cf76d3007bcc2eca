#pragma once

#include <functional>
#include <lua.hpp>
#include <memory>
#include <string>

namespace ttconfig {

// Lua's error as a script's author wants it: the line, 0 when it is not known, and the message without the place.
struct ScriptTrouble {
    int line = 0;
    std::string message;
};

// What a script's function gave.
struct ScriptAnswer {
    enum class Kind {
        Text,
        NoText,  // a value of another type; text names it
        Failed,  // the function is missing or raised an error: see trouble
    };
    Kind kind = Kind::Text;
    std::string text;
    ScriptTrouble trouble;
};

// A script in an interpreter of the tool's own, with the libraries and the printLog that the client gives scripts.
// Where the client logs a line, this one tells what was wrong. An interpreter may use 1 GiB. Errors outside of the
// script's own doing end the process: it is meant for a process that may end.
class CheckedScript {
public:
    using PrintSink = std::function<void(const std::string& text)>;

    explicit CheckedScript(PrintSink onPrint);

    // Loads the file and runs it once. False, and why, when that failed.
    bool load(const std::string& path, ScriptTrouble& trouble);

    // Whether there is a global function of that name.
    bool defines(const char* function);

    // Calls the function without an argument (null) or with one.
    ScriptAnswer call(const char* function, const std::string* argument);

private:
    struct Close {
        void operator()(lua_State* lua) const { lua_close(lua); }
    };

    bool run(int arguments, int results, ScriptTrouble& trouble);
    ScriptTrouble takeTrouble();

    PrintSink print;
    std::size_t memory = 0;
    std::string file;
    int lineOfError = 0;  // where the last error came up
    std::unique_ptr<lua_State, Close> state;
};

}  // namespace ttconfig

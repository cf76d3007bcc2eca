#pragma once

#include <functional>
#include <lua.hpp>
#include <memory>
#include <string>

namespace ttconfig {

// A Lua error as a script's author needs it: the line (0 when unknown) and the message without the place.
struct ScriptTrouble {
    int line = 0;
    std::string message;
};

// The outcome of calling a script's function.
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

// A script in its own interpreter, with the libraries and the printLog that the client gives scripts. Where the client
// logs an error, this class returns it. The interpreter may use 1 GiB. An error outside the script's code ends the
// process, so use this class only in a process that may end.
class CheckedScript {
public:
    using PrintSink = std::function<void(const std::string& text)>;

    explicit CheckedScript(PrintSink onPrint);

    // Loads the file and runs it once. Returns false, and the reason in trouble, when that fails.
    bool load(const std::string& path, ScriptTrouble& trouble);

    // Whether a global function of that name exists.
    bool defines(const char* function);

    // Calls the function with the argument, or without one when it is null.
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
    int lineOfError = 0;  // the line of the last error
    std::unique_ptr<lua_State, Close> state;
};

}  // namespace ttconfig

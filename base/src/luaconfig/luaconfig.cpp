// The script runtime: runs a configuration script and calls its functions for texts.
// Entry points: LuaConfig::init, LuaConfig::getConfig, printLog; TableScript.
// Owns: the interpreter and the lock of each instance.
// Covered by tests/base/luaconfig/.

#include "luaconfig/luaconfig.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

#include <boost/thread/lock_guard.hpp>
#include <luabind/luabind.hpp>

#include "logging/guardedlog.h"
#include "luaconfig/internal/tablescript.h"

// A Lua error outside a protected call ends the process. Nearly every call can raise one, for lack of memory or from a
// script's metamethod. All work is therefore done in C functions under lua_cpcall and lua_pcall; outside them there are
// only calls that neither allocate nor call back. No C++ exception may pass through Lua's own frames, and no object
// with a destructor may live across a call that can raise.

namespace {

// A text that a script passes to printLog; the interpreter owns the bytes.
struct ScriptText {
    const char* data;
    std::size_t size;
};

}  // namespace

// luabind's own conversion to std::string would turn a std::bad_alloc into an error of the script. Scripts still see
// the type name std::string in messages.
namespace luabind {

template <>
struct default_converter<ScriptText> : native_converter_base<ScriptText> {
    static int compute_score(lua_State* lua, int index) { return lua_type(lua, index) == LUA_TSTRING ? 0 : -1; }

    static ScriptText from(lua_State* lua, int index) { return {lua_tostring(lua, index), lua_objlen(lua, index)}; }
};

namespace detail {

template <>
struct type_to_string<ScriptText> {
    static void get(lua_State* lua) { lua_pushliteral(lua, "std::string"); }
};

}  // namespace detail
}  // namespace luabind

namespace luabase {

namespace {

using Guard = boost::lock_guard<boost::recursive_mutex>;
using ttservice::internal::LogPlace;

constexpr const char* kFile = "base/src/luaconfig/luaconfig";
constexpr const char* kShortFile = "luaconfig";
constexpr LogPlace kInitPlace{kFile, kShortFile, "init"};
constexpr LogPlace kGetConfigPlace{kFile, kShortFile, "getConfig"};
constexpr LogPlace kPrintLogPlace{kFile, kShortFile, "luabase::printLog"};

// The addresses of these variables are registry keys, for: the loaded script that is still to be run; a boolean, true
// once the standard libraries are open and as long as memory has not run out; the host function.
const char kLoadedScript = 0;
const char kWhole = 0;
const char kHostFunction = 0;

// The number as the interpreter writes it, but always with a decimal point, whatever the process's locale.
std::string numberText(lua_Number number) {
    std::array<char, 32> digits;
    constexpr int kLuaDigits = 14;
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::general, kLuaDigits);
    return {digits.data(), end.ptr};
}

bool isText(lua_State* lua, int index) {
    const int type = lua_type(lua, index);
    return type == LUA_TSTRING || type == LUA_TNUMBER;
}

// The text of a string, up to a NUL byte, or of a number; empty for any other value. Unlike a bare lua_tolstring(), it
// does not convert the number on the stack, so it never raises.
std::string textAt(lua_State* lua, int index) {
    if (!isText(lua, index)) return {};
    if (lua_type(lua, index) == LUA_TNUMBER) return numberText(lua_tonumber(lua, index));
    return lua_tostring(lua, index);
}

// Logs and pops the error on top of the stack.
void reportError(lua_State* lua, const LogPlace& place) noexcept {
    try {
        const bool readable = isText(lua, -1);
        writeError(place, readable ? textAt(lua, -1)
                                   : std::string("(error object is a ") + luaL_typename(lua, -1) + " value)");
    } catch (...) {  // NOLINT(bugprone-empty-catch): no memory for the line; the answer is empty all the same
    }
    lua_pop(lua, 1);
}

// Opening a named pipe would block until a process writes to it.
bool isPipe(const char* path) {
    try {
        std::error_code ignored;
        return std::filesystem::is_fifo(path, ignored);
    } catch (const std::system_error&) {  // not a valid path on this system, so it opens nothing
        return false;
    }
}

void pushPlace(lua_State* lua, const char& place) {
    lua_pushlightuserdata(lua, const_cast<char*>(&place));
}

// Whether the script was loaded by init() without a lack of memory. Raises nothing.
bool isWhole(lua_State* lua) {
    pushPlace(lua, kWhole);
    lua_rawget(lua, LUA_REGISTRYINDEX);
    const bool whole = lua_toboolean(lua, -1) != 0;
    lua_pop(lua, 1);
    return whole;
}

// Pushes the key and value of the table's entry with this name; pushes nothing if there is none. Unlike lua_getfield(),
// it raises nothing.
bool pushEntry(lua_State* lua, int table, const char* name) {
    lua_pushnil(lua);
    while (lua_next(lua, table) != 0) {
        if (lua_type(lua, -2) == LUA_TSTRING && std::strcmp(lua_tostring(lua, -2), name) == 0) return true;
        lua_pop(lua, 1);
    }
    return false;
}

// Removes the finaliser that closes file handles. Lua's io library creates handles for the process's standard streams
// and only then marks them as not to be closed; if it is interrupted in between, the finaliser would close the stream.
// Raises nothing.
void letGoOfFiles(lua_State* lua) {
    const int top = lua_gettop(lua);
    if (pushEntry(lua, LUA_REGISTRYINDEX, LUA_FILEHANDLE)) {
        const int metatable = lua_gettop(lua);
        if (pushEntry(lua, metatable, "__gc")) {
            lua_pop(lua, 1);
            lua_pushnil(lua);
            lua_rawset(lua, metatable);
        }
    }
    lua_settop(lua, top);
}

// Whether an interpreter that ran out of memory holds a large amount itself. If so, its script is to blame and has
// simply failed; if not, the process as a whole is out of memory. Raises nothing.
bool hasTakenItAll(lua_State* lua) {
    constexpr int kMuchForAScript = 64 * 1024;  // KiB
    return lua_gc(lua, LUA_GCCOUNT, 0) >= kMuchForAScript;
}

// Records that the interpreter ran out of memory while loading the script. Raises nothing: it changes an existing entry
// and never creates one.
void rememberLack(lua_State* lua) {
    if (!isWhole(lua)) return letGoOfFiles(lua);
    pushPlace(lua, kWhole);
    lua_pushboolean(lua, 0);
    lua_rawset(lua, LUA_REGISTRYINDEX);
}

struct Loading {
    const char* path;
    bool isPipe;
    bool noMemory = false;  // memory ran out outside the interpreter, which reports that as an ordinary error
};

// Opens the libraries and loads the file. Argument: a Loading.
int loadScript(lua_State* lua) {
    Loading& loading = *static_cast<Loading*>(lua_touserdata(lua, 1));
    luaL_openlibs(lua);
    pushPlace(lua, kWhole);
    lua_pushboolean(lua, 1);
    lua_rawset(lua, LUA_REGISTRYINDEX);
    if (loading.isPipe) return luaL_error(lua, "cannot open %s: not a regular file", loading.path);
    pushPlace(lua, kLoadedScript);
    errno = 0;
    if (const int status = luaL_loadfile(lua, loading.path); status != 0) {
        // When a file cannot be read, only errno and the message give the system's reason.
        loading.noMemory = status == LUA_ERRFILE ? errno == ENOMEM : status == LUA_ERRMEM && !hasTakenItAll(lua);
        return lua_error(lua);
    }
    lua_rawset(lua, LUA_REGISTRYINDEX);
    return 0;
}

// Pushes the script that loadScript() stored. Raises nothing: the entry exists, and it is emptied, not removed.
void pushLoadedScript(lua_State* lua) {
    pushPlace(lua, kLoadedScript);
    lua_rawget(lua, LUA_REGISTRYINDEX);
    pushPlace(lua, kLoadedScript);
    lua_pushnil(lua);
    lua_rawset(lua, LUA_REGISTRYINDEX);
}

void printScriptText(ScriptText text) {
    try {
        printLog(std::string(text.data, text.size));
    } catch (...) {  // NOLINT(bugprone-empty-catch): no memory for the line
    }
}

using PrintLog = luabind::detail::function_object_impl<decltype(&printScriptText),
                                                       decltype(luabind::detail::deduce_signature(&printScriptText)),
                                                       luabind::detail::null_type>;

// printLog as luabind calls it. It lies in the interpreter's own memory, so nothing leaks when a Lua error jumps over
// its construction. The interpreter frees that memory; luabind's delete does nothing.
struct HostFunction : PrintLog {
    HostFunction() : PrintLog(&printScriptText, {}) { name = "printLog"; }
    static void* operator new(std::size_t /*size*/, void* place) { return place; }
    static void operator delete(void* /*place*/, void* /*where*/) {}
    static void operator delete(void* /*place*/) {}
};

// False when memory runs out outside the interpreter.
bool pushHostFunction(lua_State* lua, void* memory) {
    try {
        luabind::detail::make_function_aux(lua, new (memory) HostFunction).push(lua);
        return true;
    } catch (...) {
        return false;
    }
}

// Registers printLog with a raw set, so that no metatable can object: even a script that protects its globals against
// new names gets it. Argument: a Loading.
int registerHostFunctions(lua_State* lua) {
    Loading& loading = *static_cast<Loading*>(lua_touserdata(lua, 1));
    pushPlace(lua, kHostFunction);
    void* const memory = lua_newuserdata(lua, sizeof(HostFunction));
    lua_rawset(lua, LUA_REGISTRYINDEX);
    lua_pushliteral(lua, "printLog");
    if (!pushHostFunction(lua, memory)) {
        loading.noMemory = true;
        return luaL_error(lua, "not enough memory");
    }
    lua_rawset(lua, LUA_GLOBALSINDEX);
    return 0;
}

struct Question {
    const char* function;
    const char* argument;  // null when the function is called without one
    std::string answer;
    bool tooLarge = false;  // no memory for the answer
};

void keepAnswer(lua_State* lua, Question& question) noexcept {
    try {
        question.answer = textAt(lua, -1);
    } catch (...) {  // reported outside Lua's frames, which no exception may cross
        question.tooLarge = true;
    }
}

// Calls the function. Argument: a Question.
int callFunction(lua_State* lua) {
    Question& question = *static_cast<Question*>(lua_touserdata(lua, 1));
    // Pushing the name lets the garbage collector run; lua_getfield() never does, so garbage from constant answers
    // would pile up.
    lua_pushstring(lua, question.function);
    lua_gettable(lua, LUA_GLOBALSINDEX);
    if (question.argument != nullptr) lua_pushstring(lua, question.argument);
    lua_call(lua, question.argument != nullptr ? 1 : 0, 1);
    keepAnswer(lua, question);
    return 0;
}

}  // namespace

void printLog(std::string message) {
    writeError(kPrintLogPlace, message);
}

LuaConfig::Run LuaConfig::start(const char* path) {
    const Guard guard(mutex);
    Loading loading{path, isPipe(path)};
    lua_State* const lua = luaL_newstate();
    state = lua;
    if (lua == nullptr) {
        writeError(kInitPlace, "not enough memory");
        throw std::bad_alloc();
    }
    int status = lua_cpcall(lua, &loadScript, &loading);
    if (status == 0) {
        pushLoadedScript(lua);
        status = lua_pcall(lua, 0, LUA_MULTRET, 0);
    }
    if (status == 0) status = lua_cpcall(lua, &registerHostFunctions, &loading);
    if (status == 0) return Run::Done;
    reportError(lua, kInitPlace);
    const bool noMemory = loading.noMemory || (status == LUA_ERRMEM && !hasTakenItAll(lua));
    if (!noMemory) return Run::Failed;
    rememberLack(lua);
    return Run::NoMemory;
}

LuaConfig::Run LuaConfig::ask(const char* function, const char* argument, std::string& answer) {
    if (state == nullptr) return Run::Done;
    Question question{function, argument, {}, false};
    lua_State* const lua = state;  // the script may come back here and call init()
    if (const int status = lua_cpcall(lua, &callFunction, &question); status != 0) {
        reportError(lua, kGetConfigPlace);
        return status == LUA_ERRMEM && !hasTakenItAll(lua) ? Run::NoMemory : Run::Failed;
    }
    // An empty answer would mean that the script has none, and callers would store that.
    if (question.tooLarge) throw std::bad_alloc();
    answer = std::move(question.answer);
    return Run::Done;
}

void LuaConfig::init(std::string path) {
    start(path.c_str());
}

std::string LuaConfig::getConfig(std::string function) {
    const Guard guard(mutex);
    std::string answer;
    ask(function.c_str(), nullptr, answer);
    return answer;
}

std::string LuaConfig::getConfig(std::string function, std::string argument) {
    const Guard guard(mutex);
    std::string answer;
    ask(function.c_str(), argument.c_str(), answer);
    return answer;
}

std::string LuaConfig::askForTable(const char* function, const char* argument) {
    const Guard guard(mutex);
    std::string answer;
    if (state != nullptr && !isWhole(state)) throw std::bad_alloc();
    if (ask(function, argument, answer) == Run::NoMemory) throw std::bad_alloc();
    return answer;
}

void TableScript::init(LuaConfig& script, const std::string& path) {
    if (script.start(path.c_str()) == LuaConfig::Run::NoMemory) throw std::bad_alloc();
}

std::string TableScript::getConfig(LuaConfig& script, const std::string& function) {
    return script.askForTable(function.c_str(), nullptr);
}

std::string TableScript::getConfig(LuaConfig& script, const std::string& function, const std::string& argument) {
    return script.askForTable(function.c_str(), argument.c_str());
}

}  // namespace luabase

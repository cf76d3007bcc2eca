// The script runtime: runs a configuration script and asks its functions for texts.
// Doors: LuaConfig::init, LuaConfig::getConfig, printLog.
// Owns: the interpreter and the lock of each instance.
// Covered by tests/base/luaconfig/.

#include "luaconfig/luaconfig.h"

#include <array>
#include <charconv>
#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

#include <boost/thread/lock_guard.hpp>
#include <luabind/luabind.hpp>

#include "traderbase/base/config/internal/guardedlog.h"

// An error that reaches Lua outside of a protected call ends the process. Running out of memory is such an error and
// may come from nearly every call, and so is whatever a script's metamethods raise. So all work is done in C functions
// under lua_cpcall and lua_pcall; outside of them stand only calls that neither allocate nor call back. No C++
// exception may pass through Lua's own frames, and no object with a destructor may live across a call that can raise.

namespace luabase {

namespace {

using Guard = boost::lock_guard<boost::recursive_mutex>;
using ttservice::internal::LogPlace;

constexpr const char* kFile = "base/src/luaconfig/luaconfig";
constexpr const char* kShortFile = "luaconfig";
constexpr LogPlace kInitPlace{kFile, kShortFile, "init"};
constexpr LogPlace kGetConfigPlace{kFile, kShortFile, "getConfig"};
constexpr LogPlace kPrintLogPlace{kFile, kShortFile, "luabase::printLog"};

// Its address is the place in the registry where the loaded script waits to be run.
const char kLoadedScript = 0;

// The number as the interpreter writes it, but with a point whatever the process's locale.
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

// The text of a string, up to a NUL byte, or of a number; empty for every other value. Unlike lua_tolstring alone it
// leaves a number a number, and so never raises.
std::string textAt(lua_State* lua, int index) {
    if (!isText(lua, index)) return {};
    if (lua_type(lua, index) == LUA_TNUMBER) return numberText(lua_tonumber(lua, index));
    return lua_tostring(lua, index);
}

// Logs the error on top of the stack and takes it off.
void reportError(lua_State* lua, const LogPlace& place) noexcept {
    try {
        const bool readable = isText(lua, -1);
        writeError(place, readable ? textAt(lua, -1)
                                   : std::string("(error object is a ") + luaL_typename(lua, -1) + " value)");
    } catch (...) {  // NOLINT(bugprone-empty-catch): no memory for the line; the answer is empty all the same
    }
    lua_pop(lua, 1);
}

// Pipes and devices: opening or reading them may wait for ever. What is missing and what is a directory is no such
// thing, and the interpreter has its own words for both.
bool mayKeepWaiting(const std::string& path) {
    namespace fs = std::filesystem;
    try {
        std::error_code ignored;
        const fs::file_status status = fs::status(path.c_str(), ignored);
        return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
    } catch (const std::system_error&) {  // a text that the system cannot make a path of opens nothing
        return false;
    }
}

struct ScriptFile {
    const char* path;
    bool keepsWaiting;
};

// Opens the libraries and loads the file. Argument: the file.
int loadScript(lua_State* lua) {
    const ScriptFile& file = *static_cast<const ScriptFile*>(lua_touserdata(lua, 1));
    luaL_openlibs(lua);
    if (file.keepsWaiting) return luaL_error(lua, "cannot open %s: not a regular file", file.path);
    lua_pushlightuserdata(lua, const_cast<char*>(&kLoadedScript));
    if (luaL_loadfile(lua, file.path) != 0) return lua_error(lua);
    lua_rawset(lua, LUA_REGISTRYINDEX);
    return 0;
}

// Pushes the script that loadScript() left. Raises nothing: the entry is there, and it is emptied, not removed.
void pushLoadedScript(lua_State* lua) {
    void* const key = const_cast<char*>(&kLoadedScript);
    lua_pushlightuserdata(lua, key);
    lua_rawget(lua, LUA_REGISTRYINDEX);
    lua_pushlightuserdata(lua, key);
    lua_pushnil(lua);
    lua_rawset(lua, LUA_REGISTRYINDEX);
}

bool fillWithHostFunctions(lua_State* lua, int table) {
    try {
        luabind::module(luabind::object(luabind::from_stack(lua, table)))[luabind::def("printLog", &printLog)];
        return true;
    } catch (...) {
        return false;
    }
}

// Registers printLog. luabind fills a table of ours, and from there the function is put where no metatable can object:
// a script that guards its globals against new names gets it all the same.
int registerHostFunctions(lua_State* lua) {
    lua_newtable(lua);
    if (!fillWithHostFunctions(lua, lua_gettop(lua))) return luaL_error(lua, "printLog cannot be registered");
    lua_pushliteral(lua, "printLog");
    lua_pushvalue(lua, -1);
    lua_rawget(lua, -3);
    lua_rawset(lua, LUA_GLOBALSINDEX);
    return 0;
}

struct Question {
    const char* function;
    const char* argument;  // null when the function is called without one
    std::string answer;
    bool tooLarge = false;  // there is no memory for the answer
};

void keepAnswer(lua_State* lua, Question& question) noexcept {
    try {
        question.answer = textAt(lua, -1);
    } catch (...) {  // told outside of Lua's frames, which no exception may pass
        question.tooLarge = true;
    }
}

// Calls the function. Argument: the question.
int callFunction(lua_State* lua) {
    Question& question = *static_cast<Question*>(lua_touserdata(lua, 1));
    // lua_getfield would do the same, but never gives the collector a turn; constant answers would pile up garbage.
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

void LuaConfig::init(std::string path) {
    const Guard guard(mutex);
    lua_State* const lua = luaL_newstate();
    state = lua;
    if (lua == nullptr) {
        writeError(kInitPlace, "not enough memory");
        return;
    }
    ScriptFile file{path.c_str(), mayKeepWaiting(path)};
    if (lua_cpcall(lua, &loadScript, &file) != 0) return reportError(lua, kInitPlace);
    pushLoadedScript(lua);
    if (lua_pcall(lua, 0, LUA_MULTRET, 0) != 0) return reportError(lua, kInitPlace);
    if (lua_cpcall(lua, &registerHostFunctions, nullptr) != 0) reportError(lua, kInitPlace);
}

std::string LuaConfig::getConfig(std::string function) {
    const Guard guard(mutex);
    return ask(function.c_str(), nullptr);
}

std::string LuaConfig::getConfig(std::string function, std::string argument) {
    const Guard guard(mutex);
    return ask(function.c_str(), argument.c_str());
}

std::string LuaConfig::ask(const char* function, const char* argument) {
    if (state == nullptr) return {};
    Question question{function, argument, {}, false};
    lua_State* const lua = state;  // the script may come back here and call init()
    if (lua_cpcall(lua, &callFunction, &question) != 0) {
        reportError(lua, kGetConfigPlace);
        return {};
    }
    // An empty answer would say that the script has none, and what is made of that would be wrong.
    if (question.tooLarge) throw std::bad_alloc();
    return std::move(question.answer);
}

}  // namespace luabase

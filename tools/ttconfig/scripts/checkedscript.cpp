// A script under examination: runs it and reports what goes wrong, with the line.
// Entry points: CheckedScript.
// Owns: its interpreter.
// Covered by tests/tools/ttconfig/scripts/checkedscript_test.cpp.

#include "ttconfig/scripts/checkedscript.h"

#include <cstdlib>
#include <string_view>
#include <utility>

#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/invocation/fault.h"

namespace ttconfig {

namespace {

using ttservice::internal::looseInt;

constexpr std::size_t kMostMemory = std::size_t{1} << 30;

// Lua's allocator: counts the memory in use and limits it to kMostMemory.
void* limitedMemory(void* counted, void* block, std::size_t before, std::size_t wanted) {
    auto& inUse = *static_cast<std::size_t*>(counted);
    if (block == nullptr) before = 0;
    if (wanted == 0) {
        std::free(block);
        inUse -= before;
        return nullptr;
    }
    if (wanted > before && wanted - before > kMostMemory - inUse) return nullptr;
    void* const moved = std::realloc(block, wanted);
    if (moved != nullptr) inUse = inUse - before + wanted;
    return moved;
}

// The script's printLog: takes exactly one text, as the client's does. Upvalue: the sink.
int printLog(lua_State* lua) {
    if (lua_gettop(lua) != 1 || lua_type(lua, 1) != LUA_TSTRING) {
        return luaL_error(lua, "printLog takes one text, and no number or other value");
    }
    std::size_t size = 0;
    const char* const text = lua_tolstring(lua, 1, &size);
    (*static_cast<CheckedScript::PrintSink*>(lua_touserdata(lua, lua_upvalueindex(1))))({text, size});
    return 0;
}

// Error handler: records the line of the innermost Lua code and leaves the error unchanged. Upvalue: where to store the
// line.
int noteLine(lua_State* lua) {
    int& line = *static_cast<int*>(lua_touserdata(lua, lua_upvalueindex(1)));
    line = 0;
    lua_Debug level;
    for (int depth = 1; line <= 0 && lua_getstack(lua, depth, &level) != 0; ++depth) {
        lua_getinfo(lua, "l", &level);
        line = level.currentline;
    }
    return 1;
}

// Lua function: returns the global of the given name. Run it protected: a metamethod of the globals may raise an error.
int global(lua_State* lua) {
    lua_gettable(lua, LUA_GLOBALSINDEX);
    return 1;
}

// Lua function: calls the global of the given name with the arguments that follow.
int callGlobal(lua_State* lua) {
    lua_pushvalue(lua, 1);
    lua_gettable(lua, LUA_GLOBALSINDEX);
    lua_replace(lua, 1);
    lua_call(lua, lua_gettop(lua) - 1, 1);
    return 1;
}

// Whether the place in a message is the script: its path, or "..." and the end of the path where Lua shortened it.
bool isPlaceOf(std::string_view path, std::string_view place) {
    if (place == path) return true;
    if (place.substr(0, 3) != "...") return false;
    place.remove_prefix(3);
    return place.size() <= path.size() && path.substr(path.size() - place.size()) == place;
}

// Removes a leading "place:12: " from a message and returns the line; 0 for any other message.
int takePlace(std::string_view path, std::string& message) {
    for (std::size_t colon = message.find(':'); colon != std::string::npos; colon = message.find(':', colon + 1)) {
        const std::size_t end = message.find_first_not_of("0123456789", colon + 1);
        if (end == std::string::npos || end == colon + 1 || message.compare(end, 2, ": ") != 0) continue;
        if (!isPlaceOf(path, std::string_view(message).substr(0, colon))) continue;
        const int line = looseInt(message.substr(colon + 1, end - colon - 1));
        message.erase(0, end + 2);
        return line;
    }
    return 0;
}

}  // namespace

CheckedScript::CheckedScript(PrintSink onPrint)
    : print(std::move(onPrint)), state(lua_newstate(limitedMemory, &memory)) {
    if (!state) throw Fault(kExitInternal, "no memory for an interpreter");
    luaL_openlibs(state.get());
}

bool CheckedScript::load(const std::string& path, ScriptTrouble& trouble) {
    lua_State* const lua = state.get();
    file = path;
    if (luaL_loadfile(lua, path.c_str()) != 0) {
        trouble = takeTrouble();
        return false;
    }
    if (!run(0, 0, trouble)) return false;
    lua_pushliteral(lua, "printLog");
    lua_pushlightuserdata(lua, &print);
    lua_pushcclosure(lua, printLog, 1);
    lua_rawset(lua, LUA_GLOBALSINDEX);  // bypasses metamethods of the globals, as the client does
    return true;
}

bool CheckedScript::defines(const char* function) {
    lua_State* const lua = state.get();
    lua_pushcfunction(lua, global);
    lua_pushstring(lua, function);
    const bool found = lua_pcall(lua, 1, 1, 0) == 0 && lua_isfunction(lua, -1);
    lua_pop(lua, 1);
    return found;
}

ScriptAnswer CheckedScript::call(const char* function, const std::string* argument) {
    lua_State* const lua = state.get();
    ScriptAnswer answer;
    lua_pushcfunction(lua, callGlobal);
    lua_pushstring(lua, function);
    if (argument != nullptr) lua_pushlstring(lua, argument->data(), argument->size());
    if (!run(argument == nullptr ? 1 : 2, 1, answer.trouble)) {
        answer.kind = ScriptAnswer::Kind::Failed;
        return answer;
    }
    if (lua_type(lua, -1) == LUA_TSTRING) {
        std::size_t size = 0;
        const char* const text = lua_tolstring(lua, -1, &size);
        answer.text.assign(text, size);
    } else {
        answer.kind = ScriptAnswer::Kind::NoText;
        answer.text = luaL_typename(lua, -1);
    }
    lua_pop(lua, 1);
    return answer;
}

// Calls the function that is on the stack below its arguments. Leaves the results there, or nothing on failure.
bool CheckedScript::run(int arguments, int results, ScriptTrouble& trouble) {
    lua_State* const lua = state.get();
    const int handler = lua_gettop(lua) - arguments;
    lineOfError = 0;
    lua_pushlightuserdata(lua, &lineOfError);
    lua_pushcclosure(lua, noteLine, 1);
    lua_insert(lua, handler);
    const int status = lua_pcall(lua, arguments, results, handler);
    lua_remove(lua, handler);
    if (status == 0) return true;
    trouble = takeTrouble();
    return false;
}

// Pops the error from the stack. "place:12: message" gives the line and the rest; any other error gets the recorded
// line.
ScriptTrouble CheckedScript::takeTrouble() {
    lua_State* const lua = state.get();
    ScriptTrouble trouble;
    trouble.line = lineOfError > 0 ? lineOfError : 0;
    if (lua_isstring(lua, -1) != 0) {
        trouble.message = lua_tostring(lua, -1);
    } else {
        trouble.message = std::string("(error object is a ") + luaL_typename(lua, -1) + " value)";
    }
    lua_pop(lua, 1);

    if (const int line = takePlace(file, trouble.message)) trouble.line = line;
    return trouble;
}

}  // namespace ttconfig

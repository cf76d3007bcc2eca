# Third-party libraries, each behind a target "tt::NAME"; nothing else in the build knows where they come from. All are
# imported targets, so their headers are SYSTEM and exempt from our warnings.
#
#   library     tt::boost tt::lua tt::luabind tt::bson tt::fmt tt::log4cxx
#   stand-in    tt::json
#   tool        tt::cli11 tt::json
#   tests       tt::gtest tt::gmock tt::gtest_main tt::gmock_main tt::simpleini
#               and TT_LOCALE_DIR, a folder for LOCPATH with a locale that writes a decimal comma
#   benchmarks  tt::benchmark tt::benchmark_main
#   peers       tt::simpleini tt::inih tt::glib tt::qtcore tt::json tt::fmt
#
# Including this file finds the first group. The others are found only if TRADERBASE_PLATFORM_TARGET, TT_BUILD_TOOL,
# BUILD_TESTING, TT_BUILD_BENCHMARKS and TT_BENCHMARK_PEERS ask for them: building only the library needs no test
# packages, and only ./bench needs the peers.
# setup/install.sh installs what a Debian 12 machine lacks.

# ---- helpers ---------------------------------------------------------------------------------------------------------

# Stops the configuration and says how to install what is missing.
function(tt_fail_missing what)
    message(FATAL_ERROR "${what} was not found. On Debian 12, setup/install.sh installs everything the build needs; "
        "elsewhere, install it and name its place in CMAKE_PREFIX_PATH.")
endfunction()

# tt_alias_package(NAME PACKAGE [VERSION] [COMPONENTS ...] TARGETS ...): tt::NAME stands for TARGETS of PACKAGE.
function(tt_alias_package name package)
    cmake_parse_arguments(arg "" "VERSION" "COMPONENTS;TARGETS" ${ARGN})
    if(TARGET tt::${name})
        return()
    endif()
    find_package(${package} ${arg_VERSION} QUIET COMPONENTS ${arg_COMPONENTS})
    if(NOT ${package}_FOUND)
        tt_fail_missing("${package} ${arg_VERSION} (${name})")
    endif()
    add_library(tt::${name} INTERFACE IMPORTED)
    target_link_libraries(tt::${name} INTERFACE ${arg_TARGETS})
endfunction()

# tt_find_plain(NAME HEADER h LIBRARY l... [SUFFIXES dir...] [VALIDATOR f]): tt::NAME for a library that has no
# CMake package. The cache variables TT_<NAME>_INCLUDE_DIR and TT_<NAME>_LIBRARY override the places it is found in.
function(tt_find_plain name)
    cmake_parse_arguments(arg "" "HEADER;VALIDATOR" "LIBRARY;SUFFIXES" ${ARGN})
    if(TARGET tt::${name})
        return()
    endif()
    string(TOUPPER "TT_${name}" prefix)
    set(validator)
    if(arg_VALIDATOR)
        set(validator VALIDATOR ${arg_VALIDATOR})
    endif()
    find_path(${prefix}_INCLUDE_DIR ${arg_HEADER} PATH_SUFFIXES ${arg_SUFFIXES} ${validator})
    find_library(${prefix}_LIBRARY NAMES ${arg_LIBRARY})
    mark_as_advanced(${prefix}_INCLUDE_DIR ${prefix}_LIBRARY)
    if(NOT ${prefix}_INCLUDE_DIR OR NOT ${prefix}_LIBRARY)
        tt_fail_missing("${name} (header ${arg_HEADER}, library ${arg_LIBRARY})")
    endif()
    add_library(tt::${name} UNKNOWN IMPORTED)
    set_target_properties(tt::${name} PROPERTIES
        IMPORTED_LOCATION "${${prefix}_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${${prefix}_INCLUDE_DIR}"
    )
endfunction()

# ---- the library -----------------------------------------------------------------------------------------------------

# Whether a folder's lua.h is that of Lua 5.1; neither the scripts nor our luabind work with a later Lua.
function(tt_is_lua51 result folder)
    file(STRINGS "${folder}/lua.h" version REGEX "^#define[ \t]+LUA_VERSION_NUM[ \t]+501")
    if(NOT version)
        set(${result} FALSE PARENT_SCOPE)
    endif()
endfunction()

# Finds luabind, built against Lua 5.1 by setup/luabind.sh, which also knows the folder; LUABIND51_ROOT overrides it.
# The search is repeated at every configuration, because the folder changes with the build recipe.
function(tt_find_luabind)
    if(TARGET tt::luabind)
        return()
    endif()
    set(LUABIND51_ROOT "" CACHE PATH "Folder with include/ and lib/ of a luabind built against Lua 5.1")
    set(root "${LUABIND51_ROOT}")
    set(script "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../setup/luabind.sh")
    if(NOT root AND UNIX AND EXISTS "${script}")
        execute_process(COMMAND "${script}" --path OUTPUT_VARIABLE root OUTPUT_STRIP_TRAILING_WHITESPACE)
    endif()
    set(include_dir include_dir-NOTFOUND)
    set(library library-NOTFOUND)
    if(root)
        find_path(include_dir luabind/luabind.hpp PATHS "${root}/include" NO_DEFAULT_PATH NO_CACHE)
        find_library(library luabind PATHS "${root}/lib" NO_DEFAULT_PATH NO_CACHE)
    endif()
    if(NOT include_dir OR NOT library)
        message(FATAL_ERROR "There is no luabind for Lua 5.1 in '${root}'. Run setup/install.sh, which builds "
            "one, or name the folder of another in the cache variable LUABIND51_ROOT.")
    endif()
    add_library(tt::luabind STATIC IMPORTED)
    set_target_properties(tt::luabind PROPERTIES
        IMPORTED_LOCATION "${library}"
        INTERFACE_INCLUDE_DIRECTORIES "${include_dir}"
        INTERFACE_COMPILE_DEFINITIONS "LUABIND_USE_CXX11;BOOST_BIND_GLOBAL_PLACEHOLDERS"
        INTERFACE_LINK_LIBRARIES "tt::lua;tt::boost"
    )
endfunction()

function(tt_find_library_dependencies)
    tt_alias_package(boost Boost VERSION 1.74 COMPONENTS thread TARGETS Boost::headers Boost::thread)
    tt_alias_package(fmt fmt VERSION 9 TARGETS fmt::fmt)
    tt_alias_package(log4cxx log4cxx VERSION 1.0 TARGETS log4cxx)
    tt_find_plain(lua HEADER lua.h LIBRARY lua5.1 lua-5.1 lua51 SUFFIXES lua5.1 lua-5.1 lua51 VALIDATOR tt_is_lua51)
    tt_find_luabind()
    # Only the BSON part of the database client is used; its headers need boost::bind's old global placeholders.
    tt_find_plain(bson HEADER mongo/bson/bson.h LIBRARY mongoclient)
    set_target_properties(tt::bson PROPERTIES
        INTERFACE_COMPILE_DEFINITIONS BOOST_BIND_GLOBAL_PLACEHOLDERS
        INTERFACE_LINK_LIBRARIES tt::boost
    )
endfunction()

# ---- the stand-in platform -------------------------------------------------------------------------------------------

# The stand-in reads its data from a JSON file; a host with its own platform target needs no JSON library.
function(tt_find_platform_dependencies)
    tt_alias_package(json nlohmann_json VERSION 3.11 TARGETS nlohmann_json::nlohmann_json)
endfunction()

# ---- the command-line tool -------------------------------------------------------------------------------------------

function(tt_find_tool_dependencies)
    tt_alias_package(cli11 CLI11 VERSION 2.1 TARGETS CLI11::CLI11)
    tt_alias_package(json nlohmann_json VERSION 3.11 TARGETS nlohmann_json::nlohmann_json)
endfunction()

# ---- tests -----------------------------------------------------------------------------------------------------------

# The packaged library is compiled for ICU's conversion; the header needs a definition to match.
function(tt_find_simpleini)
    tt_find_plain(simpleini HEADER SimpleIni.h LIBRARY simpleini)
    set_target_properties(tt::simpleini PROPERTIES INTERFACE_COMPILE_DEFINITIONS SI_CONVERT_ICU)
endfunction()

function(tt_find_test_dependencies)
    foreach(library gtest gmock gtest_main gmock_main)
        tt_alias_package(${library} GTest VERSION 1.12 TARGETS GTest::${library})
    endforeach()
    tt_find_simpleini()
endfunction()

# Creates the locale de_DE.UTF-8 (decimal comma) in the build folder, once, and sets "result" to the folder for LOCPATH.
# Tests use it to check that numbers read the same in every locale. "result" stays empty if this is not possible.
function(tt_make_comma_locale result)
    set(folder "${PROJECT_BINARY_DIR}/locale")
    find_program(TT_LOCALEDEF localedef)
    mark_as_advanced(TT_LOCALEDEF)
    if(TT_LOCALEDEF AND NOT EXISTS "${folder}/de_DE.UTF-8/LC_NUMERIC")
        file(MAKE_DIRECTORY "${folder}")
        execute_process(COMMAND "${TT_LOCALEDEF}" -i de_DE -f UTF-8 --no-archive "${folder}/de_DE.UTF-8"
            OUTPUT_QUIET ERROR_QUIET)
    endif()
    if(EXISTS "${folder}/de_DE.UTF-8/LC_NUMERIC")
        set(${result} "${folder}" PARENT_SCOPE)
    else()
        set(${result} "" PARENT_SCOPE)
    endif()
endfunction()

# ---- benchmarks ------------------------------------------------------------------------------------------------------

function(tt_find_benchmark_dependencies)
    foreach(library benchmark benchmark_main)
        tt_alias_package(${library} benchmark VERSION 1.7 TARGETS benchmark::${library})
    endforeach()
endfunction()

# ---- the benchmarks' peers: other settings readers, used only for comparison -----------------------------------------

function(tt_find_peer_dependencies)
    tt_find_simpleini()
    tt_find_plain(inih HEADER ini.h LIBRARY inih)
    tt_alias_package(qtcore Qt5 COMPONENTS Core TARGETS Qt5::Core)
    tt_alias_package(json nlohmann_json VERSION 3.11 TARGETS nlohmann_json::nlohmann_json)
    find_package(PkgConfig QUIET)
    if(PkgConfig_FOUND)
        pkg_check_modules(TT_GLIB QUIET IMPORTED_TARGET glib-2.0)
    endif()
    if(NOT TARGET PkgConfig::TT_GLIB)
        tt_fail_missing("glib-2.0")
    endif()
    add_library(tt::glib INTERFACE IMPORTED)
    target_link_libraries(tt::glib INTERFACE PkgConfig::TT_GLIB)
endfunction()

# ---- what this configuration needs -----------------------------------------------------------------------------------

tt_find_library_dependencies()
if(TRADERBASE_PLATFORM_TARGET STREQUAL "ttplatform")
    tt_find_platform_dependencies()
endif()
if(TT_BUILD_TOOL)
    tt_find_tool_dependencies()
endif()
if(BUILD_TESTING)
    tt_find_test_dependencies()
    tt_make_comma_locale(TT_LOCALE_DIR)
endif()
if(TT_BUILD_BENCHMARKS)
    tt_find_benchmark_dependencies()
    if(TT_BENCHMARK_PEERS)
        tt_find_peer_dependencies()
    endif()
endif()

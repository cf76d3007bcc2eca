# TT_SANITIZE: "", "address" (address and undefined behaviour) or "thread". TT_COVERAGE: count the executed lines.
# TT_FUZZ: also build the fuzz targets for libFuzzer, which needs its counters in everything that is built.

set(TT_SANITIZE "" CACHE STRING "Sanitizers to build with: empty, address or thread")
set_property(CACHE TT_SANITIZE PROPERTY STRINGS "" address thread)
option(TT_COVERAGE "Build for coverage measurement" OFF)
option(TT_FUZZ "Build the fuzz targets for libFuzzer; clang only" OFF)
if(TT_FUZZ AND NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "TT_FUZZ needs clang++, which brings libFuzzer along")
endif()

function(tt_enable_sanitizers target)
    set(flags)  # a function sees its caller's variables
    if(TT_SANITIZE STREQUAL "address")
        set(flags -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
        if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
            list(APPEND flags -fsanitize=float-cast-overflow)
        endif()
    elseif(TT_SANITIZE STREQUAL "thread")
        set(flags -fsanitize=thread -fno-omit-frame-pointer)
    elseif(NOT TT_SANITIZE STREQUAL "")
        message(FATAL_ERROR "TT_SANITIZE is '${TT_SANITIZE}'; it takes address, thread or nothing")
    endif()
    if(TT_FUZZ)
        list(APPEND flags -fsanitize=fuzzer-no-link)
    endif()
    target_compile_options(${target} PRIVATE ${flags})
    target_link_options(${target} PRIVATE ${flags})
endfunction()

# Instruments the tests as well as the library: of an inline function in both, the linker keeps one copy, and it may be
# the tests'. Counters are updated atomically, because threads share them. Targets that are not measured still link the
# runtime for the library's counters.
function(tt_enable_coverage target unmeasured)
    if(TT_COVERAGE)
        target_link_options(${target} PRIVATE --coverage)
        if(NOT unmeasured)
            target_compile_options(${target} PRIVATE --coverage -fprofile-abs-path -fprofile-update=atomic)
        endif()
    endif()
endfunction()

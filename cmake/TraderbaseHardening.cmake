# TT_HARDENING: build with the flags that Debian uses to harden its packages (dpkg-buildflags, hardening=+all), and with
# two that its newer releases add: stack clash protection and control-flow protection. Each flag is used only if the
# compiler and the linker accept it. On in release builds that are neither measured for coverage nor sanitized: the
# checks need the optimiser, and the sanitizers have checks of their own.
#
# Frequent queries stay as fast as before: only functions with arrays get a stack guard, only calls with a known target
# size use the checked string functions, control-flow protection is one instruction at the start of a function, and
# binding all symbols at load time saves the indirection of the first call. Control-flow protection is compiled in but
# not yet active: the system enables it only if every linked object is marked, and Debian 12's start files are not.

include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

set(hardened OFF)
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT TT_SANITIZE AND NOT TT_COVERAGE AND NOT MSVC)
    set(hardened ON)
endif()
option(TT_HARDENING "Build with the distribution's hardening flags" ${hardened})

# Sets TT_HARDENING_COMPILE and TT_HARDENING_LINK to the flags that this compiler and linker accept.
function(tt_find_hardening_flags)
    set(compile)
    set(link)
    set(CMAKE_REQUIRED_FLAGS -Wformat)  # without it, the last flag only causes a warning
    foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection -Wformat -Werror=format-security)
        string(MAKE_C_IDENTIFIER "TT_TAKES${flag}" taken)
        check_cxx_compiler_flag(${flag} ${taken})
        if(${taken})
            list(APPEND compile ${flag})
        endif()
    endforeach()
    # Undefine it first: a distribution's default of another level would be a redefinition.
    list(APPEND compile -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    foreach(flag -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
        string(MAKE_C_IDENTIFIER "TT_TAKES${flag}" taken)
        check_linker_flag(CXX ${flag} ${taken})
        if(${taken})
            list(APPEND link ${flag})
        endif()
    endforeach()
    set(TT_HARDENING_COMPILE "${compile}" PARENT_SCOPE)
    set(TT_HARDENING_LINK "${link}" PARENT_SCOPE)
endfunction()

if(TT_HARDENING)
    tt_find_hardening_flags()
    # For position-independent programs: POSITION_INDEPENDENT_CODE alone does not reach the linker.
    check_pie_supported(LANGUAGES CXX)
endif()

function(tt_enable_hardening target)
    if(TT_HARDENING)
        target_compile_options(${target} PRIVATE ${TT_HARDENING_COMPILE})
        target_link_options(${target} PRIVATE ${TT_HARDENING_LINK})
    endif()
endfunction()

# TT_HARDENING: build with the flags that Debian hardens its packages with (dpkg-buildflags, hardening=+all), and with
# the two that its newer releases add: stack clash protection and control-flow protection. Each only where compiler and
# linker take it. On in release builds that are neither measured nor sanitized: the checks need the optimiser, and the
# sanitizers bring their own.
#
# What is asked often stays as fast as it was: the stack guard goes into functions with arrays alone, the checked string
# functions into calls whose target's size is known, control-flow protection is one instruction at a function's start,
# and binding everything when the library is loaded saves the indirection at the first call. Control-flow protection is in
# our code and not yet at work: a system checks it only where every object that is linked has its mark, and Debian 12's
# own start files have none.

include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

set(hardened OFF)
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT TT_SANITIZE AND NOT TT_COVERAGE AND NOT MSVC)
    set(hardened ON)
endif()
option(TT_HARDENING "Build with the distribution's hardening flags" ${hardened})

# Sets up TT_HARDENING_COMPILE and TT_HARDENING_LINK, the flags that are taken here.
function(tt_find_hardening_flags)
    set(compile)
    set(link)
    set(CMAKE_REQUIRED_FLAGS -Wformat)  # without it, the last of them is nothing but a warning
    foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection -Wformat -Werror=format-security)
        string(MAKE_C_IDENTIFIER "TT_TAKES${flag}" taken)
        check_cxx_compiler_flag(${flag} ${taken})
        if(${taken})
            list(APPEND compile ${flag})
        endif()
    endforeach()
    # A distribution's own default, which may be another level, would be a redefinition.
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
    # Programs are position-independent as well: POSITION_INDEPENDENT_CODE alone does not reach the linker.
    check_pie_supported(LANGUAGES CXX)
endif()

function(tt_enable_hardening target)
    if(TT_HARDENING)
        target_compile_options(${target} PRIVATE ${TT_HARDENING_COMPILE})
        target_link_options(${target} PRIVATE ${TT_HARDENING_LINK})
    endif()
endfunction()

# Warnings are errors in our own targets and nowhere else.

function(tt_enable_warnings target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /WX /permissive- /utf-8)
    else()
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Woverloaded-virtual
            -Wnon-virtual-dtor -Wnull-dereference -Wimplicit-fallthrough -Werror
        )
    endif()
endfunction()

# tt_add_test(NAME SOURCES a.cpp ... [LIBS lib ...] [EXPORTS_ONLY] [OPTIMISED])
#
# Adds a test program; each of its tests becomes a CTest test and so runs in a process of its own, with fresh
# singletons. The program links the library's objects, or with EXPORTS_ONLY the shared library, which proves the list of
# exports. With OPTIMISED it is optimised like the library even under a sanitizer: for tests that compute a lot.

include(GoogleTest)

function(tt_add_test name)
    cmake_parse_arguments(arg "EXPORTS_ONLY;OPTIMISED" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    # Optimising test bodies takes long; the code under test stays optimised.
    if(arg_OPTIMISED)
        tt_configure_target(${name})
    else()
        tt_configure_target(${name} TESTING)
    endif()
    set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_compile_definitions(${name} PRIVATE
        TT_SOURCE_DIR="${PROJECT_SOURCE_DIR}" TT_BINARY_DIR="${PROJECT_BINARY_DIR}" TT_COUNTS_COVERAGE=$<BOOL:${TT_COVERAGE}>
    )
    if(arg_EXPORTS_ONLY)
        target_link_libraries(${name} PRIVATE traderbaseconfig ${arg_LIBS} tt::gmock_main)
    else()
        target_link_libraries(${name} PRIVATE traderbaseconfig_objects traderbaseconfig_internal ${arg_LIBS} tt::gmock_main)
    endif()
    # If the machine has no locale with a decimal comma, TT_LOCALE_DIR holds one for the tests that need it.
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300 ENVIRONMENT "LOCPATH=${TT_LOCALE_DIR}")
endfunction()

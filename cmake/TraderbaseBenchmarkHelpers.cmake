# tt_add_benchmark(NAME SOURCES a.cpp ... [LIBS lib ...]): one benchmark program, linked to the library's objects.

function(tt_add_benchmark name)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${arg_SOURCES} allocations.cpp)
    tt_configure_target(${name})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE
        traderbaseconfig_objects traderbaseconfig_internal ${arg_LIBS} tt::benchmark_main
    )
endfunction()

# tt_add_benchmark_tool(NAME SOURCES a.cpp ... [LIBS lib ...]): a helper program for the benchmarks.
function(tt_add_benchmark_tool name)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    tt_configure_target(${name})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${arg_LIBS})
endfunction()

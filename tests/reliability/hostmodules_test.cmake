# cmake -DSOURCE=folder -DFOLDER=scratch -DCOMPILER=path -DPREFIX=path -P hostmodules_test.cmake
#
# Configures the project inside a host whose module path has CMake modules of its own under everyday names: none of them
# may be read in place of ours.
file(REMOVE_RECURSE ${FOLDER})
foreach(name Warnings Sanitizers Hardening Targets Dependencies InstallTool TestHelpers FuzzHelpers BenchmarkHelpers)
    file(WRITE ${FOLDER}/host/cmake/${name}.cmake "message(FATAL_ERROR \"the host's ${name}.cmake was read\")\n")
endforeach()
file(WRITE ${FOLDER}/host/CMakeLists.txt "cmake_minimum_required(VERSION 3.25)
project(host LANGUAGES CXX)
list(PREPEND CMAKE_MODULE_PATH \${PROJECT_SOURCE_DIR}/cmake)
add_subdirectory(${SOURCE} config)
")
execute_process(COMMAND ${CMAKE_COMMAND} -S ${FOLDER}/host -B ${FOLDER}/build -DCMAKE_CXX_COMPILER=${COMPILER}
    -DLUABIND51_ROOT=${PREFIX} -DBUILD_TESTING=OFF -DTT_BUILD_BENCHMARKS=OFF
    RESULT_VARIABLE code OUTPUT_VARIABLE said ERROR_VARIABLE said)
if(NOT code STREQUAL "0")
    message(FATAL_ERROR "the host could not be configured:\n${said}")
endif()

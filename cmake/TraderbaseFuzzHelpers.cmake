# tt_add_fuzzer(NAME SOURCES a.cpp ... MAX_LEN bytes [DICT name] [SEEDS path ...] [LIBS lib ...] [TOOL])
#
# Adds a fuzz target: a function that takes bytes and ends the program if a check fails. With BUILD_TESTING it is built
# as fuzz_NAME_replay, which runs fuzz/corpus/NAME and a few hundred mutations of it and is the CTest test Fuzz.NAME.
# With TT_FUZZ the target "fuzzers" also builds it as fuzz_NAME, driven by libFuzzer. MAX_LEN is the longest input worth
# trying. fuzz/words/DICT.dict has words for libFuzzer to try. SEEDS are additional seeds: files and folders of the
# project, or the files of a folder with a given extension, FOLDER/*.ENDING. The target links the library's objects, and
# with TOOL those of ttconfig.

if(TT_FUZZ)
    add_custom_target(fuzzers)
endif()

function(tt_add_fuzzer name)
    cmake_parse_arguments(arg "TOOL" "MAX_LEN;DICT" "SOURCES;LIBS;SEEDS" ${ARGN})
    set(libraries traderbaseconfig_objects traderbaseconfig_internal ${arg_LIBS} tt::json)
    add_library(fuzz_${name}_objects OBJECT EXCLUDE_FROM_ALL ${arg_SOURCES})
    tt_configure_target(fuzz_${name}_objects)
    set_target_properties(fuzz_${name}_objects PROPERTIES UNITY_BUILD OFF)
    target_include_directories(fuzz_${name}_objects PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tools)
    target_compile_definitions(fuzz_${name}_objects PRIVATE TT_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    target_link_libraries(fuzz_${name}_objects PRIVATE ${libraries})
    if(BUILD_TESTING)
        tt_add_fuzz_program(fuzz_${name}_replay ${PROJECT_SOURCE_DIR}/fuzz/support/replay.cpp)
        list(TRANSFORM arg_SEEDS PREPEND ${PROJECT_SOURCE_DIR}/ OUTPUT_VARIABLE furtherSeeds)
        add_test(NAME Fuzz.${name}
            COMMAND fuzz_${name}_replay ${arg_MAX_LEN} ${PROJECT_SOURCE_DIR}/fuzz/corpus/${name} ${furtherSeeds})
        set_tests_properties(Fuzz.${name} PROPERTIES TIMEOUT 300)
    endif()
    if(TT_FUZZ)
        tt_add_fuzz_program(fuzz_${name})
        target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
        set_target_properties(fuzz_${name} PROPERTIES LINKER_LANGUAGE CXX EXCLUDE_FROM_ALL ON)
        add_dependencies(fuzzers fuzz_${name})
        string(REPLACE ";" "," seeds "${arg_SEEDS}")
        file(APPEND ${PROJECT_BINARY_DIR}/fuzzers.txt "${name} ${arg_MAX_LEN} ${arg_DICT} ${seeds}\n")
    endif()
endfunction()

# Adds one of the two programs of a target. Uses the caller's name, libraries and arg_TOOL.
function(tt_add_fuzz_program program)
    add_executable(${program} ${ARGN} $<TARGET_OBJECTS:fuzz_${name}_objects>)
    tt_configure_target(${program})
    target_include_directories(${program} PRIVATE ${PROJECT_SOURCE_DIR})
    if(arg_TOOL)
        # Link the objects: the tool's library target would pull in the shared library, which hides the internals that
        # the targets use.
        target_sources(${program} PRIVATE $<TARGET_OBJECTS:ttconfig_parts>)
    endif()
    target_link_libraries(${program} PRIVATE ${libraries})
endfunction()

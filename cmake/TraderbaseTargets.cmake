# Common settings of all our targets. UNMEASURED: coverage is not counted in the target. TESTING: the target only tests,
# so it is neither optimised nor hardened; the code under test still is.
#
# With CMAKE_UNITY_BUILD the sources of one folder are compiled together, which takes a quarter of the time: most of what
# a source costs are the templates of the JSON and command-line libraries. So a name that is local to a file must be
# unique in its folder, or its file be named in tt_compile_alone(FILE...).

function(tt_configure_target target)
    cmake_parse_arguments(arg "UNMEASURED;TESTING" "" "" ${ARGN})
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON
    )
    tt_compile_folders_together(${target})
    tt_enable_warnings(${target})
    tt_enable_sanitizers(${target})
    tt_enable_coverage(${target} ${arg_UNMEASURED})
    if(NOT arg_TESTING)
        tt_enable_hardening(${target})
    elseif(NOT MSVC)
        target_compile_options(${target} PRIVATE -O0)
    endif()
endfunction()

# One unity group for each folder that the target has sources in.
function(tt_compile_folders_together target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
    # In a unity build every source counts as an included file, in which GCC takes a class with a base in an unnamed
    # namespace for a mistake.
    if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
    endif()
    get_target_property(sources ${target} SOURCES)
    if(NOT sources)
        return()
    endif()
    foreach(source IN LISTS sources)
        if(source MATCHES "\\.cpp$")
            cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} OUTPUT_VARIABLE folder)
            cmake_path(GET folder PARENT_PATH folder)
            cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${PROJECT_SOURCE_DIR})
            string(MAKE_C_IDENTIFIER "${folder}" group)
            set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${group})
        endif()
    endforeach()
endfunction()

function(tt_compile_alone)
    set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

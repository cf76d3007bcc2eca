# Common settings of all our targets. UNMEASURED: coverage is not counted in the target.

function(tt_configure_target target)
    cmake_parse_arguments(arg "UNMEASURED" "" "" ${ARGN})
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON
    )
    tt_enable_warnings(${target})
    tt_enable_sanitizers(${target})
    tt_enable_coverage(${target} ${arg_UNMEASURED})
    tt_enable_hardening(${target})
endfunction()

# What every target of ours has in common.

function(tt_configure_target target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON
    )
    tt_enable_warnings(${target})
    tt_enable_sanitizers(${target})
    tt_enable_hardening(${target})
endfunction()

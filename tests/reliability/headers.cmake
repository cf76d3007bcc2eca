# The target "headers" compiles every public header alone, in C++17 and in C++20, with our warnings. It is not part of
# "all"; .ci/run builds it with both compilers.

set(public_headers
    luaconfig/luaconfig.h
    traderbase/base/config/algorithmparamconfig.h
    traderbase/base/config/configcollector.h
    traderbase/base/config/contractinfo.h
    luaconfig/export.h
    traderbase/base/config/shfixincomelimit.h
    traderbase/base/config/tradeunit.h
    traderbase/base/config/version.h
    ttplatform/algorithmsparams.h
    ttplatform/configuration.h
    ttplatform/enums.h
    ttplatform/export.h
    ttplatform/idata.h
    ttplatform/instruments.h
    ttplatform/logging.h
    ttplatform/ratelimitrecords.h
    ttplatform/rights.h
    ttplatform/stocktypecenter.h
    ttplatform/text.h
    ttplatform/tradercenter.h
)

# A header missing from the list would not be tested.
foreach(folder base/src/luaconfig libs/traderbase/base/config platform/include/ttplatform)
    file(GLOB found CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.h)
    foreach(header IN LISTS found)
        string(REGEX REPLACE "^.*/(base/src|libs|platform/include)/" "" header "${header}")
        if(NOT header IN_LIST public_headers)
            message(FATAL_ERROR "${header} is a public header that ${CMAKE_CURRENT_LIST_FILE} does not know")
        endif()
    endforeach()
endforeach()

set(sources)
foreach(header IN LISTS public_headers)
    string(MAKE_C_IDENTIFIER "${header}" name)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/headers/${name}.cpp)
    # Include it twice: its guard must make the second include empty.
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n#include \"${header}\"\n")
    list(APPEND sources ${source})
endforeach()

add_custom_target(headers)
foreach(standard 17 20)
    add_library(headers_cxx${standard} OBJECT EXCLUDE_FROM_ALL ${sources})
    tt_configure_target(headers_cxx${standard})
    set_target_properties(headers_cxx${standard} PROPERTIES CXX_STANDARD ${standard} CXX_STANDARD_REQUIRED ON UNITY_BUILD OFF)
    target_include_directories(headers_cxx${standard} PRIVATE ${PROJECT_SOURCE_DIR}/libs ${PROJECT_SOURCE_DIR}/base/src)
    target_link_libraries(headers_cxx${standard} PRIVATE
        ${TRADERBASE_PLATFORM_TARGET} tt::boost tt::lua tt::bson tt::log4cxx)
    add_dependencies(headers headers_cxx${standard})
endforeach()

# Embeds the report's page in the program; a change to any of its files makes the source anew.

set(page_folder ${CMAKE_CURRENT_LIST_DIR})
set(page_source ${CMAKE_CURRENT_BINARY_DIR}/pagepieces.cpp)
set(page_files report.html report.css base.js tables.js matrix.js source.js sessions.js page.js embed.cmake)
list(TRANSFORM page_files PREPEND ${page_folder}/)
add_custom_command(
    OUTPUT ${page_source}
    COMMAND ${CMAKE_COMMAND} -DOUTPUT=${page_source} -P ${page_folder}/embed.cmake
    DEPENDS ${page_files}
    COMMENT "Embedding the report's page"
    VERBATIM
)
target_sources(ttconfig_parts PRIVATE ${page_source})
# The page names the version of the program that made it.
set_source_files_properties(report/reportdata.cpp PROPERTIES COMPILE_DEFINITIONS TTCONFIG_VERSION="${PROJECT_VERSION}")

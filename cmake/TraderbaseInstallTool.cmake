# tt_install_tool(): installs the tool: the program with the libraries it loads, its manual page and the shells'
# completion scripts. The tool generates the page and the scripts from its own command line; they are in share/ of the
# build folder, laid out as they are installed. Use: cmake --install BUILD --component tool

include(GNUInstallDirs)

# tt_write_by_tool(FILE FOLDER WORD...): writes the output of "ttconfig WORD..." to FOLDER/FILE below share/.
function(tt_write_by_tool file folder)
    set(path ${PROJECT_BINARY_DIR}/share/${folder}/${file})
    add_custom_command(OUTPUT ${path}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/share/${folder}
        COMMAND ttconfig ${ARGN} > ${path}
        DEPENDS ttconfig
    )
    set_property(GLOBAL APPEND PROPERTY TT_WRITTEN_BY_TOOL ${path})
    install(FILES ${path} DESTINATION ${CMAKE_INSTALL_DATADIR}/${folder} COMPONENT tool)
endfunction()

function(tt_install_tool)
    tt_write_by_tool(ttconfig.1 man/man1 manual)
    tt_write_by_tool(ttconfig bash-completion/completions completion bash)
    tt_write_by_tool(_ttconfig zsh/site-functions completion zsh)
    tt_write_by_tool(ttconfig.fish fish/vendor_completions.d completion fish)
    get_property(written GLOBAL PROPERTY TT_WRITTEN_BY_TOOL)
    add_custom_target(ttconfig_share ALL DEPENDS ${written})

    set(libraries traderbaseconfig)
    if(TARGET ttplatform)
        list(APPEND libraries ttplatform)
    endif()
    set_target_properties(ttconfig PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
    set_target_properties(${libraries} PROPERTIES INSTALL_RPATH "$ORIGIN")
    install(TARGETS ttconfig RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
    install(TARGETS ${libraries} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT tool NAMELINK_SKIP)
endfunction()

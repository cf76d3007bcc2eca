# Runs PROGRAM with ARGUMENT. It must exit with 0, print LAST_WORD and report no problem. CTest can check the exit code
# or the output, but not both.
execute_process(COMMAND ${PROGRAM} ${ARGUMENT} RESULT_VARIABLE code OUTPUT_VARIABLE said ERROR_VARIABLE said)
message("${said}")
if(NOT code STREQUAL "0")
    message(FATAL_ERROR "ended with ${code}")
endif()
if(said MATCHES "broken: |ERROR: |WARNING: |runtime error: ")
    message(FATAL_ERROR "complained: ${CMAKE_MATCH_0}")
endif()
if(NOT said MATCHES "${LAST_WORD}")
    message(FATAL_ERROR "did not say \"${LAST_WORD}\"")
endif()

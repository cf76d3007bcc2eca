# Runs PROGRAM with ARGUMENT; whatever it says, it has to end with 0, say LAST_WORD and complain of nothing. CTest looks
# at the exit code or at what is said, not at both.
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

# Runs PROGRAM, keeps what it prints in ACTUAL, and fails where that is not GOLDEN to the byte.
execute_process(COMMAND ${PROGRAM} OUTPUT_FILE ${ACTUAL} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(SEND_ERROR "${PROGRAM} ended with ${result}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${GOLDEN} ${ACTUAL} RESULT_VARIABLE differs)
if(NOT differs EQUAL 0)
    execute_process(COMMAND diff -u ${GOLDEN} ${ACTUAL})
    message(FATAL_ERROR "The CIM library does not behave as ${GOLDEN} says. Where the program was changed, the text is "
        "rewritten by `cmake --build BUILD --target update-conformance`, BUILD being configured with -DVQ_CIM=openpegasus.")
endif()

# Runs one scenario and compares what it prints with the golden file.
execute_process(COMMAND ${TOOL} ${EXTRA_ARGS} ${SCENARIO}
    OUTPUT_VARIABLE actual ERROR_VARIABLE errors RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "exit status ${status}\n${errors}")
endif()
file(READ ${EXPECTED} expected)
if(NOT DEFINED ACTUAL)
    set(ACTUAL ${SCENARIO}.actual)
endif()
if(NOT actual STREQUAL expected)
    file(WRITE ${ACTUAL} "${actual}")
    message(FATAL_ERROR "output differs from ${EXPECTED}; got ${ACTUAL}\n"
        "--- expected\n${expected}--- actual\n${actual}")
endif()

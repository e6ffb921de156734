# A line the tool cannot read stops it with status 2 and a message naming
# the line; what came before it is still printed.
execute_process(COMMAND ${TOOL} ${EXTRA_ARGS} ${SCENARIO}
    OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE status)
if(NOT status EQUAL 2)
    message(FATAL_ERROR "expected exit status 2, got ${status}")
endif()
if(NOT err MATCHES "line 4")
    message(FATAL_ERROR "message does not name line 4: ${err}")
endif()
if(NOT out MATCHES "^\" 1'- 0[\\]\"\"\n$")
    message(FATAL_ERROR "unexpected output: ${out}")
endif()

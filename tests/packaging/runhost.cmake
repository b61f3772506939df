# Runs a consumer's HOST on the consumer's PLUGINS and compares what it prints with EXPECTED.

execute_process(COMMAND ${HOST} ${PLUGINS} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
file(READ ${EXPECTED} expected)
if(NOT output STREQUAL expected)
    message(FATAL_ERROR "${HOST} ${PLUGINS} printed\n${output}instead of\n${expected}")
endif()

# A fault in a plugin's metadata fails the plugin's build and is shown at its place, as a compiler
# would; once it is mended the build goes through.

set(metadata ${SCRATCH}/source/thermometer.json)
file(REMOVE_RECURSE ${SCRATCH})
file(COPY ${CONSUMER}/ DESTINATION ${SCRATCH}/source)
file(READ ${metadata} json)
string(REPLACE "\"double\"" "\"doubel\"" faulty "${json}")
file(WRITE ${metadata} "${faulty}")

string(FIND "${faulty}" "\"doubel\"" offset)
if(offset EQUAL -1)
    message(FATAL_ERROR "${metadata} has no field of type double to make a fault of")
endif()
string(SUBSTRING "${faulty}" 0 ${offset} before)
string(REGEX REPLACE "[^\n]" "" line_ends "${before}")
string(LENGTH "${line_ends}" line)
string(REGEX MATCH "[^\n]*$" same_line "${before}")
string(LENGTH "${same_line}" column)
math(EXPR line "${line} + 1")
math(EXPR column "${column} + 1")

execute_process(COMMAND ${CMAKE_COMMAND} -S ${SCRATCH}/source -B ${SCRATCH}/build -G ${GENERATOR}
    -D CMAKE_MAKE_PROGRAM=${MAKE_PROGRAM} -C ${INITIAL_CACHE}
    COMMAND_ERROR_IS_FATAL ANY)
foreach(attempt first second)
    execute_process(COMMAND ${CMAKE_COMMAND} --build ${SCRATCH}/build --target thermometer
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(result EQUAL 0)
        message(FATAL_ERROR "The ${attempt} build went through:\n${output}")
    endif()
    if(NOT output MATCHES "thermometer\\.json:${line}:${column}: ")
        message(FATAL_ERROR "The ${attempt} build failed, but did not show the fault at line "
            "${line}, column ${column}:\n${output}")
    endif()
endforeach()

file(WRITE ${metadata} "${json}")
execute_process(COMMAND ${CMAKE_COMMAND} --build ${SCRATCH}/build --target thermometer
    COMMAND_ERROR_IS_FATAL ANY)

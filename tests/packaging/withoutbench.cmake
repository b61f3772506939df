# Configures the project in SOURCE_DIR without the test bench: the build of the library, the tools
# and the tests knows all that it needs, and no file of the package tells of the bench.

file(REMOVE_RECURSE ${SCRATCH})
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${SCRATCH} -G ${GENERATOR}
    -D CMAKE_MAKE_PROGRAM=${MAKE_PROGRAM} -C ${INITIAL_CACHE} -D ZPPLUGIN_BUILD_TEST_BENCH=OFF
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${SCRATCH} -- -n
    OUTPUT_VARIABLE steps COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE targets ${SCRATCH}/CMakeFiles/Export/*/ZPPluginLibraryTargets*.cmake)
if(NOT targets)
    message(FATAL_ERROR "There is no package in ${SCRATCH}")
endif()
foreach(file IN LISTS targets)
    file(READ ${file} content)
    string(APPEND steps "${content}")
endforeach()
if(NOT steps MATCHES "libZPPluginLibrary\\.so" OR steps MATCHES "src/dev|LibraryDev|zpplugin-bench")
    message(FATAL_ERROR "Without the test bench the build and its package are\n${steps}")
endif()

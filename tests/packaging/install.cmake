# Installs the build in BINARY_DIR to SCRATCH/prefix and checks that the package can be moved: no
# text in it names the folders in which it was made.

file(REMOVE_RECURSE ${SCRATCH})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BINARY_DIR} --prefix ${SCRATCH}/prefix
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

file(GLOB_RECURSE texts
    ${SCRATCH}/prefix/include/* ${SCRATCH}/prefix/*.cmake ${SCRATCH}/prefix/*.pc)
list(LENGTH texts count)
if(count LESS 10)
    message(FATAL_ERROR "Only ${count} headers and package files were installed: ${texts}")
endif()
foreach(text IN LISTS texts)
    file(READ ${text} content)
    foreach(folder ${SOURCE_DIR} ${BINARY_DIR} ${SCRATCH})
        string(FIND "${content}" ${folder} found)
        if(found GREATER -1)
            message(SEND_ERROR "${text} names ${folder}")
        endif()
    endforeach()
endforeach()

# zpplugin_forwarding_headers(<target> PREFIX <NARV|NARV/INTERNAL|...> HEADERS <Class>=<file> ...)
#
# Gives each public class a header whose path is its qualified name, so that one writes
# #include <NARV/Widget> in the build tree and in the installed tree alike. <file> is the real
# header, relative to src/. The real headers and the forwarding ones are installed together.

function(zpplugin_forwarding_headers target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "PREFIX" "HEADERS")
    string(REGEX REPLACE "[^/]+" ".." up ${arg_PREFIX})
    foreach(entry IN LISTS arg_HEADERS)
        string(REPLACE "=" ";" entry ${entry})
        list(GET entry 0 class)
        list(GET entry 1 file)
        set(built ${PROJECT_BINARY_DIR}/include/${arg_PREFIX}/${class})
        set(installed ${PROJECT_BINARY_DIR}/install-include/${arg_PREFIX}/${class})
        file(CONFIGURE OUTPUT ${built} CONTENT "#include \"${PROJECT_SOURCE_DIR}/src/${file}\"\n")
        file(CONFIGURE OUTPUT ${installed} CONTENT "#include \"${up}/zpplugin/${file}\"\n")
        get_filename_component(folder ${file} DIRECTORY)
        install(FILES ${installed}
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZPPluginLibrary/${arg_PREFIX} COMPONENT Devel)
        install(FILES ${PROJECT_SOURCE_DIR}/src/${file}
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZPPluginLibrary/zpplugin/${folder} COMPONENT Devel)
        set_property(GLOBAL APPEND PROPERTY ZPPLUGIN_PUBLIC_HEADERS ${arg_PREFIX}/${class})
        set_property(GLOBAL APPEND PROPERTY ZPPLUGIN_PUBLIC_HEADER_FILES
            ${PROJECT_SOURCE_DIR}/src/${file})
    endforeach()
endfunction()

# Part of the installed package: what a plugin author's project calls.
#
# zpplugin_add_widget_library(<target>
#     ID           <uuid>              the plugin's id, as in its metadata
#     METADATA     <file.json>         the file that Q_PLUGIN_METADATA names
#     SOURCES      <files>
#     [TRANSLATIONS <xx-XX.csv> ...]   one translation file a language, named by its code
#     [PLUGINS_DIR  <folder>])         default: ZPPLUGIN_PLUGINS_DIR, else <build folder>/plugins
#
# Makes a module <plugins folder>/<id>/<platform folder>/lib<id>.so, with the translation files in
# its resources where the library looks for them. The metadata is checked before it is compiled in:
# a fault fails the build at its line.
#
# When cross-compiling set ZPPLUGIN_EXECUTABLE to a zpplugin that runs on the build machine.

function(zpplugin_platform_folder result)
    if(CMAKE_SYSTEM_NAME STREQUAL "Windows")
        set(system win32)
    else()
        set(system linux)
    endif()
    string(TOLOWER "${CMAKE_SYSTEM_PROCESSOR}" processor)
    if(processor MATCHES "^(arm|aarch64)")
        set(machines arm32 arm64)
    else()
        set(machines x86 x64)
    endif()
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
        list(GET machines 1 machine)
    else()
        list(GET machines 0 machine)
    endif()
    set(${result} ${system}/${machine} PARENT_SCOPE)
endfunction()

# The command that runs the checking tool: our own, or one for the build machine.
function(zpplugin_tool_command result)
    if(ZPPLUGIN_EXECUTABLE)
        set(${result} ${ZPPLUGIN_EXECUTABLE} PARENT_SCOPE)
    elseif(CMAKE_CROSSCOMPILING OR NOT (TARGET zpplugin OR TARGET ZPPluginLibrary::zpplugin))
        message(FATAL_ERROR "Set ZPPLUGIN_EXECUTABLE to a zpplugin that runs on this machine: "
            "it checks the metadata of widget libraries.")
    elseif(TARGET zpplugin)
        set(${result} $<TARGET_FILE:zpplugin> PARENT_SCOPE)
    else()
        set(${result} $<TARGET_FILE:ZPPluginLibrary::zpplugin> PARENT_SCOPE)
    endif()
endfunction()

function(zpplugin_check_metadata target metadata id)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${metadata})
    file(READ ${metadata} json)
    string(JSON written ERROR_VARIABLE error GET "${json}" id)
    if(NOT error AND NOT written STREQUAL id)
        message(FATAL_ERROR "${metadata}: the id ${written} is not the ID ${id} of ${target}")
    endif()
    zpplugin_tool_command(tool)
    set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${target}_metadata.checked)
    add_custom_command(OUTPUT ${stamp}
        COMMAND ${tool} check --quiet ${metadata}
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS ${metadata} ${tool}
        COMMENT "Checking ${metadata}"
        VERBATIM)
    set_property(TARGET ${target} APPEND PROPERTY AUTOGEN_TARGET_DEPENDS ${stamp})
    target_sources(${target} PRIVATE ${stamp})
endfunction()

function(zpplugin_add_translations target id)
    set(files "")
    foreach(file IN LISTS ARGN)
        get_filename_component(path ${file} ABSOLUTE)
        get_filename_component(name ${file} NAME)
        if(NOT name MATCHES "^[a-z][a-z]-[A-Z][A-Z]\\.csv$")
            message(FATAL_ERROR "${file}: a translation file is named by its language, "
                "such as it-IT.csv")
        endif()
        string(APPEND files "        <file alias=\"${name}\">${path}</file>\n")
    endforeach()
    set(qrc ${CMAKE_CURRENT_BINARY_DIR}/${target}_translations.qrc)
    file(CONFIGURE OUTPUT ${qrc} @ONLY CONTENT
        "<RCC>\n    <qresource prefix=\"/@id@/resources/translation\">\n@files@    </qresource>\n</RCC>\n")
    qt5_add_resources(resources ${qrc})
    target_sources(${target} PRIVATE ${resources})
endfunction()

function(zpplugin_add_widget_library target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "ID;METADATA;PLUGINS_DIR" "TRANSLATIONS;SOURCES")
    foreach(required ID METADATA SOURCES)
        if(NOT arg_${required})
            message(FATAL_ERROR "zpplugin_add_widget_library(${target}): ${required} is missing")
        endif()
    endforeach()
    if(NOT arg_ID MATCHES "^[0-9a-fA-F]+-[0-9a-fA-F]+-[0-9a-fA-F]+-[0-9a-fA-F]+-[0-9a-fA-F]+$")
        message(FATAL_ERROR "zpplugin_add_widget_library(${target}): ID is no UUID: ${arg_ID}")
    endif()
    foreach(folder ${arg_PLUGINS_DIR} ${ZPPLUGIN_PLUGINS_DIR} ${CMAKE_BINARY_DIR}/plugins)
        set(plugins_dir ${folder})
        break()
    endforeach()
    zpplugin_platform_folder(platform)
    get_filename_component(metadata ${arg_METADATA} ABSOLUTE)
    get_filename_component(metadata_dir ${metadata} DIRECTORY)

    add_library(${target} MODULE ${arg_SOURCES} ${metadata})
    set(prefix lib)
    if(WIN32)
        set(prefix "")
    endif()
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON
        PREFIX "${prefix}"
        OUTPUT_NAME ${arg_ID}
        LIBRARY_OUTPUT_DIRECTORY ${plugins_dir}/${arg_ID}/${platform}
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_include_directories(${target} PRIVATE ${metadata_dir})
    target_link_libraries(${target} PRIVATE ZPPluginLibrary::ZPPluginLibrary)
    if(UNIX AND NOT APPLE AND NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
        target_link_options(${target} PRIVATE -Wl,--no-undefined)
    endif()
    zpplugin_check_metadata(${target} ${metadata} ${arg_ID})
    if(arg_TRANSLATIONS)
        zpplugin_add_translations(${target} ${arg_ID} ${arg_TRANSLATIONS})
    endif()
endfunction()

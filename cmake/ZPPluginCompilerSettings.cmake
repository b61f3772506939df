# Settings for everything built in this tree; nothing here reaches a user of the package.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

# Programs and libraries side by side, as in an install tree.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

if(MSVC)
    add_compile_options(/W4 /permissive- /utf-8)
    if(ZPPLUGIN_WARNINGS_AS_ERRORS)
        add_compile_options(/WX)
    endif()
else()
    # Nobody replaces functions of the library at run time: let it call and inline its own.
    add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -fno-semantic-interposition)
    if(ZPPLUGIN_WARNINGS_AS_ERRORS)
        add_compile_options(-Werror)
    endif()
endif()

add_compile_definitions(
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING
    QT_DEPRECATED_WARNINGS)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

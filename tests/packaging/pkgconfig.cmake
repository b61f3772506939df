# Compiles SOURCE to the program HOST with what pkg-config says of the package in PACKAGE_DIR.

set(ENV{PKG_CONFIG_PATH} ${PACKAGE_DIR}/pkgconfig)
execute_process(COMMAND ${PKG_CONFIG} --cflags --libs ZPPluginLibrary
    OUTPUT_VARIABLE package_flags COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${FLAGS} ${package_flags}")
execute_process(COMMAND ${COMPILER} -fPIC ${SOURCE} -o ${HOST} ${flags} -Wl,-rpath,${PACKAGE_DIR}
    COMMAND_ERROR_IS_FATAL ANY)

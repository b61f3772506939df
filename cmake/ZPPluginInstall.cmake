# The package for find_package(ZPPluginLibrary) and pkg-config.

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ZPPluginLibrary)
configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/cmake/ZPPluginLibraryConfig.cmake.in
    ${PROJECT_BINARY_DIR}/ZPPluginLibraryConfig.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/ZPPluginLibraryConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/ZPPluginLibraryConfig.cmake
    ${PROJECT_BINARY_DIR}/ZPPluginLibraryConfigVersion.cmake
    ${PROJECT_SOURCE_DIR}/cmake/ZPPluginWidgetLibrary.cmake
    DESTINATION ${package_dir} COMPONENT Devel)
install(EXPORT ZPPluginLibraryTargets NAMESPACE ZPPluginLibrary::
    DESTINATION ${package_dir} COMPONENT Devel)

# Relative, so that the package works wherever it is installed or moved to.
file(RELATIVE_PATH pc_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${PROJECT_SOURCE_DIR}/cmake/ZPPluginLibrary.pc.in
    ${PROJECT_BINARY_DIR}/ZPPluginLibrary.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/ZPPluginLibrary.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Devel)

# Installs the CMake package of a library whose targets are in the export set
# <name>Targets: the targets file under the namespace <name>::, and the
# config (from cmake/<name>Config.cmake.in) and version files, so that
# find_package(<name>) finds it in the installed prefix.
include(CMakePackageConfigHelpers)

function(mx_install_package name)
    set(destination ${CMAKE_INSTALL_LIBDIR}/cmake/${name})
    install(EXPORT ${name}Targets
        NAMESPACE ${name}::
        DESTINATION ${destination})
    configure_package_config_file(
        ${PROJECT_SOURCE_DIR}/cmake/${name}Config.cmake.in
        ${CMAKE_CURRENT_BINARY_DIR}/${name}Config.cmake
        INSTALL_DESTINATION ${destination})
    write_basic_package_version_file(
        ${CMAKE_CURRENT_BINARY_DIR}/${name}ConfigVersion.cmake
        VERSION ${PROJECT_VERSION}
        COMPATIBILITY SameMajorVersion)
    install(FILES
        ${CMAKE_CURRENT_BINARY_DIR}/${name}Config.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/${name}ConfigVersion.cmake
        DESTINATION ${destination})
endfunction()

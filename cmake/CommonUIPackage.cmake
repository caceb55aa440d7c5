# Install and export: find_package(CommonUI REQUIRED COMPONENTS CommonUILib ...).
include(CMakePackageConfigHelpers)

install(EXPORT CommonUITargets NAMESPACE CommonUI:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/CommonUI)
get_property(libraries GLOBAL PROPERTY COMMONUI_LIBRARIES)
foreach(library IN LISTS libraries)
    get_target_property(binary_dir ${library} BINARY_DIR)
    install(FILES "${binary_dir}/${library}Export.h" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/CommonUI)
endforeach()
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/CommonUIConfig.cmake.in"
    "${CMAKE_BINARY_DIR}/CommonUIConfig.cmake"
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/CommonUI)
write_basic_package_version_file("${CMAKE_BINARY_DIR}/CommonUIConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_BINARY_DIR}/CommonUIConfig.cmake" "${CMAKE_BINARY_DIR}/CommonUIConfigVersion.cmake"
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/CommonUI)

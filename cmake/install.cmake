# cmake --install: the plug-in library, the tool, the public header and the CMake package
# vela_fcpxml, whose one target is vela_fcpxml::vela_fcpxml.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vela_fcpxml)

target_include_directories(vela_fcpxml INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

install(TARGETS vela_fcpxml EXPORT vela_fcpxml_targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${PROJECT_SOURCE_DIR}/include/vela_fcpxml/plugin.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vela_fcpxml)
if(TARGET xpjconvert)
    install(TARGETS xpjconvert RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

install(EXPORT vela_fcpxml_targets NAMESPACE vela_fcpxml::
    FILE vela_fcpxmlTargets.cmake DESTINATION ${package_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/vela_fcpxmlConfig.cmake.in
    ${PROJECT_BINARY_DIR}/vela_fcpxmlConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vela_fcpxmlConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vela_fcpxmlConfig.cmake
              ${PROJECT_BINARY_DIR}/vela_fcpxmlConfigVersion.cmake
    DESTINATION ${package_dir})

# cmake --install: the plug-in in a folder where hosts look, the tool, the public header, the licence
# and the documents, and two ways to find the plug-in: the CMake package vela_fcpxml, and
# vela_fcpxml.pc for pkg-config. Nothing holds an absolute path: an installed tree can be moved.
include(CMakePackageConfigHelpers)

set(plugin_dir ${CMAKE_INSTALL_LIBDIR}/vela/plugins)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vela_fcpxml)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# What a host compiles with; it loads the plug-in at run time.
add_library(vela_fcpxml_headers INTERFACE)
target_include_directories(vela_fcpxml_headers INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
set_target_properties(vela_fcpxml_headers PROPERTIES EXPORT_NAME headers)
set_target_properties(vela_fcpxml PROPERTIES EXPORT_NAME plugin)

install(TARGETS vela_fcpxml vela_fcpxml_headers EXPORT vela_fcpxml_targets
    LIBRARY DESTINATION ${plugin_dir})
install(FILES ${PROJECT_SOURCE_DIR}/include/vela_fcpxml/plugin.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vela_fcpxml)
if(TARGET xpjconvert)
    install(TARGETS xpjconvert RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

if(TARGET manual)
    install(DIRECTORY ${PROJECT_BINARY_DIR}/manual/ DESTINATION ${CMAKE_INSTALL_DATAROOTDIR})
endif()

install(EXPORT vela_fcpxml_targets NAMESPACE vela_fcpxml::
    FILE vela_fcpxmlTargets.cmake DESTINATION ${package_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/vela_fcpxmlConfig.cmake.in
    ${PROJECT_BINARY_DIR}/vela_fcpxmlConfig.cmake INSTALL_DESTINATION ${package_dir}
    PATH_VARS plugin_dir)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vela_fcpxmlConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vela_fcpxmlConfig.cmake
              ${PROJECT_BINARY_DIR}/vela_fcpxmlConfigVersion.cmake
    DESTINATION ${package_dir})

# From the folder of the .pc file up to the prefix.
file(RELATIVE_PATH pkgconfig_to_prefix
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" pkgconfig_to_prefix "${pkgconfig_to_prefix}")
configure_file(${PROJECT_SOURCE_DIR}/cmake/vela_fcpxml.pc.in ${PROJECT_BINARY_DIR}/vela_fcpxml.pc
    @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vela_fcpxml.pc DESTINATION ${pkgconfig_dir})

install(DIRECTORY messages DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/vela_fcpxml)

# The documents of a user and of a host's author; those that explain the code stay with it.
install(FILES README.md CHANGELOG.md LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs
    PATTERN architecture.md EXCLUDE
    PATTERN contributing.md EXCLUDE
    PATTERN performance.md EXCLUDE)
install(DIRECTORY examples/host DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples
    FILES_MATCHING PATTERN *.c)

# cpack -G DEB and cpack -G TGZ, in the build folder: the installed tree as a package. Configure with
# -DCMAKE_INSTALL_PREFIX=/usr for a Debian package whose libraries are in the architecture's folder.

set(CPACK_PACKAGE_NAME vela-fcpxml)
set(CPACK_PACKAGE_VENDOR "The Vela FCP XML converter authors")
set(CPACK_PACKAGE_CONTACT "The Vela FCP XML converter authors <authors@vela-fcpxml.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Converter between Final Cut Pro XML and Vela projects")
set(CPACK_PACKAGE_DESCRIPTION
"Translates interchange documents of Final Cut Pro 7 (xmeml, versions 1 to 5)
into Vela project documents and back, and reports what did not arrive as it
was: where it is in the timeline, why, and what can be done about it.

This package has the plug-in for the Vela host, its C header, and the command
line tool xpjconvert.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB TGZ)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# What a distribution requires of each package beside the installed files.
configure_file(cmake/debian_files.cmake.in ${PROJECT_BINARY_DIR}/debian_files.cmake @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_BINARY_DIR}/debian_files.cmake)

include(CPack)

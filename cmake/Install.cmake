# The installed package: headers, the library, find_package(Tolvanite) and pkg-config. What the
# library itself is made with (fmt, ICU, libcurl) stays out of it: the headers show none of it and
# the shared library names what it needs.
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/Tolvanite")

install(TARGETS Tolvanite EXPORT TolvaniteTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(EXPORT TolvaniteTargets NAMESPACE Tolvanite:: DESTINATION "${package_folder}")

configure_package_config_file(cmake/TolvaniteConfig.cmake.in
  "${PROJECT_BINARY_DIR}/TolvaniteConfig.cmake" INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/TolvaniteConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/TolvaniteConfig.cmake"
  "${PROJECT_BINARY_DIR}/TolvaniteConfigVersion.cmake" DESTINATION "${package_folder}")

# ${pcfiledir} keeps the file right when the installed tree is moved.
file(RELATIVE_PATH prefix_from_pkgconfig
  "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file(cmake/tolvanite.pc.in "${PROJECT_BINARY_DIR}/tolvanite.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/tolvanite.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

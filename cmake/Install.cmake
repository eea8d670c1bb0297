# What `cmake --install` puts down: headers, library, CMake package, pkg-config file.

include(CMakePackageConfigHelpers)

install(TARGETS VXXMPlibShared EXPORT VXXMPlibTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
# A caller needs the toolkit's XMP_Error to catch it by type.
install(FILES
  "${XMP_TOOLKIT_PUBLIC_INCLUDE}/XMP_Const.h" "${XMP_TOOLKIT_PUBLIC_INCLUDE}/XMP_Environment.h"
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/VXXMPlib)
install(EXPORT VXXMPlibTargets NAMESPACE VXXMPlib:: DESTINATION ${package_dir})
configure_package_config_file(cmake/VXXMPlibConfig.cmake.in VXXMPlibConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(VXXMPlibConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/VXXMPlibConfig.cmake" "${PROJECT_BINARY_DIR}/VXXMPlibConfigVersion.cmake"
  DESTINATION ${package_dir})

# Relative to its own place, so that an installed prefix can be moved.
file(RELATIVE_PATH VXXMPLIB_PC_TO_PREFIX
  "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
configure_file(cmake/vxxmplib.pc.in vxxmplib.pc @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/vxxmplib.pc"
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

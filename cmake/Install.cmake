# SPDX-License-Identifier: Apache-2.0
# What `cmake --install` puts down, in two components: Runtime (the shared library, the licences) and
# Development (headers, the links and archives that programs link to, CMake package, pkg-config
# files). The build tree serves programs in the same way.

include(CMakePackageConfigHelpers)

# The toolkit's XMP_Const.h, by which a caller catches XMP_Error, stands apart, out of the way of an
# application's own copy.
set(VXXMPLIB_TOOLKIT_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/vxxmplib-toolkit)

foreach(form Shared Static)
  if(TARGET VXXMPlib${form})
    install(TARGETS VXXMPlib${form} EXPORT VXXMPlibTargets
      LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        COMPONENT Runtime NAMELINK_COMPONENT Development
      ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development
      INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} ${VXXMPLIB_TOOLKIT_INCLUDEDIR})
  endif()
endforeach()
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT Development
  FILES_MATCHING PATTERN "*.h")
install(FILES
  "${XMP_TOOLKIT_PUBLIC_INCLUDE}/XMP_Const.h" "${XMP_TOOLKIT_PUBLIC_INCLUDE}/XMP_Environment.h"
  DESTINATION ${VXXMPLIB_TOOLKIT_INCLUDEDIR} COMPONENT Development)
if(NOT VXXMPLIB_PACKAGE)  # a package has them in its copyright file
  install(FILES LICENSE ${XMP_TOOLKIT_NOTICES}
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Runtime)
endif()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/VXXMPlib)
install(EXPORT VXXMPlibTargets NAMESPACE VXXMPlib:: DESTINATION ${package_dir}
  COMPONENT Development)
export(EXPORT VXXMPlibTargets NAMESPACE VXXMPlib::)
set(VXXMPLIB_MAIN VXXMPlibShared)
set(VXXMPLIB_HAS_STATIC FALSE)
if(TARGET VXXMPlibStatic)
  set(VXXMPLIB_HAS_STATIC TRUE)
endif()
if(NOT BUILD_SHARED_LIBS)
  set(VXXMPLIB_MAIN VXXMPlibStatic)
endif()
configure_package_config_file(cmake/VXXMPlibConfig.cmake.in VXXMPlibConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(VXXMPlibConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/VXXMPlibConfig.cmake" "${PROJECT_BINARY_DIR}/VXXMPlibConfigVersion.cmake"
  DESTINATION ${package_dir} COMPONENT Development)

# install_pkg_config NAME LIBRARY REQUIRES: NAME.pc, found relative to its own place, so that an
# installed prefix can be moved (unless its folders are absolute), and NAME-uninstalled.pc, which
# pkg-config prefers, for the build tree.
function(install_pkg_config name library requires)
  set(VXXMPLIB_PC_NAME ${name})
  set(VXXMPLIB_PC_LIBRARY ${library})
  set(VXXMPLIB_PC_REQUIRES ${requires})
  foreach(folder LIBDIR INCLUDEDIR)
    set(VXXMPLIB_PC_${folder} "${CMAKE_INSTALL_${folder}}")
    if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_${folder}}")
      string(PREPEND VXXMPLIB_PC_${folder} "\${prefix}/")
    endif()
  endforeach()
  set(VXXMPLIB_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
  if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    file(RELATIVE_PATH to_prefix "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
    set(VXXMPLIB_PC_PREFIX "\${pcfiledir}/${to_prefix}")
  endif()
  set(VXXMPLIB_PC_TOOLKIT "\${includedir}/vxxmplib-toolkit")
  configure_file(cmake/vxxmplib.pc.in installed/${name}.pc @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/installed/${name}.pc"
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)

  set(VXXMPLIB_PC_PREFIX "${PROJECT_BINARY_DIR}")
  set(VXXMPLIB_PC_LIBDIR "${PROJECT_BINARY_DIR}/src")
  set(VXXMPLIB_PC_INCLUDEDIR "${PROJECT_SOURCE_DIR}/include")
  set(VXXMPLIB_PC_TOOLKIT "${XMP_TOOLKIT_PUBLIC_INCLUDE}")
  configure_file(cmake/vxxmplib.pc.in ${name}-uninstalled.pc @ONLY)
endfunction()
if(TARGET VXXMPlibShared)
  install_pkg_config(vxxmplib VXXMPlibShared "")
endif()
if(TARGET VXXMPlibStatic)
  install_pkg_config(vxxmplib-static VXXMPlibStatic expat)
endif()

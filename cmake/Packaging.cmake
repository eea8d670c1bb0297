# SPDX-License-Identifier: Apache-2.0
# Debian packages by CPack, a component each: scripts/package.

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)  # heeds SOURCE_DATE_EPOCH
set(VXXMPLIB_MAINTAINER "VXXMPlib maintainers <maintainers@localhost>" CACHE STRING
  "Who answers for the packages: NAME <ADDRESS>")
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vxxmplib)
# CPack's own default: with any other, it stands before every package's own summary.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_NAME} built using CMake")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${VXXMPLIB_MAINTAINER}")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src")  # the tool needs the library
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)

# As the indented text of a field in a file of Debian's form.
function(as_field_text text result)
  string(REPLACE "\r" "" text "${text}")
  string(REGEX REPLACE "[ \t]+\n" "\n" text "\n${text}\n")
  string(REGEX REPLACE "\n[ \t]*" "\n " text "${text}")
  string(REGEX REPLACE "\n \n" "\n .\n" text "${text}")
  string(REGEX REPLACE "\n \n" "\n .\n" text "${text}")
  string(STRIP "${text}" text)
  set(${result} " ${text}" PARENT_SCOPE)
endfunction()
file(READ "${XMP_TOOLKIT_LICENCE}" toolkit_licence)
as_field_text("${toolkit_licence}" toolkit_licence)
as_field_text("${md5_notice}" md5_licence)
configure_file(cmake/debian/copyright.in debian/copyright @ONLY)
configure_file(cmake/debian/changelog.in debian/changelog @ONLY)
find_program(GZIP gzip REQUIRED)
execute_process(COMMAND "${GZIP}" -9nkf "${PROJECT_BINARY_DIR}/debian/changelog" COMMAND_ERROR_IS_FATAL ANY)

# debian_package COMPONENT NAME SECTION SUMMARY DESCRIPTION [DEPENDS]
function(debian_package component name section summary description)
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${summary}\n${description}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${ARGN}" PARENT_SCOPE)
  install(FILES "${PROJECT_BINARY_DIR}/debian/copyright" DESTINATION share/doc/${name}
    COMPONENT ${component})
  install(FILES "${PROJECT_BINARY_DIR}/debian/changelog.gz" DESTINATION share/doc/${name}
    COMPONENT ${component} RENAME changelog.Debian.gz)
endfunction()

set(what "The library keeps the production metadata of one packaging or prepress
document as an XMP packet, and gives it to applications as typed records:
inks, screens, fonts, placed files, barcodes, layers, layouts, job data and
more.")
set(runtime libvxxmplib${PROJECT_VERSION_MAJOR})
file(CONFIGURE OUTPUT debian/triggers CONTENT "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${PROJECT_BINARY_DIR}/debian/triggers")
debian_package(Runtime ${runtime} libs "typed production metadata in XMP packets" "${what}")
debian_package(Development libvxxmplib-dev libdevel
  "typed production metadata in XMP packets - development files"
  "${what}\n\nThis package has the headers and what programs link to."
  "${runtime} (= ${PROJECT_VERSION}-1), libexpat1-dev")
set(CPACK_COMPONENTS_ALL Runtime Development)
if(TARGET vxmeta)
  if(NOT SCDOC)
    message(FATAL_ERROR "The package vxmeta needs scdoc (Debian's package) for its manual page")
  endif()
  debian_package(Tool vxmeta graphics "shows, checks and changes production metadata of documents"
    "The tool reads and writes the XMP packets of PDF files and artwork: it shows,
checks, compares, merges and changes the production metadata of packaging and
prepress documents that they hold." "${runtime} (>= ${PROJECT_VERSION})")
  list(APPEND CPACK_COMPONENTS_ALL Tool)
endif()
include(CPack)

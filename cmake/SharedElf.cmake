# SPDX-License-Identifier: Apache-2.0
# How the shared library is linked where libraries are ELF.

set(version_script "${PROJECT_SOURCE_DIR}/cmake/VXXMPlibShared.map")
target_link_options(VXXMPlibShared PRIVATE "LINKER:--version-script=${version_script}")
set_target_properties(VXXMPlibShared PROPERTIES LINK_DEPENDS "${version_script}")
# A second copy of the library in the process calls itself and not the first. XMP_Error's type is
# left out of this: it stays one, as catching it asks where types are compared by address.
target_link_options(VXXMPlibShared PRIVATE LINKER:-Bsymbolic-functions)
# Once loaded, it stays: the toolkit's tables are never given back, and an error that was thrown
# needs the code that frees it.
target_link_options(VXXMPlibShared PRIVATE LINKER:-z,nodelete)
if(NOT VXXMPLIB_SANITIZE)
  target_link_options(VXXMPlibShared PRIVATE LINKER:--no-undefined)
endif()

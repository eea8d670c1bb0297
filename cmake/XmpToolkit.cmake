# SPDX-License-Identifier: Apache-2.0
# The XMP Toolkit's core (XMPCore), built from source as the static library xmp_toolkit.

set(XMP_TOOLKIT_SOURCE_DIR "$ENV{XMP_TOOLKIT_SOURCE_DIR}" CACHE PATH "Root of an XMP Toolkit SDK source tree")
set(toolkit "${XMP_TOOLKIT_SOURCE_DIR}")
if(NOT toolkit)
  set(toolkit "${PROJECT_SOURCE_DIR}/.deps/xmp-toolkit")
endif()
if(NOT EXISTS "${toolkit}/XMPCore/source/XMPCore_Impl.hpp")
  message(FATAL_ERROR
    "No XMP Toolkit source tree at '${toolkit}'.\n"
    "On Debian 12, scripts/setup fetches one. Elsewhere, pass "
    "-DXMP_TOOLKIT_SOURCE_DIR=<dir>, where <dir> is an XMP Toolkit SDK tree: "
    "it holds XMPCore/, public/include/, source/ and third-party/zuid/.")
endif()
message(STATUS "XMP Toolkit: ${toolkit}")

find_package(EXPAT REQUIRED)
find_package(Threads REQUIRED)

file(GLOB toolkit_core CONFIGURE_DEPENDS "${toolkit}/XMPCore/source/*.cpp")
add_library(xmp_toolkit STATIC
  ${toolkit_core}
  "${toolkit}/source/UnicodeConversions.cpp"
  "${toolkit}/source/XML_Node.cpp"
  "${toolkit}/source/XMP_LibUtils.cpp"
  "${toolkit}/third-party/zuid/interfaces/MD5.cpp"
  "${PROJECT_SOURCE_DIR}/src/core/toolkit/glue.cpp")

# What the toolkit's headers are told of the platform, in a consumer's program too.
if(APPLE)
  set(VXXMPLIB_PLATFORM MAC_ENV=1)
else()
  set(VXXMPLIB_PLATFORM UNIX_ENV=1)
endif()

# src/core/toolkit and src/core/packet share these with the toolkit: its headers change with them.
target_compile_definitions(xmp_toolkit PUBLIC
  ${VXXMPLIB_PLATFORM} XMP_StaticBuild=1 _FILE_OFFSET_BITS=64 TXMP_STRING_TYPE=std::string
  XMP_COMPONENT_INT_NAMESPACE=AdobeXMPCore_Int BanAllEntityUsage=1)
target_include_directories(xmp_toolkit SYSTEM PUBLIC
  "${toolkit}" "${toolkit}/public/include" "${toolkit}/XMPCore"
  "${toolkit}/third-party/zuid/interfaces")
target_compile_options(xmp_toolkit PRIVATE -w -funsigned-char)
# Whoever throws, copies or catches an XMP_Error does it with the same functions.
set(error_text "${PROJECT_SOURCE_DIR}/src/core/toolkit/error_text.h")
target_compile_options(xmp_toolkit PUBLIC "SHELL:-include ${error_text}")
if(VXXMPLIB_SANITIZE MATCHES undefined)
  # Its getter of booleans copies an unset one for an absent property; we do not use that getter.
  target_compile_options(xmp_toolkit PRIVATE -fno-sanitize=bool)
endif()
# Faults of the toolkit that are mended where it is built: each header says which.
function(mend source header)
  set_source_files_properties("${toolkit}/XMPCore/source/${source}" PROPERTIES
    COMPILE_OPTIONS "-include;${PROJECT_SOURCE_DIR}/src/core/toolkit/${header}"
    INCLUDE_DIRECTORIES "${PROJECT_SOURCE_DIR}/src"
    OBJECT_DEPENDS "${toolkit_headers}")
endfunction()
file(GLOB toolkit_headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/src/core/toolkit/*.h")
mend(ExpatAdapter.cpp expat_fence.h)
mend(ParseRDF.cpp before_parse_rdf.h)
mend(XMPMeta-Parse.cpp before_meta_parse.h)
target_link_libraries(xmp_toolkit PUBLIC EXPAT::EXPAT Threads::Threads)
set_target_properties(xmp_toolkit PROPERTIES
  CXX_STANDARD 14 CXX_EXTENSIONS ON CXX_CLANG_TIDY ""
  CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
set(XMP_TOOLKIT_TREE "${toolkit}")
set(XMP_TOOLKIT_PUBLIC_INCLUDE "${toolkit}/public/include")
set(XMP_TOOLKIT_SAMPLES "${toolkit}/samples/testfiles")

# The licences of what is compiled in: the toolkit's own, and that of its MD5 code, which stands in
# its header.
find_file(XMP_TOOLKIT_LICENCE NAMES COPYING LICENSE BSD-License.txt PATHS "${toolkit}" REQUIRED
  NO_DEFAULT_PATH NO_CACHE)
file(READ "${toolkit}/third-party/zuid/interfaces/MD5.h" md5_header)
string(REGEX MATCH "MD5C\\.C - [^*]*documentation and/or software\\." md5_notice "${md5_header}")
if(NOT md5_notice)
  message(FATAL_ERROR "The licence of the toolkit's MD5 code is not where it was")
endif()
set(XMP_TOOLKIT_NOTICES "${PROJECT_BINARY_DIR}/LICENSE.xmp-toolkit" "${PROJECT_BINARY_DIR}/LICENSE.md5")
configure_file("${XMP_TOOLKIT_LICENCE}" "${PROJECT_BINARY_DIR}/LICENSE.xmp-toolkit" COPYONLY)
file(CONFIGURE OUTPUT LICENSE.md5 CONTENT "${md5_notice}\n" @ONLY)

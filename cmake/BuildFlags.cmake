# SPDX-License-Identifier: Apache-2.0
# Flags of the whole tree (sanitizers, coverage) and of our own code (warnings).

if(VXXMPLIB_SANITIZE)
  add_compile_options(-fsanitize=${VXXMPLIB_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VXXMPLIB_SANITIZE})
  # GCC cannot follow values through the sanitizers' code and warns of its own standard library.
  add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()
if(VXXMPLIB_COVERAGE)
  add_compile_options(--coverage -fprofile-update=atomic)
  add_link_options(--coverage)
endif()

add_library(vxxmplib_warnings INTERFACE)
target_compile_options(vxxmplib_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  -Wsign-conversion  # for GCC: clang counts it to the conversions
  $<$<BOOL:${VXXMPLIB_WARNINGS_AS_ERRORS}>:-Werror>
  # GCC 12 sees overlapping copies in every "literal" + std::string (its bug 105651).
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

# Where a library that is loaded late keeps something for each thread, glibc takes memory at the
# first use and ends the process when there is none. This model takes it when the library is loaded.
# Other C libraries refuse to load such a library.
include(CheckCXXSymbolExists)
check_cxx_symbol_exists(__GLIBC__ cstdlib VXXMPLIB_GLIBC)
if(VXXMPLIB_GLIBC)
  add_compile_options(-ftls-model=initial-exec)
endif()

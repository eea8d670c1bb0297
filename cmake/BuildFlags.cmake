# Flags of the whole tree (sanitizers, coverage) and of our own code (warnings).

if(VXXMPLIB_SANITIZE)
  add_compile_options(-fsanitize=${VXXMPLIB_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VXXMPLIB_SANITIZE})
endif()
if(VXXMPLIB_COVERAGE)
  add_compile_options(--coverage -fprofile-update=atomic)
  add_link_options(--coverage)
endif()

add_library(vxxmplib_warnings INTERFACE)
target_compile_options(vxxmplib_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  $<$<BOOL:${VXXMPLIB_WARNINGS_AS_ERRORS}>:-Werror>
  # GCC 12 sees overlapping copies in every "literal" + std::string (its bug 105651).
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

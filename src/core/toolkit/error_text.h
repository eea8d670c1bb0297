// SPDX-License-Identifier: Apache-2.0
// Included before all else into what is compiled with the toolkit's headers. They copy the text of
// an error with strdup and take a null text for no error: where memory is short, what has failed
// would pass for done. Here such an error has a text of static storage instead.
#pragma once

#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): the global names are replaced below
#include <string.h>  // NOLINT(modernize-deprecated-headers)

#include <vector>  // the toolkit's headers include it, and it may call free

namespace xmpl {

inline char* shortageText() noexcept {
  static char text[] = "Out of memory";
  return text;
}

inline char* copyOfErrorText(const char* text) noexcept {
  char* const copy = strdup(text);
  return copy == nullptr ? shortageText() : copy;
}

inline void freeErrorText(char* text) noexcept {
  if (text != shortageText()) free(text);
}

}  // namespace xmpl

#define strdup(text) xmpl::copyOfErrorText(text)
#define free(text) xmpl::freeErrorText(text)
// XMP_Error's type must be one and the same inside and outside the shared library.
#pragma GCC visibility push(default)
#include "XMP_Const.h"
#pragma GCC visibility pop
#include "client-glue/WXMP_Common.hpp"
#undef strdup
#undef free

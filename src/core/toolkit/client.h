// SPDX-License-Identifier: Apache-2.0
// The doorway to the XMP Toolkit's client interface. Its headers are included here, by way of
// error_text.h, and nowhere else. Two other places know the toolkit from inside: tree.cpp its
// nodes, expat_fence.h its parser.
#pragma once

#include <string>

#include "core/toolkit/error_text.h"

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wpedantic"
#pragma GCC diagnostic ignored "-Wshadow"
#include "XMP.hpp"
#pragma GCC diagnostic pop

namespace xmpl {

enum class ArrayKind : XMP_OptionBits {
  unordered = kXMP_PropValueIsArray,
  ordered = kXMP_PropArrayIsOrdered,  // alone: the toolkit adds the array bit
};

using Metadata = TXMPMeta<std::string>;
using ToolkitUtils = TXMPUtils<std::string>;

// XMP_Error borrows its text in some versions of the toolkit, and may carry none.
inline std::string messageOf(const XMP_Error& error) {
  const char* message = error.GetErrMsg();
  return message == nullptr ? std::string() : std::string(message);
}

}  // namespace xmpl

// SPDX-License-Identifier: Apache-2.0
// The toolkit's nodes from inside. Its header is its own and not part of its client interface;
// what uses it is compiled from the same tree.
#pragma once

#include "core/toolkit/client.h"  // first: it says who may see the type of XMP_Error

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wall"
#pragma GCC diagnostic ignored "-Wextra"
#pragma GCC diagnostic ignored "-Wpedantic"
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
#include "XMPCore/source/XMPCore_Impl.hpp"
#include "XMPCore/source/XMPMeta.hpp"
#pragma GCC diagnostic pop

namespace xmpl {

// The object behind the client interface.
inline XMPMeta& insideOf(Metadata& metadata) {
  return *reinterpret_cast<XMPMeta*>(metadata.GetInternalRef());
}
inline const XMPMeta& insideOf(const Metadata& metadata) {
  return *reinterpret_cast<const XMPMeta*>(metadata.GetInternalRef());
}

}  // namespace xmpl

// SPDX-License-Identifier: Apache-2.0
// What kind of file it is, by its first bytes.
#pragma once

#include <string_view>

namespace vxmeta {

struct FileKind {
  enum Family { packet, pdf, artwork, unknown } family = unknown;
  const char* name = "";  // "TIFF", for artwork
};

FileKind fileKind(std::string_view head);

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
// Reads a document's records through the library.
#pragma once

#include <string>
#include <string_view>

#include "files/packet_file.h"
#include "model/document.h"

namespace vxmeta {

struct Wanted {
  std::string_view section;  // the only one to read; empty: all
  bool expandRefs = false;   // a run of numbered files as one reference for each file
};

// What is wrong with single values stands in Document::unread. Throws FileError for runs of files
// that cannot be expanded.
Document readDocument(const XMPlib& xmp, const Wanted& wanted);

// Loads the packet into the handle. Throws FileError when it cannot be read.
void loadPacket(const std::string& text, XMPlib& xmp);

// How the packet lies in its file.
PacketInfo packetInfo(const FilePacket& packet);

}  // namespace vxmeta

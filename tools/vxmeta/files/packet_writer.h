// SPDX-License-Identifier: Apache-2.0
// Put a packet back into its file, or leave the file as it was.
#pragma once

#include <XMPlib.h>

#include <optional>
#include <string>
#include <vector>

#include "files/packet_file.h"

namespace vxmeta {

// The ways into a PDF: in place at the same length; an update behind the old bytes; the whole file
// written anew.
enum class How { splice, append, rewrite };

struct WriteOptions {
  ReadOptions read;
  std::string out;         // another file to write; "-": standard output; empty: in place
  std::optional<How> how;  // none: the least invasive that is exact
  bool force = false;      // signed, protected or mended files too
  bool backup = false;     // keep the old file as FILE~
};

// What was done, for people: "appended an update of 3,410 bytes", and what they should know.
struct Written {
  std::string how;
  std::vector<std::string> notes;
};

// Writes the handle's metadata as the document's own packet. The file is read again and compared
// before it takes the old one's place. Throws FileError, and then nothing has changed.
Written writePacket(const std::string& file, const XMPlib& xmp, const WriteOptions& options);

// Writes the packet as it is given, wrapper included.
Written writePacketText(const std::string& file, const std::string& packet,
                        const WriteOptions& options);

// Throw the FileError with which the two would refuse before they write: what is signed, protected,
// damaged or read-only, and ways that cannot be gone.
void requireWritable(const std::string& file, const XMPlib& xmp, const WriteOptions& options);
void requireWritableText(const std::string& file, const std::string& packet,
                         const WriteOptions& options);

}  // namespace vxmeta

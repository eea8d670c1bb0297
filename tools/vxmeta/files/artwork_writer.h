// SPDX-License-Identifier: Apache-2.0
// A packet into an artwork file.
#pragma once

#include <string>

#include "files/file_kind.h"
#include "files/input_file.h"
#include "files/packet_writer.h"

namespace vxmeta {

// Writes a copy of the file with another packet, and reads that again: every property is there as
// in the packet, and no other. Throws FileError.
Written writeArtwork(const InputFile& file, const FileKind& kind, const std::string& packet,
                     const std::string& to);

}  // namespace vxmeta

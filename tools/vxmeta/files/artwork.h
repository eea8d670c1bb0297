// SPDX-License-Identifier: Apache-2.0
// The packet of an artwork file: TIFF, JPEG, PSD, EPS, INDD, GIF, PNG.
#pragma once

#include "files/file_kind.h"
#include "files/input_file.h"
#include "files/packet_file.h"

namespace vxmeta {

FilePacket readArtwork(const InputFile& file, const FileKind& kind);

}  // namespace vxmeta

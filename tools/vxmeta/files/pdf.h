// SPDX-License-Identifier: Apache-2.0
// The packets of a PDF.
#pragma once

#include "files/input_file.h"
#include "files/packet_file.h"

namespace vxmeta {

FilePacket readPdf(const InputFile& file, const ReadOptions& options);

// Reads every object of the file.
PacketList listPdf(const InputFile& file, const ReadOptions& options);

}  // namespace vxmeta

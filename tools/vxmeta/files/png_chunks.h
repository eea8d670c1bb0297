// SPDX-License-Identifier: Apache-2.0
// The chunks of a PNG.
#pragma once

#include <string>

#include "files/input_file.h"

namespace vxmeta {

// A copy of the PNG without its packets. Throws FileError.
void copyPngWithoutPacket(const InputFile& file, const std::string& to);

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
// Files that commands make.
#pragma once

#include <string>

namespace vxmeta {

// Throws FileError when `out` is the file itself; "-" is standard output, which is none.
void refuseToOverwrite(const std::string& file, const std::string& out);

// Writes the whole text to the file, or to standard output for "-". Throws FileError.
void writeOutput(const std::string& out, const std::string& text);

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
// Packets compared by what they say.
#pragma once

#include <string>

namespace vxmeta {

// A text that two packets share when they have the same properties: the order of properties and
// fields, prefixes, comments and padding take no part, that of array items does. Throws FileError
// for what the library does not read.
std::string canonicalText(const std::string& packet);

}  // namespace vxmeta

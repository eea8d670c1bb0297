// SPDX-License-Identifier: Apache-2.0
// Reads plain packets from the XML parser's events straight into nodes: descriptions, simple
// values, structures, arrays, language alternatives, URIs, properties as attributes. Nearly every
// packet is one. What is not certainly plain, malformed text and what the guard refuses included,
// is left to the toolkit's own reading, so that its results and errors stay its own.
#pragma once

#include <string_view>

#include "core/toolkit/client.h"

namespace xmpl {

// Whether the packet is plain: its tree is in `metadata` then, as the toolkit would have it.
// Otherwise `metadata` is empty. Throws XMP_Error, whose metadata is of no use.
bool readPlain(std::string_view packet, Metadata& metadata);

}  // namespace xmpl

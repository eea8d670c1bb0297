// SPDX-License-Identifier: Apache-2.0
// Metadata as packet text, byte for byte as the toolkit writes it, but for what it forgets to
// escape: rdf:about, namespace URIs, the fields of a structure that is written as attributes, and
// U+007F.
//
// What is written can be loaded: what a load would refuse is refused here, as XMP_Error, and so is
// a tree that is half made. Language alternatives are brought into the toolkit's order on the way,
// as it does it, so that two threads must not write one object.
#pragma once

#include <string>

#include "core/toolkit/client.h"

namespace xmpl {

// The x:xmpmeta element alone. After an exception `text` is empty.
void writePacket(const Metadata& metadata, std::string& text);

// With a packet's wrapper, and blanks behind the element: `padding` bytes, 2,048 for 0.
void writeWrapped(const Metadata& metadata, XMP_StringLen padding, std::string& text);

// Throws what writing the metadata would, but for its size, and changes nothing.
void requireSavable(const Metadata& metadata);

}  // namespace xmpl

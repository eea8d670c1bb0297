// SPDX-License-Identifier: Apache-2.0
// Whether a written PDF is the old one but for its metadata.
#pragma once

#include "files/pdf_ways.h"

namespace vxmeta {

// Compares every object of the old file and every byte of its streams, and the attributes of the
// pages as they apply, own or inherited. Leaves out the metadata stream, the catalogue's reference
// to it, and what tells how a file is stored: cross references, object streams, encryption,
// identifiers, lengths. Throws FileError where anything else differs.
void requireSameObjects(QPDF& before, QPDF& after, const Renumbered& names);

}  // namespace vxmeta

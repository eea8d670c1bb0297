// SPDX-License-Identifier: Apache-2.0
// What follows the reading of a packet's RDF.
#pragma once

#include "core/toolkit/client.h"

class XMPMeta;

namespace xmpl {

// The toolkit's own steps behind its recogniser, on a tree that was read without it: array forms of
// Dublin Core, aliases, old data models. Answers whether properties may have moved to others.
bool settle(XMPMeta& metadata);

// Throws PacketRefused for what was read and could not be saved: an attribute may come out as an
// element, qualifiers of several elements may gather on one, and more.
void refuseUnsavable(const Metadata& metadata);

// The same for what a plain packet can come to.
void refuseUnsavablePlain(const XMPMeta& metadata);

}  // namespace xmpl

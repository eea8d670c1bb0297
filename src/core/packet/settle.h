// What follows the reading of a packet's RDF.
#pragma once

#include <cstddef>

class XMPMeta;
class XMP_Node;

namespace xmpl {

// The toolkit's own steps behind its recogniser, on a tree that was read without it: array forms of
// Dublin Core, aliases, old data models.
void settle(XMPMeta& metadata);

// Throws PacketRefused for a tree that would be saved as a packet that a load refuses: an attribute
// may come out as an element, and qualifiers of several elements may gather on one.
void refuseUnsavable(const XMP_Node& tree);

}  // namespace xmpl

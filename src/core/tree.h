// The toolkit's tree of nodes, reached without paths: a path costs the toolkit some 7,000
// instructions to take apart for every field, a step in the tree a few dozen. Where the tree has
// the wrong shape, these functions throw the XMP_Error that a path would have raised.
//
// A pointer to a node holds until its list is deleted or the metadata is replaced.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/namespaces.h"
#include "core/toolkit.h"

class XMP_Node;

namespace xmpl {

// Null where there is no such property, field or item. `index` counts from 1.
const XMP_Node* findProperty(const Metadata& metadata, PropertyName name);
const XMP_Node* findField(const XMP_Node& structure, std::string_view name);
const XMP_Node* findItem(const XMP_Node& array, std::size_t index);

// A node's text; empty for an array or a structure, which simpleText refuses.
const std::string& anyText(const XMP_Node& node);
const std::string& simpleText(const XMP_Node& node);

// Deletes the array and creates it anew, empty.
XMP_Node& recreateArray(Metadata& metadata, PropertyName name, ArrayKind kind);

// New nodes at the end of an array or structure that recreateArray made, directly or above it.
XMP_Node& appendItem(XMP_Node& array);
XMP_Node& appendField(XMP_Node& structure, const char* name);
void makeStructure(XMP_Node& node);
void makeArray(XMP_Node& node, ArrayKind kind);

void setText(XMP_Node& node, const char* text);             // refuses what cannot be stored
void refuseBadText(const char* text);                       // throws what setText would
void setPlainText(XMP_Node& node, std::string_view ascii);  // ASCII without controls, unchecked

}  // namespace xmpl

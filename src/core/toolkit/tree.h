// SPDX-License-Identifier: Apache-2.0
// The toolkit's tree of nodes, reached without paths: a path costs the toolkit some 6,000
// instructions to take apart for every field, a step in the tree a few dozen. Where the tree has
// the wrong shape, these functions throw the XMP_Error that a path would have raised.
//
// A pointer to a node holds until its list is deleted or the metadata is replaced.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/namespaces.h"
#include "core/toolkit/client.h"

class XMP_Node;

namespace xmpl {

// Null where there is no such property, field or item. `index` counts from 1.
const XMP_Node* findProperty(const Metadata& metadata, PropertyName name);
const XMP_Node* findField(const XMP_Node& structure, std::string_view name);
const XMP_Node* findItem(const XMP_Node& array, std::size_t index);
const XMP_Node* findDefaultText(const XMP_Node& array);  // the item in the default language
std::size_t itemCount(const XMP_Node& array);            // 0 for what is no array

// Throws the toolkit's error for an item of what is no array.
[[noreturn]] void refuseIndexing();

// How many properties the schema has; 0 where there is none of it.
std::size_t propertyCount(const Metadata& metadata, std::string_view schemaUri);

// Whether the toolkit keeps a property of that name, with or without its prefix, under another.
bool isAlias(const char* schemaUri, std::string_view name);

// A node's text; empty for an array or a structure, which simpleText refuses.
const std::string& anyText(const XMP_Node& node);
const std::string& simpleText(const XMP_Node& node);
bool isEmptyText(const XMP_Node& node);  // and without qualifiers

// Deletes the array and creates it anew, empty.
XMP_Node& recreateArray(Metadata& metadata, PropertyName name, ArrayKind kind);

// A language alternative whose one item is `text`, in the default language: of an array, the items
// go; anything else in its place is refused. What is refused changes nothing.
void setDefaultLanguage(Metadata& metadata, PropertyName name, const char* text);

// New nodes at the end of an array or structure that recreateArray made, directly or above it.
XMP_Node& appendItem(XMP_Node& array);
XMP_Node& appendField(XMP_Node& structure, const char* name);
void makeStructure(XMP_Node& node);
void makeArray(XMP_Node& node, ArrayKind kind);

void setText(XMP_Node& node, const char* text);             // refuses what cannot be stored
void refuseBadText(const char* text);                       // throws what setText would
void setPlainText(XMP_Node& node, std::string_view ascii);  // ASCII without controls, unchecked

// An array of its own, outside any metadata.
struct DeleteNode {
  void operator()(XMP_Node* node) const;
};
using OwnedNode = std::unique_ptr<XMP_Node, DeleteNode>;
OwnedNode detachedArray(ArrayKind kind);

// Calls `visit` for all that the array `stored`, or one of its items that `rewritten` has too,
// holds and `rewritten` does not: fields, qualifiers, values of another form, texts that are not
// the same. Items that `rewritten` lacks are not looked at, in no array. `path` begins below the
// item.
using VisitDropped =
    std::function<void(std::size_t item, const std::string& path, const XMP_Node&)>;
using IsSameText = bool(const std::string& stored, const std::string& rewritten);
void forEachDropped(const XMP_Node& stored, const XMP_Node& rewritten, IsSameText* isSame,
                    const VisitDropped& visit);

}  // namespace xmpl

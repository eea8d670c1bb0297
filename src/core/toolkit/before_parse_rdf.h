// SPDX-License-Identifier: Apache-2.0
// Included into the toolkit's ParseRDF.cpp alone, before all else: its searches become quick ones.
#pragma once

#include "public/include/XMP_Environment.h"

#include "core/toolkit/quick_search.h"

namespace xmpl {

inline bool isWorthATable(const XMP_NodeOffspring& nodes) {
  return nodes.size() >= QuickSearch::kMany && QuickSearch::current() != nullptr;
}

inline XMP_Node* findChild(XMP_Node* parent, XMP_StringPtr name, bool create) {
  const bool hasNames = (parent->options & (kXMP_SchemaNode | kXMP_PropValueIsStruct)) != 0;
  if (create || !hasNames || !isWorthATable(parent->children)) {
    return FindChildNode(parent, name, create);
  }
  return QuickSearch::current()->find(parent->children, name);
}

inline XMP_Node* findSchema(XMP_Node* tree, XMP_StringPtr uri, bool create) {
  if (isWorthATable(tree->children)) {
    if (XMP_Node* schema = QuickSearch::current()->find(tree->children, uri)) return schema;
  }
  return FindSchemaNode(tree, uri, create);
}

inline XMP_Node* findQualifier(XMP_Node* parent, XMP_StringPtr name, bool create,
                               XMP_NodePtrPos* position = nullptr) {
  const bool isMissing = !create && isWorthATable(parent->qualifiers) &&
                         QuickSearch::current()->find(parent->qualifiers, name) == nullptr;
  return isMissing ? nullptr : FindQualifierNode(parent, name, create, position);
}

}  // namespace xmpl

#define FindChildNode xmpl::findChild
#define FindSchemaNode xmpl::findSchema
#define FindQualifierNode xmpl::findQualifier

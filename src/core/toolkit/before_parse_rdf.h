// Included into the toolkit's ParseRDF.cpp alone, before all else: its searches become quick ones.
#pragma once

#include "public/include/XMP_Environment.h"

#include "core/toolkit/quick_search.h"

namespace xmpl {

inline XMP_Node* findChild(XMP_Node* parent, XMP_StringPtr name, bool create) {
  const bool hasNames = (parent->options & (kXMP_SchemaNode | kXMP_PropValueIsStruct)) != 0;
  if (create || !hasNames || parent->children.size() < QuickSearch::kMany) {
    return FindChildNode(parent, name, create);
  }
  return QuickSearch::ofThisThread().find(parent->children, name);
}

inline XMP_Node* findSchema(XMP_Node* tree, XMP_StringPtr uri, bool create) {
  if (tree->children.size() >= QuickSearch::kMany) {
    if (XMP_Node* schema = QuickSearch::ofThisThread().find(tree->children, uri)) return schema;
  }
  return FindSchemaNode(tree, uri, create);
}

inline XMP_Node* findQualifier(XMP_Node* parent, XMP_StringPtr name, bool create,
                               XMP_NodePtrPos* position = nullptr) {
  const bool isMissing = !create && parent->qualifiers.size() >= QuickSearch::kMany &&
                         QuickSearch::ofThisThread().find(parent->qualifiers, name) == nullptr;
  return isMissing ? nullptr : FindQualifierNode(parent, name, create, position);
}

}  // namespace xmpl

#define FindChildNode xmpl::findChild
#define FindSchemaNode xmpl::findSchema
#define FindQualifierNode xmpl::findQualifier

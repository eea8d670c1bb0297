// SPDX-License-Identifier: Apache-2.0
// Included into the toolkit's XMPMeta-Parse.cpp alone, before all else: aliases are mended between
// the reading of the RDF and the toolkit's own moving of them, a copyright that cannot be moved is
// let alone, and arrays become language alternatives in step with their size.
#pragma once

#include <cstring>

#include "public/include/XMP_Environment.h"

#include "XMPCore/source/XMPCore_Impl.hpp"
#include "XMPCore/source/XMPMeta.hpp"

#include "core/toolkit/alias_mend.h"
#include "core/toolkit/alt_text_mend.h"
#include "core/toolkit/copyright_mend.h"

// The toolkit's, further down in that file.
static void RepairAltText(XMP_Node& tree, XMP_StringPtr schema, XMP_StringPtr array);

namespace xmpl {

// The toolkit looks for this schema once, when the aliases have been moved and before it touches up
// any language alternative.
inline XMP_Node* findSchemaToTouchUp(XMP_Node* tree, XMP_StringPtr uri, bool create) {
  if (!create && std::strcmp(uri, kXMP_NS_DM) == 0) mendAltTexts(*tree);
  return FindSchemaNode(tree, uri, create);
}

inline XMP_Node* findChildToTouchUp(XMP_Node* schema, XMP_StringPtr name, bool create) {
  XMP_Node* const found = FindChildNode(schema, name, create);
  if (found == nullptr || std::strcmp(name, "xmpDM:copyright") != 0) return found;
  // The toolkit does it behind the moving, so that the next load would find another array.
  RepairAltText(*schema->parent, kXMP_NS_DC, "dc:rights");
  isCopyrightMoving() = isMovable(*found, *schema->parent);
  return isCopyrightMoving() ? found : nullptr;
}

}  // namespace xmpl

#define FindSchemaNode xmpl::findSchemaToTouchUp
#define FindChildNode xmpl::findChildToTouchUp
#define ProcessRDF(root, options) ProcessRDF(root, options), xmpl::mendAliases(this->tree)

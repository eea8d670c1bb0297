// SPDX-License-Identifier: Apache-2.0
// Included into the toolkit's XMPMeta-Parse.cpp alone, before all else: aliases are mended between
// the reading of the RDF and the toolkit's own moving of them, and a copyright that cannot be moved
// is let alone.
#pragma once

#include <cstring>

#include "public/include/XMP_Environment.h"

#include "XMPCore/source/XMPCore_Impl.hpp"
#include "XMPCore/source/XMPMeta.hpp"

#include "core/toolkit/alias_mend.h"

namespace xmpl {

// The toolkit moves an old xmpDM:copyright into dc:rights. Of an array or qualifiers there it takes
// nothing and deletes them; where dc:rights is no language alternative it fails, and leaves two
// more line feeds before the text at every load.
inline bool isMovable(const XMP_Node& copyright, XMP_Node& tree) {
  const bool isPlainText =
      (copyright.options & kXMP_PropCompositeMask) == 0 && copyright.qualifiers.empty();
  XMP_Node* dublinCore = FindSchemaNode(&tree, kXMP_NS_DC, kXMP_ExistingOnly);
  if (dublinCore == nullptr) return isPlainText;
  const XMP_Node* rights = FindChildNode(dublinCore, "dc:rights", kXMP_ExistingOnly);
  return isPlainText && (rights == nullptr || XMP_ArrayIsAltText(rights->options));
}

inline XMP_Node* findChildToTouchUp(XMP_Node* schema, XMP_StringPtr name, bool create) {
  XMP_Node* const found = FindChildNode(schema, name, create);
  if (found == nullptr || std::strcmp(name, "xmpDM:copyright") != 0) return found;
  return isMovable(*found, *schema->parent) ? found : nullptr;
}

}  // namespace xmpl

#define FindChildNode xmpl::findChildToTouchUp
#define ProcessRDF(root, options) ProcessRDF(root, options), xmpl::mendAliases(this->tree)

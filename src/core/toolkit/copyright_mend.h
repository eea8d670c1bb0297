// SPDX-License-Identifier: Apache-2.0
// What the toolkit makes of an old xmpDM:copyright.
#pragma once

#include <new>

#include "XMPCore/source/XMPCore_Impl.hpp"

namespace xmpl {

// The toolkit moves an old xmpDM:copyright into dc:rights. Of an array or qualifiers there it takes
// nothing and deletes them; where dc:rights is no language alternative it fails, and leaves two
// more line feeds before the text at every load. By now every array there is one.
inline bool isMovable(const XMP_Node& copyright, XMP_Node& tree) {
  const bool isPlainText =
      (copyright.options & kXMP_PropCompositeMask) == 0 && copyright.qualifiers.empty();
  XMP_Node* dublinCore = FindSchemaNode(&tree, kXMP_NS_DC, kXMP_ExistingOnly);
  if (dublinCore == nullptr) return isPlainText;
  const XMP_Node* rights = FindChildNode(dublinCore, "dc:rights", kXMP_ExistingOnly);
  return isPlainText && (rights == nullptr || XMP_ArrayIsAltText(rights->options));
}

// Whether the toolkit was told to move one in this thread's load.
inline bool& isCopyrightMoving() {
  static thread_local bool isMoving = false;
  return isMoving;
}

// Every error ends the moving without a word. Of what can be moved, only want of memory is one.
inline void requireCopyrightMoved(XMP_Node& tree) {
  if (!isCopyrightMoving()) return;
  isCopyrightMoving() = false;
  XMP_Node* media = FindSchemaNode(&tree, kXMP_NS_DM, kXMP_ExistingOnly);
  if (media == nullptr) return;
  if (FindChildNode(media, "xmpDM:copyright", kXMP_ExistingOnly) != nullptr) throw std::bad_alloc();
}

}  // namespace xmpl

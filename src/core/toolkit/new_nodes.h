// SPDX-License-Identifier: Apache-2.0
// New nodes. What is half made belongs to nobody yet: an exception frees it.
#pragma once

#include <memory>
#include <utility>

#include "core/toolkit/nodes.h"

namespace xmpl {

// At the end of `nodes`, the children or qualifiers of `parent`; `description` is what XMP_Node is
// made of, behind its parent.
template <class... Description>
XMP_Node& appendNode(XMP_NodeOffspring& nodes, XMP_Node& parent, Description&&... description) {
  auto node = std::make_unique<XMP_Node>(&parent, std::forward<Description>(description)...);
  nodes.push_back(node.get());
  return *node.release();
}

// A child without a value.
template <class Name>
XMP_Node& appendChild(XMP_Node& parent, const Name& name) {
  return appendNode(parent.children, parent, name, XMP_OptionBits{0});
}

inline void addLanguage(XMP_Node& node, const char* value) {
  XMP_Node& language =
      appendNode(node.qualifiers, node, "xml:lang", value, XMP_OptionBits{kXMP_PropIsQualifier});
  NormalizeLangValue(&language.value);
  node.options |= kXMP_PropHasQualifiers | kXMP_PropHasLang;
}

}  // namespace xmpl

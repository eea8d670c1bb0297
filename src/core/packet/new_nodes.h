// Nodes that a reader adds to the tree. What is half made belongs to nobody yet: an exception frees
// it.
#pragma once

#include <memory>
#include <string>

#include "core/toolkit/nodes.h"

namespace xmpl {

inline XMP_Node& appendNode(XMP_Node& parent, const std::string& name) {
  auto node = std::make_unique<XMP_Node>(&parent, name, XMP_OptionBits{0});
  parent.children.push_back(node.get());
  return *node.release();
}

inline void addLanguage(XMP_Node& node, const char* value) {
  auto language =
      std::make_unique<XMP_Node>(&node, "xml:lang", value, XMP_OptionBits{kXMP_PropIsQualifier});
  NormalizeLangValue(&language->value);
  node.qualifiers.push_back(language.get());
  static_cast<void>(language.release());
  node.options |= kXMP_PropHasQualifiers | kXMP_PropHasLang;
}

}  // namespace xmpl

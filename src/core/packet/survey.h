// SPDX-License-Identifier: Apache-2.0
// A look over a tree before it is written: whether a load would take the text, and what must be
// known at its beginning.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "core/toolkit/nodes.h"

namespace xmpl {

struct NamespaceInUse {
  std::string_view prefix;
  std::string_view uri;
};

// Its views point into the tree and the toolkit's table of namespaces.
struct Survey {
  std::vector<NamespaceInUse> namespaces;  // in the toolkit's order, without rdf and xml
  std::size_t expectedBytes = 0;           // of the text, but for what grows by escaping
};

// Throws XMP_Error for what a load would refuse and for what is half made.
Survey survey(const XMP_Node& tree);

// Qualifiers that the toolkit writes as attributes. Any other makes the value an rdf:value.
inline bool isAttributeQualifier(std::string_view name) {
  if (name == "xml:lang") return true;
  if (!name.starts_with("rdf:")) return false;
  const std::string_view local = name.substr(4);
  return local == "resource" || local == "ID" || local == "bagID" || local == "nodeID";
}

}  // namespace xmpl

// SPDX-License-Identifier: Apache-2.0
// Arrays and structures under aliases. The toolkit moves what stands under an alias of an array's
// item into the array as one item, whatever its form: an array in an array, which the second save
// loses. Photo files have tiff:ImageDescription as a language alternative.
#pragma once

#include <cstddef>

#include "XMPCore/source/XMPCore_Impl.hpp"

namespace xmpl {

// Moves arrays to where their aliases point, where nothing stands there yet; other arrays and
// structures under an alias stay as they are, under their own names. Before the toolkit moves the
// rest.
inline void mendAliases(XMP_Node& tree) {
  if ((tree.options & kXMP_PropHasAliases) == 0) return;
  for (std::size_t s = 0; s < tree.children.size(); ++s) {
    XMP_NodeOffspring& properties = tree.children[s]->children;
    for (std::size_t p = 0; p < properties.size();) {
      XMP_Node* const property = properties[p];
      const bool isComposite = (property->options & kXMP_PropCompositeMask) != 0;
      if ((property->options & kXMP_PropIsAlias) == 0 || !isComposite) {
        ++p;
        continue;
      }
      property->options &= ~XMP_OptionBits{kXMP_PropIsAlias};
      const XMP_ExpandedXPath& base = sRegisteredAliasMap->find(property->name)->second;
      XMP_Node* schema = FindSchemaNode(&tree, base[kSchemaStep].step.c_str(), kXMP_CreateNodes);
      schema->options &= ~XMP_OptionBits{kXMP_NewImplicitNode};
      const char* const name = base[kRootPropStep].step.c_str();
      const bool isArray = (property->options & kXMP_PropValueIsArray) != 0;
      const bool pointsToItem = base.size() > 2;
      if ((pointsToItem && !isArray) || FindChildNode(schema, name, kXMP_ExistingOnly) != nullptr) {
        ++p;
        continue;
      }
      schema->children.push_back(property);
      properties.erase(properties.begin() + static_cast<std::ptrdiff_t>(p));
      property->name = name;
      property->parent = schema;
    }
  }
}

}  // namespace xmpl

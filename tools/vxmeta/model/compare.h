// SPDX-License-Identifier: Apache-2.0
// What differs between two documents, item by item: lists are matched by what identifies their
// items, not by place.
#pragma once

#include <string>
#include <vector>

#include "model/document.h"

namespace vxmeta {

struct Change {
  enum class Way { added, removed, changed, moved };

  Way way = Way::changed;
  std::string path;  // as `get` takes it, in the file that has it; in the first where both do
  View before;       // of moved: the lists; null type: none
  View after;
};

// Items belong together when they are the same; else when the library calls them equal; else when
// they have the same name; where a list's items have no name, by the order of those left over. A
// list whose order means something has moved when the items that stayed stand in another one.
// `isSemantic`: without dates and identifiers. The views are those of the documents.
std::vector<Change> compare(const Document& before, const Document& after, bool isSemantic);

// As above, and what is stored in properties of the schema and not read ("unread[0].value"): where
// nothing differs, those properties hold the same.
std::vector<Change> compareAll(const Document& before, const Document& after, bool isSemantic);

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
// Writes a document's records through the library: those alone that have changed.
#pragma once

#include <string>
#include <vector>

#include "model/edit.h"

namespace vxmeta {

// What writing would delete although nobody asked for it.
struct Loss {
  std::string property;  // in which it is stored
  std::string what;      // "2 of 3 items, from [1] on: ..."
};

// A change that stands in the way of what it would delete, in words.
class LossError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Writing {
  std::vector<std::string> written;  // paths of what was written
  std::vector<std::string> notes;    // what reads back otherwise, and what was lost
  Document result;                   // as it reads afterwards
};

// Throws EditError for what cannot be stored, and LossError for losses without `force`. The handle
// may then be written in part.
Writing writeDocument(const Edit& edit, bool force, XMPlib& xmp);

// One sentence for all of them.
std::string lossesInWords(const std::vector<Loss>& losses);

}  // namespace vxmeta

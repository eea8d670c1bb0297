// SPDX-License-Identifier: Apache-2.0
// Changes that may not be fit to be saved.
#pragma once

#include <string_view>

#include "core/toolkit/client.h"
#include "core/toolkit/whole_trees.h"

namespace xmpl {

// A copy of metadata, to be changed, which takes the original's place when what came of it can be
// saved and loaded.
class Draft {
 public:
  explicit Draft(Metadata& original) : original_(original), copy_(copyOf(original)) {}

  Metadata& metadata() { return copy_; }

  // Throws XMP_Error, and leaves the original as it was, when the copy could not be saved.
  void commit();
  // As above, also when what was saved could not be loaded, or would not be loaded as it is: for
  // names that nobody has judged. The change is the text at that path.
  void commitIfLoadable(const char* schema, const char* path, std::string_view text);

 private:
  Metadata& original_;
  Metadata copy_;
};

}  // namespace xmpl

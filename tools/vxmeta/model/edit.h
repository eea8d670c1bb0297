// SPDX-License-Identifier: Apache-2.0
// A document as it is to become: what the packet holds, with what is given put in.
#pragma once

#include <functional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

#include "model/document.h"
#include "model/json.h"

namespace vxmeta {

// A value that cannot be put in, or not be written: its path as `get` takes it, and why.
class EditError : public std::runtime_error {
 public:
  EditError(const std::string& where, const std::string& why)
      : std::runtime_error(where + ": " + why), path(where) {}

  std::string path;
};

struct Edit {
  explicit Edit(const Document& stored) : before(stored), after(stored) {}

  Document before;
  Document after;
  std::set<std::string, std::less<>> given;  // paths of what was put in, without items
};

// Puts in a document's JSON, as strict as the schema; what it says about the file is passed over.
// Sections and fields that are missing stay, null deletes. Throws JsonTextError.
void putJson(Edit& edit, const std::string& json);

// Puts in PATH=VALUE, or PATH+=JSON for one more item of a list. A text is taken as it is, all else
// as JSON; no VALUE empties a text or a list, and deletes what can be deleted. Throws PathError or
// EditError.
void putAssignment(Edit& edit, std::string_view assignment);

// Some properties stand in two sections: the one that was given counts for both. Throws EditError
// where both were, with different values. To be called once, when all is put in.
void settleSharedProperties(Edit& edit);

}  // namespace vxmeta

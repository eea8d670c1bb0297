// SPDX-License-Identifier: Apache-2.0
// Values out of JSON, as strict as the schema.
#pragma once

#include <stdexcept>
#include <string>

#include "model/json.h"

namespace vxmeta {

// JSON that is no such value, and where: "/inks/3/angle: ...".
class JsonError : public std::runtime_error {
 public:
  JsonError(const std::string& where, const std::string& why)
      : std::runtime_error((where.empty() ? "the whole" : where) + ": " + why), pointer(where) {}

  std::string pointer;
};

// Sets the value, of that type. Fields that a record lacks stay as they are; items of a list are
// new ones; null empties what may be absent. Throws JsonError for anything else than the schema
// allows, with what came before it set. `pointer` is the place of `json` in its document.
void fromJson(const Json& json, const Type& type, void* into, const std::string& pointer = "");

}  // namespace vxmeta

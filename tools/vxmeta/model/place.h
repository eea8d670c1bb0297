// SPDX-License-Identifier: Apache-2.0
// Places in a document that can be written.
#pragma once

#include "model/path.h"

namespace vxmeta {

struct Place {
  const Type* type = nullptr;
  void* value = nullptr;

  bool isOptional() const { return type->kind == Kind::optional; }
  View view() const { return {type, value}; }

  // What an optional value holds, made where it holds nothing; else the place itself.
  Place made() const;
};

template <class Value>
Place placeOf(Value& value) {
  return {&typeOf<Value>(), &value};
}

// The place at the path; records on the way to it are made. An optional value is its own place.
// Throws PathError for an item that is not there, and for a field=value that several items have.
Place placeAt(const Place& root, const Path& path);

// The paths that are most like the text, best first: "job.orderid" for "job.ordrid" and "orderid";
// items stand as in knownPaths. None when no path is much like it.
std::vector<std::string> nearestPaths(std::string_view text, const Type& root);

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
// Paths into a document: "job.orderid", "inks[2].angle", "inks[-1]", "inks[name=Spot 485].angle".
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "model/type.h"

namespace vxmeta {

// A path that no document has, and which ones there are, in words.
class PathError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Step {
  enum class Way { field, index, match };

  Way way = Way::field;
  std::string name;          // of the field, or of the field that is compared
  std::ptrdiff_t index = 0;  // from 0; below it, from the end: -1 is the last
  std::string value;         // what the field is compared with, as it stands in the path
  double number = 0;         // the same, where the field is a number
};

using Path = std::vector<Step>;

// Throws PathError when the text is no path, or values of the type have no such part.
Path parsePath(std::string_view text, const Type& root);

// What a value at the path is, without optional. Throws PathError as parsePath.
const Type& typeOfPath(std::string_view text, const Type& root);

// The value at the path. Empty when it is absent: nothing stored, no such item, no item matches.
std::optional<View> valueAt(const View& root, const Path& path);

// The type of the value at the path; of an optional value, that of what it holds.
const Type& typeAt(const Path& path, const Type& root);

// Whether the record is one that the step, a match, looks for.
bool matches(const View& record, const Step& step);

// A simple value as text: a text as it is, numbers and truth values as in JSON.
std::string plainText(const View& value);

}  // namespace vxmeta

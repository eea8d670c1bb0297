// SPDX-License-Identifier: Apache-2.0
// What the library writes at once: a section of a document, or a part of one.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "model/document.h"

namespace vxmeta {

// A text that deletes, in records of three-way texts.
inline constexpr const char* kErase = " ";

// What it is when a unit that is stored becomes absent.
enum class Absence {
  refused,   // the library cannot delete it
  deleted,   // it can
  threeWay,  // its texts are deleted one by one
  emptied,   // a record of empty texts is not stored
};

struct Unit {
  std::string_view path;  // "scalars.nrPages", "inks"
  bool (*write)(XMPlib& xmp, const Document& before, const Document& after);
  Absence absence = Absence::refused;
  // A stored list that is written anew with it.
  std::string_view writtenToo = {};
  // What its Get does not see of what its Set wrote, as a sentence; empty: it sees all.
  std::string_view asymmetry = {};
};

// In the order of the sections.
const std::vector<Unit>& units();

// Null: no unit has that path.
const Unit* unitOf(std::string_view path);

// The type of its value.
const Type& typeOf(const Unit& unit);

// The unit's value. An absent record of texts counts as one of empty texts.
std::optional<View> valueOf(const Document& document, const Unit& unit);

}  // namespace vxmeta

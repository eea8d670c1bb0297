// SPDX-License-Identifier: Apache-2.0
// The stored texts of the schema that stand for numbers, truth values and dates.
#pragma once

#include <span>

#include "checks/packet_numbers.h"

namespace vxmeta {

struct TypedProperty {
  const char* stored;  // "vxGr:nrpages"
  ValueKind kind;
  const char* path;  // "scalars.nrPages"
};

struct TypedField {
  const char* stored;  // "vxInk:angle"
  ValueKind kind;
  const char* name;                  // "angle"
  const char* onlyOfType = nullptr;  // what vxSRRep:type is, for the field to be read
};

struct TypedList {
  const char* stored;  // "vxGr:inks"
  const char* path;    // "inks"
  std::span<const TypedField> fields;
};

std::span<const TypedProperty> typedProperties();
// Lists of records. Page ranges have a list in each, and screens stand in groups: theirs are
// besides.
std::span<const TypedList> typedLists();
std::span<const TypedField> typedScreenFields();

}  // namespace vxmeta

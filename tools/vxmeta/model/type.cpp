// SPDX-License-Identifier: Apache-2.0
#include "model/type.h"

#include <algorithm>
#include <cmath>

namespace vxmeta {

const Field* Type::field(std::string_view fieldName) const {
  const auto found = std::find_if(fields.begin(), fields.end(),
                                  [&](const Field& field) { return field.name == fieldName; });
  return found == fields.end() ? nullptr : &*found;
}

const Field* Type::key() const {
  for (const std::string_view candidate : {"name", "instanceID", "code", "property"}) {
    if (const Field* found = field(candidate)) return found;
  }
  return nullptr;
}

std::int64_t View::integer() const {
  return is(Kind::integer) ? *static_cast<const std::int32_t*>(value)
                           : *static_cast<const std::int64_t*>(value);
}

View View::present() const {
  if (!is(Kind::optional)) return *this;
  return size() == 0 ? View{} : item(0);
}

namespace {

bool areSameItems(const View& a, const View& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!isSame(a.item(i), b.item(i))) return false;
  }
  return true;
}

}  // namespace

bool isValid(const View& record, const Field& field) {
  if (!field.validWith.empty()) return record.field(field.validWith).truth();
  if (!field.validWithout.empty()) return !record.field(field.validWithout).truth();
  return true;
}

bool isFlag(const Type& record, const Field& field) {
  return std::any_of(record.fields.begin(), record.fields.end(), [&](const Field& other) {
    return other.validWith == field.name || other.validWithout == field.name;
  });
}

bool isSame(const View& a, const View& b) {
  switch (a.type->kind) {
    case Kind::text:
      return a.text() == b.text();
    case Kind::truth:
      return a.truth() == b.truth();
    case Kind::real:
      return a.real() == b.real() || (std::isnan(a.real()) && std::isnan(b.real()));
    case Kind::record:
      return std::all_of(a.type->fields.begin(), a.type->fields.end(), [&](const Field& field) {
        return isSame(a.field(field), b.field(field));
      });
    case Kind::list:
    case Kind::optional:
      return areSameItems(a, b);
    default:
      return a.integer() == b.integer();
  }
}

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
#include "model/from_json.h"

#include <fmt/format.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

#include "model/json_text.h"

namespace vxmeta {
namespace {

void require(bool isRight, const Json& json, const std::string& pointer, const char* expected) {
  if (!isRight)
    throw JsonError(pointer, fmt::format("expected {}, found {}", expected, json.type_name()));
}

template <class Integer>
void setInteger(const Json& json, void* into, const std::string& pointer) {
  require(json.is_number_integer(), json, pointer, "an integer");
  const auto value = json.get<std::int64_t>();
  const bool isTooLarge = json.is_number_unsigned() && value < 0;
  if (isTooLarge || value < std::numeric_limits<Integer>::min() ||
      value > std::numeric_limits<Integer>::max()) {
    throw JsonError(pointer, json.dump() + " is out of range");
  }
  *static_cast<Integer*>(into) = static_cast<Integer>(value);
}

double realOf(const Json& json, const std::string& pointer) {
  if (json.is_number()) return json.get<double>();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  if (json == "nan") return std::numeric_limits<double>::quiet_NaN();
  if (json == "inf") return kInfinity;
  if (json == "-inf") return -kInfinity;
  throw JsonError(pointer, fmt::format("expected a number, found {}", json.type_name()));
}

void setRecord(const Json& json, const Type& type, void* into, const std::string& pointer) {
  require(json.is_object(), json, pointer, "an object");
  for (const auto& [name, value] : json.items()) {
    const std::string place = pointer + pointerStep(name);
    const Field* field = type.field(name);
    if (field == nullptr || !field->isStored) throw JsonError(place, "there is no such field");
    fromJson(value, *field->type, field->slot(into), place);
  }
}

void setList(const Json& json, const Type& type, void* into, const std::string& pointer) {
  require(json.is_array(), json, pointer, "a list");
  type.clear(into);
  for (std::size_t i = 0; i < json.size(); ++i) {
    fromJson(json[i], *type.item, type.append(into), fmt::format("{}/{}", pointer, i));
  }
}

void setOptional(const Json& json, const Type& type, void* into, const std::string& pointer) {
  if (json.is_null()) return type.clear(into);
  void* value = type.size(into) == 0 ? type.append(into) : type.slot(into, 0);
  fromJson(json, *type.item, value, pointer);
}

}  // namespace

void fromJson(const Json& json, const Type& type, void* into, const std::string& pointer) {
  switch (type.kind) {
    case Kind::text:
      require(json.is_string(), json, pointer, "a text");
      *static_cast<std::string*>(into) = json.get<std::string>();
      return;
    case Kind::truth:
      require(json.is_boolean(), json, pointer, "true or false");
      *static_cast<bool*>(into) = json.get<bool>();
      return;
    case Kind::real:
      *static_cast<double*>(into) = realOf(json, pointer);
      return;
    case Kind::integer:
      return setInteger<std::int32_t>(json, into, pointer);
    case Kind::longInteger:
      return setInteger<std::int64_t>(json, into, pointer);
    case Kind::record:
      return setRecord(json, type, into, pointer);
    case Kind::list:
      return setList(json, type, into, pointer);
    case Kind::optional:
      return setOptional(json, type, into, pointer);
  }
}

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
#include "model/json.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace vxmeta {
namespace {

Json realJson(double real) {
  if (std::isnan(real)) return "nan";
  if (std::isinf(real)) return real > 0 ? "inf" : "-inf";
  return real;
}

Json listJson(const View& list) {
  Json json = Json::array();
  for (std::size_t i = 0; i < list.size(); ++i) json.push_back(toJson(list.item(i)));
  return json;
}

Json recordJson(const View& record) {
  Json json = Json::object();
  for (const Field& field : record.type->fields) {
    const View value = record.field(field).present();
    if (field.isStored && value.type != nullptr) json[std::string(field.name)] = toJson(value);
  }
  return json;
}

}  // namespace

Json toJson(const View& value) {
  switch (value.type->kind) {
    case Kind::text:
      return value.text();
    case Kind::integer:
    case Kind::longInteger:
      return value.integer();
    case Kind::real:
      return realJson(value.real());
    case Kind::truth:
      return value.truth();
    case Kind::record:
      return recordJson(value);
    case Kind::list:
      return listJson(value);
    case Kind::optional:
      return value.size() == 0 ? Json() : toJson(value.item(0));
  }
  return {};
}

std::string jsonText(const Json& json, bool isPretty) {
  return json.dump(isPretty ? 2 : -1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
#include "model/schema.h"

#include <limits>
#include <nlohmann/json.hpp>

#include "model/document.h"

namespace vxmeta {
namespace {

template <class Integer>
Json integerSchema() {
  return {{"type", "integer"},
          {"minimum", std::numeric_limits<Integer>::min()},
          {"maximum", std::numeric_limits<Integer>::max()}};
}

// Each record type once, under "$defs".
class Maker {
 public:
  Json of(const Type& type) {
    switch (type.kind) {
      case Kind::text:
        return {{"type", "string"}};
      case Kind::truth:
        return {{"type", "boolean"}};
      case Kind::integer:
        return integerSchema<std::int32_t>();
      case Kind::longInteger:
        return integerSchema<std::int64_t>();
      case Kind::real:
        return reference("real", [] {
          return Json{{"description", "a number; texts stand for what JSON has no number for"},
                      {"anyOf", {{{"type", "number"}}, {{"enum", {"nan", "inf", "-inf"}}}}}};
        });
      case Kind::list:
        return {{"type", "array"}, {"items", of(*type.item)}};
      case Kind::optional:
        return of(*type.item);
      case Kind::record:
        return reference(std::string(type.name), [&] { return ofRecord(type); });
    }
    return {};
  }

  Json ofRecord(const Type& record) {
    Json properties = Json::object();
    Json required = Json::array();
    for (const Field& field : record.fields) {
      if (!field.isStored) continue;
      properties[std::string(field.name)] = ofField(field);
      if (field.type->kind != Kind::optional) required.push_back(field.name);
    }
    return {{"type", "object"},
            {"properties", properties},
            {"required", required},
            {"additionalProperties", false}};
  }

  Json definitions() const { return definitions_; }

 private:
  Json ofField(const Field& field) {
    Json schema = of(*field.type);
    std::string help(field.help);
    if (!field.unitField.empty()) help += ", in " + std::string(field.unitField);
    for (const std::string_view word : field.words) {
      help += (word == field.words.front() ? "; can be written: " : ", ") + std::string(word);
    }
    schema["description"] = help;
    return schema;
  }

  template <class Make>
  Json reference(const std::string& name, const Make& make) {
    if (!definitions_.contains(name)) definitions_[name] = make();
    return {{"$ref", "#/$defs/" + name}};
  }

  Json definitions_ = Json::object();
};

// What stands in a file's place when it cannot be read.
Json errorSchema() {
  const Json text = {{"type", "string"}};
  return {{"type", "object"},
          {"properties", {{"vxmeta", {{"const", 1}}}, {"file", text}, {"error", text}}},
          {"required", {"vxmeta", "file", "error"}},
          {"additionalProperties", false}};
}

}  // namespace

Json documentSchema() {
  Maker maker;
  Json document = maker.ofRecord(typeOf<Document>());
  document["properties"]["vxmeta"] = {{"const", 1}, {"description", "version of this form"}};
  Json definitions = maker.definitions();
  definitions["document"] = std::move(document);
  definitions["error"] = errorSchema();
  return {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
          {"title", "Production metadata of one document, as vxmeta writes it"},
          {"oneOf", {{{"$ref", "#/$defs/document"}}, {{"$ref", "#/$defs/error"}}}},
          {"$defs", definitions}};
}

}  // namespace vxmeta

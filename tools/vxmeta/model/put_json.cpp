// SPDX-License-Identifier: Apache-2.0
// A document's JSON, put into a document.
#include <nlohmann/json.hpp>

#include "model/edit.h"
#include "model/from_json.h"
#include "model/json_text.h"
#include "model/units.h"

namespace vxmeta {
namespace {

void refuseOtherVersion(const Json& json) {
  const auto version = json.find("vxmeta");
  if (version != json.end() && *version != 1) {
    throw JsonError("/vxmeta", "is another version than 1");
  }
}

Json withoutFile(const Json& json) {
  Json sections = Json::object();
  for (const auto& [name, value] : json.items()) {
    const Field* section = typeOf<Document>().field(name);
    if (section == nullptr || !isAboutTheFile(*section)) sections[name] = value;
  }
  return sections;
}

// A null text becomes what its Set deletes by.
void eraseTexts(Json& record, const Type& type, const char* erase) {
  if (record.is_null()) {
    record = Json::object();
    for (const Field& field : type.fields) record[std::string(field.name)] = nullptr;
  }
  if (!record.is_object()) return;
  for (auto& [name, value] : record.items()) {
    const Field* field = type.field(name);
    if (value.is_null() && field != nullptr && field->type->kind == Kind::text) value = erase;
  }
}

void eraseTexts(Json& sections, const Document& document) {
  for (const auto& [name, erase] : {std::pair{"job", kErase},
                                    {"product", kErase},
                                    {"document", kErase},
                                    {"version", kErase},
                                    {"pdfData", ""},
                                    {"mmData", ""}}) {
    const auto section = sections.find(name);
    if (section == sections.end()) continue;
    const View stored = viewOf(document).field(name);
    const bool isDeleted = section->is_null() && (stored.size() == 0 || *erase == '\0');
    if (!isDeleted) eraseTexts(*section, *stored.type->item, erase);
  }
}

void note(const Json& record, const std::string& path, Edit& edit) {
  for (const auto& [name, value] : record.items()) {
    const std::string place = path.empty() ? name : path + '.' + name;
    value.is_object() ? note(value, place, edit) : void(edit.given.insert(place));
  }
}

}  // namespace

void putJson(Edit& edit, const std::string& text) {
  const Json json = parseJson(text);
  try {
    if (!json.is_object()) throw JsonError("", "expected an object");
    refuseOtherVersion(json);
    Json sections = withoutFile(json);
    eraseTexts(sections, edit.before);
    fromJson(sections, typeOf<Document>(), &edit.after);
    note(sections, "", edit);
  } catch (const JsonError& error) {
    throw JsonTextError(withLine(text, error.pointer, error.what()));
  }
}

}  // namespace vxmeta

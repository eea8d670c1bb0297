// SPDX-License-Identifier: Apache-2.0
// PATH=VALUE, put into a document.
#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "model/edit.h"
#include "model/from_json.h"
#include "model/json_text.h"
#include "model/place.h"
#include "model/units.h"

namespace vxmeta {
namespace {

struct Assignment {
  std::string path;
  std::string value;
  bool isAppended = false;
};

// The first "=" that stands in no brackets; the texts in those may be in quotes.
std::size_t signAt(std::string_view text) {
  bool isInside = false;
  bool isQuoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (isInside && c == '"') isQuoted = !isQuoted;
    if (isQuoted) continue;
    if (c == '=' && !isInside) return i;
    isInside = isInside ? c != ']' : c == '[';
  }
  return std::string_view::npos;
}

Assignment parse(std::string_view text) {
  const std::size_t sign = signAt(text);
  if (sign == std::string_view::npos || sign == 0) {
    throw PathError(fmt::format("'{}': expected PATH=VALUE", text));
  }
  const bool isAppended = text[sign - 1] == '+';
  return {std::string(text.substr(0, sign - (isAppended ? 1 : 0))),
          std::string(text.substr(sign + 1)), isAppended};
}

std::string withoutItems(const Path& path) {
  std::string names;
  for (const Step& step : path) {
    if (step.way != Step::Way::field) break;
    names += (names.empty() ? "" : ".") + step.name;
  }
  return names;
}

const Type& held(const Type& type) { return type.kind == Kind::optional ? held(*type.item) : type; }

// "inks[2].angle: ..." from "/angle: ...".
[[noreturn]] void throwAt(const std::string& path, const JsonError& error) {
  const std::string why = std::string(error.what()).substr(error.pointer.empty() ? 11 : 0);
  throw EditError(path, why);
}

// The fields of a record that is given as a whole.
void noteFields(const std::string& names, const std::string& text, Edit& edit) {
  const Json json = parseJson(text);
  for (const auto& [name, value] : json.items()) edit.given.insert(names + '.' + name);
}

void setFromJson(const std::string& path, const std::string& text, const Type& type, void* into) {
  try {
    fromJson(parseJson(text), type, into);
  } catch (const JsonError& error) {
    throwAt(path, error);
  } catch (const JsonTextError& error) {
    const bool isNumber = View{&type, into}.isNumber();
    throw EditError(path, isNumber ? fmt::format("'{}' is no number", text)
                                   : fmt::format("is no JSON: {}", error.what()));
  }
}

void setValue(const std::string& path, const std::string& text, const Place& place) {
  const Place made = place.made();
  if (made.type->kind == Kind::text) {
    *static_cast<std::string*>(made.value) = text;
  } else {
    setFromJson(path, text, *made.type, made.value);
  }
}

void append(const Assignment& assignment, const Place& place) {
  if (held(*place.type).kind != Kind::list) throw EditError(assignment.path, "+= is for lists");
  const Place list = place.made();
  setFromJson(assignment.path, assignment.value, *list.type->item, list.type->append(list.value));
}

// A record whose texts can be deleted; one that has none stays as it is.
void eraseRecord(const Place& place) {
  if (place.view().size() == 0) return;
  const Place record = place.made();
  for (const Field& field : record.type->fields) {
    if (field.type->kind == Kind::text)
      *static_cast<std::string*>(field.slot(record.value)) = kErase;
  }
}

void empty(const std::string& path, const std::string& names, const Place& place) {
  const Unit* unit = unitOf(names);
  const bool isThreeWay = unit != nullptr && unit->absence == Absence::threeWay;
  if (held(*place.type).kind == Kind::text) return setValue(path, isThreeWay ? kErase : "", place);
  if (held(*place.type).kind == Kind::list)
    return setFromJson(path, "[]", *place.made().type, place.made().value);
  if (isThreeWay) return eraseRecord(place);
  if (!place.isOptional()) throw EditError(path, "cannot be empty");
  place.type->clear(place.value);  // where that cannot be written, writing says so
}

void put(Edit& edit, const Assignment& assignment) {
  const Path path = parsePath(assignment.path, typeOf<Document>());
  if (isAboutTheFile(*typeOf<Document>().field(path[0].name))) {
    throw EditError(assignment.path, "is about the file, and cannot be set");
  }
  const Place place = placeAt(placeOf(edit.after), path);
  const std::string names = withoutItems(path);
  edit.given.insert(names);
  if (assignment.isAppended) return append(assignment, place);
  if (assignment.value.empty()) return empty(assignment.path, names, place);
  setValue(assignment.path, assignment.value, place);
  if (held(*place.type).kind == Kind::record) noteFields(names, assignment.value, edit);
}

}  // namespace

void putAssignment(Edit& edit, std::string_view text) {
  const Assignment assignment = parse(text);
  try {
    put(edit, assignment);
  } catch (const PathError& error) {
    const std::string_view what = error.what();
    const bool hasPath = what.starts_with('\'');
    throw PathError(hasPath ? std::string(what) : fmt::format("{}: {}", assignment.path, what));
  }
}

}  // namespace vxmeta

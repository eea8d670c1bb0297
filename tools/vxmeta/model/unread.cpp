// SPDX-License-Identifier: Apache-2.0
#include "model/unread.h"

#include <algorithm>

#include "model/path.h"
#include "model/sections.h"

namespace vxmeta {
namespace {

UnreadPart partAt(std::string_view section, std::string_view path) {
  UnreadPart part;
  part.property = propertyOf(path);
  part.list = section.empty() ? part.property : section;
  std::string_view below = path.substr(part.property.size());
  if (below.starts_with('/')) below.remove_prefix(1);
  if (!below.empty()) part.field = below;
  return part;
}

const Type& typeOfPlace(const StoredPlace& place) {
  const Type& root = typeOf<Document>();
  return typeAt(parsePath(place.documentPath(), root), root);
}

bool isList(const StoredPlace& place) { return typeOfPlace(place).kind == Kind::list; }

// Compares what is stored with what the document has of it.
class Account {
 public:
  Account(const StoredProperties& stored, const Document& document, const ReadErrors& errors)
      : stored_(stored), document_(document), errors_(errors) {}

  std::vector<UnreadPart> parts() {
    for (const StoredNode& property : stored_.properties) {
      if (!isForeign(stored_, property.name)) look(property, property.name);
    }
    return std::move(parts_);
  }

 private:
  void look(const StoredNode& node, const std::string& path) {
    const auto places = placesAt(path);
    const auto isRead = [&](const StoredPlace& place) { return accountsFor(place, node); };
    if (std::any_of(places.begin(), places.end(), isRead)) return lookBeside(node, path);
    if (!places.empty() || !hasPlacesBelow(path)) return note(node, path);
    if (node.form == StoredNode::Form::text && !node.text.empty()) return note(node, path);
    lookAtQualifiers(node, path);
    lookBelow(node, path);
  }

  void lookBelow(const StoredNode& node, const std::string& path) {
    for (std::size_t i = 0; i < node.children.size(); ++i) {
      const StoredNode& child = node.children[i];
      const bool isItem = node.form == StoredNode::Form::list;
      const bool isLast = i + 1 == node.children.size();
      const std::string index = isLast ? "last()" : std::to_string(i + 1);
      look(child, isItem ? path + '[' + index + ']' : path + '/' + child.name);
    }
  }

  // Lists are looked at where they are read.
  void lookBeside(const StoredNode& node, const std::string& path) {
    if (isList(placesAt(path).front())) return;
    lookAtQualifiers(node, path);
    const std::string* text = textOf(&node);
    if (text == nullptr || text == &node.text) return;
    for (const StoredNode& item : node.children) {
      const std::string itemPath = path + "[?xml:lang=\"" + item.language + "\"]";
      &item.text == text ? lookAtQualifiers(item, itemPath) : note(item, itemPath);
    }
  }

  void lookAtQualifiers(const StoredNode& node, const std::string& path) {
    for (const StoredNode& qualifier : node.qualifiers)
      note(qualifier, path + '/' + qualifier.name);
  }

  bool accountsFor(const StoredPlace& place, const StoredNode& node) const {
    if (isList(place)) return true;
    const auto value = valueIn(place.documentPath());
    if (!value || !isValidIn(place)) return false;
    if (!value->is(Kind::text)) return node.form == StoredNode::Form::text;
    const std::string* text = textOf(&node);
    return text != nullptr && *text == value->text();
  }

  std::optional<View> valueIn(std::string_view path) const {
    return valueAt(viewOf(document_), parsePath(path, typeOf<Document>()));
  }

  bool isValidIn(const StoredPlace& place) const {
    if (place.field.empty()) return true;
    const std::optional<View> record = valueIn(place.section);
    return record && isValid(*record, *record->type->field(place.field));
  }

  void note(const StoredNode& node, const std::string& path) {
    const std::string_view section = ownerOf(path);
    UnreadPart part = partAt(section, path);
    if (!part.field) part.stored = 1, part.read = 0;
    part.reason = reasonFor(section, path, node);
    part.value = valueText(node);
    parts_.push_back(std::move(part));
  }

  // Of several sections that share a property, the one that more is stored of.
  std::string_view ownerOf(const std::string& path) const {
    const auto places = placesAt(path);
    if (places.empty()) return sectionOf(propertyOf(path));
    const auto hasLess = [&](const StoredPlace& a, const StoredPlace& b) {
      return storedOf(a.section) < storedOf(b.section);
    };
    return std::max_element(places.begin(), places.end(), hasLess)->section;
  }

  std::ptrdiff_t storedOf(std::string_view section) const {
    const auto places = storedPlaces();
    return std::count_if(places.begin(), places.end(), [&](const StoredPlace& place) {
      return place.section == section && nodeAt(stored_, place.path) != nullptr;
    });
  }

  std::string reasonFor(std::string_view section, const std::string& path,
                        const StoredNode& node) const {
    const auto error = errors_.find(section);
    if (error != errors_.end()) return error->second;
    const auto places = placesAt(path);
    const bool isRequired = std::any_of(places.begin(), places.end(), [&](const auto& place) {
      return place.section == section && place.role == StoredPlace::Role::required;
    });
    const bool isPart = !section.empty() && (isRequired || !valueIn(section));
    std::string missing = isPart ? missingIn(section) : "";
    if (!missing.empty()) return missing;
    if (placesAt(path).empty()) return whyNoPlace(path);
    if (node.isAlternative) return "has no text in the default language";
    if (node.form == StoredNode::Form::list) return "is stored as a list";
    if (node.form == StoredNode::Form::structure) return "is stored as a structure";
    return path == "stVer:comments" ? "is written, and never read" : "is no value that is read";
  }

  static std::string whyNoPlace(std::string_view path) {
    if (path.find("[?xml:lang=") != path.npos) return "only the default language is read";
    const bool isOtherJob = path.starts_with("xmpBJ:JobRef[") && path.ends_with(']');
    return isOtherJob ? "of job references, only the last is read" : "no record has it";
  }

  // The first in the order of the record.
  std::string missingIn(std::string_view section) const {
    const Type& record = typeOfPlace({{}, section});
    for (const Field& field : record.fields) {
      for (const StoredPlace& place : storedPlaces()) {
        const bool isIts = place.section == section && place.field == field.name &&
                           place.role == StoredPlace::Role::required;
        if (isIts && nodeAt(stored_, place.path) == nullptr) return nameIn(place.path);
      }
    }
    return "";
  }

  // Of a structure, that of the field.
  static std::string nameIn(std::string_view path) {
    return std::string(path.substr(path.rfind('/') + 1));
  }

  const StoredProperties& stored_;
  const Document& document_;
  const ReadErrors& errors_;
  std::vector<UnreadPart> parts_;
};

}  // namespace

bool isForeign(const StoredProperties& stored, std::string_view property) {
  if (!sectionOf(property).empty()) return false;
  return !isOwnSchema(stored.uriOf(prefixOf(property)));
}

std::vector<UnreadPart> unreadValues(const StoredProperties& stored, const Document& document,
                                     const ReadErrors& errors) {
  return Account(stored, document, errors).parts();
}

bool namesField(std::string_view reason) {
  return reason.find(':') != reason.npos && reason.find(' ') == reason.npos;
}

std::string storedPath(const UnreadPart& part) {
  const std::string field = part.field.value_or("");
  return part.property + (field.empty() || field.starts_with('[') ? "" : "/") + field;
}

bool isOfList(const UnreadPart& part) {
  const auto places = placesAt(part.property);
  return !places.empty() && isList(places.front());
}

bool isDateOrId(const UnreadPart& part) {
  if (sectionOf(part.property).empty()) return false;
  const auto places = placesAt(part.property);
  const std::string path = places.empty() ? part.list : places.front().documentPath();
  const Type* type = &typeOf<Document>();
  for (const Step& step : parsePath(path, *type)) {
    const Field* field = step.way == Step::Way::field ? type->field(step.name) : nullptr;
    if (field != nullptr && field->isDateOrId) return true;
    type = &typeAt({step}, *type);
  }
  return false;
}

}  // namespace vxmeta

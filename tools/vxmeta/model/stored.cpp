// SPDX-License-Identifier: Apache-2.0
#include "model/stored.h"

#include <expat.h>

#include <algorithm>
#include <charconv>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>

#include "model/json.h"

namespace vxmeta {
namespace {

constexpr std::string_view kDeclaration = "xmlns:";

bool isArray(std::string_view element) {
  return element == "rdf:Bag" || element == "rdf:Seq" || element == "rdf:Alt";
}

// The place of an element: where its text and its children go.
struct Open {
  StoredNode* node = nullptr;  // null: above the properties
  bool isTransparent = false;  // rdf:Bag and its like: their items are the property's
};

class Reader {
 public:
  explicit Reader(StoredProperties& into) : into_(into) {}

  void start(std::string_view element, const char** attributes) {
    if (open_.empty() || open_.back().node == nullptr) return startAbove(element, attributes);
    StoredNode& parent = *open_.back().node;
    if (isArray(element)) {
      parent.form = StoredNode::Form::list;
      parent.isAlternative = element == "rdf:Alt";
      parent.text.clear();
      open_.push_back({&parent, true});
      return;
    }
    if (!open_.back().isTransparent && parent.form != StoredNode::Form::structure) {
      parent.form = StoredNode::Form::structure;
      parent.text.clear();
    }
    add(parent.children, element, attributes, open_.back().isTransparent && parent.isAlternative);
  }

  void end() {
    const Open closed = open_.back();
    open_.pop_back();
    if (closed.node != nullptr && !closed.isTransparent) unwrapQualified(*closed.node);
  }

  void text(std::string_view more) {
    const bool isValue = !open_.empty() && open_.back().node != nullptr;
    if (isValue && open_.back().node->form == StoredNode::Form::text) {
      open_.back().node->text += more;
    }
  }

 private:
  // The wrapper, rdf:RDF and rdf:Description; below that, the properties begin.
  void startAbove(std::string_view element, const char** attributes) {
    if (isInDescription_) return add(into_.properties, element, attributes);
    isInDescription_ = element == "rdf:Description";
    for (const char** it = attributes; *it != nullptr; it += 2) {
      const std::string_view name = *it;
      if (name.starts_with(kDeclaration)) into_.schemas.emplace(name.substr(6), it[1]);
    }
    open_.push_back({});
  }

  void add(std::vector<StoredNode>& nodes, std::string_view element, const char** attributes,
           bool isTranslation = false) {
    StoredNode& node = nodes.emplace_back();
    node.name = element;
    for (const char** it = attributes; *it != nullptr; it += 2) {
      const std::string_view name = *it;
      if (name == "xml:lang") setLanguage(node, it[1], isTranslation);
      if (name == "rdf:resource") node.text = it[1];
      if (name == "rdf:parseType") node.form = StoredNode::Form::structure;
    }
    open_.push_back({&node, false});
  }

  static void setLanguage(StoredNode& node, const char* language, bool isTranslation) {
    if (isTranslation) {
      node.language = language;
      return;
    }
    StoredNode& qualifier = node.qualifiers.emplace_back();
    qualifier.name = "?xml:lang";
    qualifier.text = language;
  }

  // A value with qualifiers is written as a structure around rdf:value.
  static void unwrapQualified(StoredNode& node) {
    const bool isQualified = !node.children.empty() && node.children[0].name == "rdf:value";
    if (node.form != StoredNode::Form::structure || !isQualified) return;
    StoredNode value = std::move(node.children[0]);
    for (auto it = node.children.begin() + 1; it != node.children.end(); ++it) {
      it->name.insert(0, "?");
      node.qualifiers.push_back(std::move(*it));
    }
    node.form = value.form;
    node.text = std::move(value.text);
    node.isAlternative = value.isAlternative;
    node.children = std::move(value.children);
  }

  StoredProperties& into_;
  std::vector<Open> open_;
  bool isInDescription_ = false;
};

void XMLCALL onStart(void* reader, const XML_Char* element, const XML_Char** attributes) {
  static_cast<Reader*>(reader)->start(element, attributes);
}
void XMLCALL onEnd(void* reader, const XML_Char*) { static_cast<Reader*>(reader)->end(); }
void XMLCALL onText(void* reader, const XML_Char* text, int length) {
  static_cast<Reader*>(reader)->text({text, static_cast<std::size_t>(length)});
}

// "[2]" or "[last()]", of a list.
const StoredNode* itemAt(const StoredNode& list, std::string_view step) {
  if (list.form != StoredNode::Form::list || list.children.empty()) return nullptr;
  if (step == "[last()]") return &list.children.back();
  std::size_t number = 0;
  std::from_chars(step.data() + 1, step.data() + step.size(), number);
  return number == 0 || number > list.children.size() ? nullptr : &list.children[number - 1];
}

Json jsonOf(const StoredNode& node, std::size_t first);

// As an object by their names.
Json jsonOf(const std::vector<StoredNode>& named) {
  std::map<std::string_view, const StoredNode*> sorted;
  for (const StoredNode& node : named) sorted.emplace(node.name, &node);
  Json json = Json::object();
  for (const auto& [name, node] : sorted) json[std::string(name)] = jsonOf(*node, 0);
  return json;
}

Json plainJsonOf(const StoredNode& node, std::size_t first) {
  if (node.form == StoredNode::Form::text) return node.text;
  if (node.form == StoredNode::Form::structure) return jsonOf(node.children);
  Json json = Json::array();
  for (std::size_t i = first; i < node.children.size(); ++i) {
    json.push_back(jsonOf(node.children[i], 0));
  }
  return json;
}

Json jsonOf(const StoredNode& node, std::size_t first) {
  Json json = plainJsonOf(node, first);
  if (!node.language.empty()) json = {{node.language, std::move(json)}};
  if (node.qualifiers.empty()) return json;
  Json qualified = jsonOf(node.qualifiers);
  qualified["rdf:value"] = std::move(json);
  return qualified;
}

}  // namespace

const StoredNode* StoredNode::field(std::string_view fieldName) const {
  const bool isQualifier = fieldName.starts_with('?');
  if (!isQualifier && form != Form::structure) return nullptr;
  const std::vector<StoredNode>& nodes = isQualifier ? qualifiers : children;
  const auto found = std::find_if(nodes.begin(), nodes.end(),
                                  [&](const StoredNode& node) { return node.name == fieldName; });
  return found == nodes.end() ? nullptr : &*found;
}

const StoredNode* StoredProperties::property(std::string_view name) const {
  const auto found =
      std::find_if(properties.begin(), properties.end(),
                   [&](const StoredNode& property) { return property.name == name; });
  return found == properties.end() ? nullptr : &*found;
}

std::string StoredProperties::uriOf(std::string_view prefix) const {
  const auto found = schemas.find(prefix);
  return found == schemas.end() ? "" : found->second;
}

const std::string* textOf(const StoredNode* property) {
  if (property == nullptr) return nullptr;
  if (property->form == StoredNode::Form::text) return &property->text;
  for (const StoredNode& item : property->children) {
    if (item.language == "x-default") return &item.text;
  }
  return nullptr;
}

const StoredNode* nodeAt(const StoredProperties& stored, std::string_view path) {
  std::size_t end = std::min(path.find_first_of("/["), path.size());
  const StoredNode* node = stored.property(path.substr(0, end));
  while (node != nullptr && end < path.size()) {
    const std::size_t begin = end;
    end = std::min(path.find_first_of("/[", begin + 1), path.size());
    const std::string_view step = path.substr(begin, end - begin);
    node = step[0] == '[' ? itemAt(*node, step) : node->field(step.substr(1));
  }
  return node;
}

std::string valueText(const StoredNode& node, std::size_t first) {
  const bool isPlain = node.form == StoredNode::Form::text && node.qualifiers.empty();
  return isPlain ? node.text : jsonText(jsonOf(node, first), false);
}

StoredProperties readStored(const std::string& xml) {
  StoredProperties stored;
  if (xml.empty()) return stored;
  Reader reader(stored);
  const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
      XML_ParserCreate("UTF-8"), &XML_ParserFree);
  if (parser == nullptr) throw std::bad_alloc();
  XML_SetUserData(parser.get(), &reader);
  XML_SetElementHandler(parser.get(), onStart, onEnd);
  XML_SetCharacterDataHandler(parser.get(), onText);
  if (XML_Parse(parser.get(), xml.data(), static_cast<int>(xml.size()), 1) != XML_STATUS_OK) {
    throw std::runtime_error(XML_ErrorString(XML_GetErrorCode(parser.get())));
  }
  return stored;
}

}  // namespace vxmeta

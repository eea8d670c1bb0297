// SPDX-License-Identifier: Apache-2.0
// The properties of a packet as they are stored, for what no operation of the library reads: which
// schemas and lists there are, and the standard-schema data that the library only writes.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vxmeta {

// A property, a field of a structure or an item of a list.
struct StoredNode {
  enum class Form { text, structure, list };

  std::string name;  // with its prefix; of items "rdf:li"
  Form form = Form::text;
  std::string text;
  std::string language;  // of an item of a language alternative
  std::vector<StoredNode> children;
  std::vector<StoredNode> qualifiers;  // named "?xml:lang", "?vxJob:q"; without that language
  bool isAlternative = false;

  // A field of a structure, or a qualifier; null where there is none.
  const StoredNode* field(std::string_view fieldName) const;
};

struct StoredProperties {
  std::map<std::string, std::string, std::less<>> schemas;  // prefix to URI
  std::vector<StoredNode> properties;

  const StoredNode* property(std::string_view name) const;
  std::string uriOf(std::string_view prefix) const;
};

// The text of a property; of a language alternative, that in the default language. Null: none.
const std::string* textOf(const StoredNode* property);

// The node at a path: "vxFontL:fonts[2]/vxFont:name/?xml:lang", "xmpBJ:JobRef[last()]". Null: none.
const StoredNode* nodeAt(const StoredProperties& stored, std::string_view path);

// What the node holds: a text as it is, anything else as JSON, fields in the order of their names;
// of a list the items from `first` on.
std::string valueText(const StoredNode& node, std::size_t first = 0);

// `xml` is what XMPlib::GetXML gives: one description, nothing in it written as an attribute, the
// library's own names under their fixed prefixes.
StoredProperties readStored(const std::string& xml);

}  // namespace vxmeta

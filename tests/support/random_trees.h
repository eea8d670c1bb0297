// SPDX-License-Identifier: Apache-2.0
// Trees of nodes, made by hand and by chance.
#pragma once

#include <algorithm>
#include <random>
#include <string>

#include "core/toolkit/nodes.h"

inline XMP_Node& add(XMP_NodeOffspring& nodes, XMP_Node& parent, const std::string& name,
                     XMP_OptionBits options, const std::string& value = "") {
  nodes.push_back(new XMP_Node(&parent, name, value, options));
  return *nodes.back();
}

// A tree of its own with the schema dc.
struct Tree {
  xmpl::Metadata metadata;
  XMP_Node& root = xmpl::insideOf(metadata).tree;
  XMP_Node& dc = add(root.children, root, kXMP_NS_DC, kXMP_SchemaNode, "dc:");

  XMP_Node& property(const std::string& name, const std::string& value,
                     XMP_OptionBits options = 0) {
    return add(dc.children, dc, name, options, value);
  }
};

inline XMP_Node& qualify(XMP_Node& node, const std::string& name, const std::string& value) {
  return add(node.qualifiers, node, name, kXMP_PropIsQualifier, value);
}

// Nodes of every form, sensible and not, that an application's calls or a packet can make.
class RandomTree {
 public:
  explicit RandomTree(unsigned seed) : random_(seed) {}

  void fill(XMP_Node& root) {
    root.name = oneOf({"", "", "uuid:1", "a&b", "\"/><a", "<\t>", "a>b"});
    for (const auto& [prefix, uri] : schemas_) {
      if (below(3) == 0) continue;
      XMP_Node& schema = add(root.children, root, uri, kXMP_SchemaNode, prefix);
      for (unsigned i = below(4); i > 0; --i) addNamed(schema, prefix);
    }
  }

 private:
  unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

  std::string oneOf(std::initializer_list<const char*> texts) {
    return texts.begin()[below(static_cast<unsigned>(texts.size()))];
  }

  std::string value() {
    return oneOf({"", " ", "a", "a & b < c > \"d\" 'e'", "]]>", "tab\tline\nreturn\r",
                  "\u00E4\u20AC", "sixteen bytes ab",
                  "thirty bytes and more of text & then some \"quoted\" ones"});
  }

  void addNamed(XMP_Node& parent, std::string prefix) {
    if (below(300) == 0 && (parent.options & kXMP_SchemaNode) == 0) prefix = "rdf:";
    const std::string name =
        prefix + (below(300) == 0 ? oneOf({"RDF", "li", "type", "x\u00E4", "c]"})
                                  : oneOf({"a", "b", "title"}));
    for (const XMP_Node* child : parent.children) {
      if (child->name == name) return;
    }
    fillNode(add(parent.children, parent, name, 0), 0);
  }

  void fillNode(XMP_Node& node, int depth) {
    constexpr XMP_OptionBits kForms[] = {0x200, 0x600, 0xE00, 0x1E00, 0x100, 0x100};
    const unsigned form = depth > 5 ? 9 : below(12);
    if (form < 6) {
      node.options |= kForms[form];
      for (unsigned i = below(4); i > 0; --i) addChild(node, depth);
    } else {
      if (form == 6) node.options |= kXMP_PropValueIsURI;
      node.value = value();
    }
    if (below(4) == 0) addQualifiers(node, depth);
  }

  void addChild(XMP_Node& node, int depth) {
    if ((node.options & kXMP_PropValueIsArray) == 0) {
      return addNamed(node, schemas_[below(5)].first);
    }
    XMP_Node& item = add(node.children, node, "[]", 0);
    fillNode(item, depth + 1);
    const bool hasLang = !item.qualifiers.empty() && item.qualifiers[0]->name == "xml:lang";
    if ((node.options & kXMP_PropArrayIsAltText) == 0 || hasLang || below(20) == 0) return;
    qualify(item, "xml:lang", below(2) == 0 ? "x-default" : "de");
    std::rotate(item.qualifiers.begin(), item.qualifiers.end() - 1, item.qualifiers.end());
  }

  void addQualifiers(XMP_Node& node, int depth) {
    if (below(2) == 0) qualify(node, "xml:lang", "x-default");
    if (below(8) == 0) qualify(node, "rdf:type", value()).options |= kXMP_PropValueIsURI;
    if (below(20) == 0) qualify(node, "rdf:ID", "a");
    if (below(10) == 0) {
      qualify(node, oneOf({"rdf:resource", "rdf:nodeID", "rdf:bagID", "rdf:about", "rdf:li"}),
              "u?a&b");
    }
    if (below(2) == 0) fillNode(qualify(node, "stRef:q", ""), depth + 1);
    if (below(6) == 0) fillNode(qualify(node, "xmpMM:r", ""), depth + 1);
  }

  std::mt19937 random_;
  const std::pair<std::string, const char*> schemas_[5] = {
      {"dc:", kXMP_NS_DC},   {"xmpMM:", kXMP_NS_XMP_MM}, {"pdf:", kXMP_NS_PDF},
      {"rdf:", kXMP_NS_RDF}, {"exif:", kXMP_NS_EXIF},
  };
};

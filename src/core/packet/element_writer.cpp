// SPDX-License-Identifier: Apache-2.0
#include "core/packet/element_writer.h"

#include "core/packet/limits.h"
#include "core/packet/survey.h"
#include "core/packet/used_names.h"

namespace xmpl {
namespace {

constexpr XMP_OptionBits kPlainMask = kXMP_PropCompositeMask | kXMP_PropValueIsURI;

constexpr std::size_t kLongestName = limits::kPrefixBytes + 1 + limits::kLocalNameBytes;
static_assert(3 * limits::kElementDepth + kLongestName + 64 <= TextOutput::kRoom);

[[noreturn]] void refuseRdf(const char* why) { throw XMP_Error(kXMPErr_BadRDF, why); }

bool isItem(const XMP_Node& node) { return node.name.starts_with('['); }

bool isStructure(const XMP_Node& node) {
  return (node.options & kXMP_PropCompositeMask) != 0 &&
         (node.options & kXMP_PropValueIsArray) == 0;
}

std::string_view arrayTag(XMP_OptionBits form) {
  if ((form & kXMP_PropArrayIsAlternate) != 0) return "rdf:Alt";
  return (form & kXMP_PropArrayIsOrdered) != 0 ? "rdf:Seq" : "rdf:Bag";
}

}  // namespace

// Which of the qualifiers there are.
struct ElementWriter::Attributes {
  bool general = false;  // one that is none
  bool resource = false;
  bool nodeId = false;
  bool bagId = false;

  void note(std::string_view name) {
    resource = resource || name == "rdf:resource";
    nodeId = nodeId || name == "rdf:nodeID";
    bagId = bagId || name == "rdf:bagID";
  }

  // An attribute that refers to a value stands for it: a load takes no other beside it.
  void check(const XMP_Node& node) const {
    if (general && resource) refuseRdf("Can't mix rdf:resource and general qualifiers");
    const bool isEmpty = (node.options & kPlainMask) == 0 && node.value.empty();
    const bool badResource = resource && !isEmpty && !isStructure(node);
    const bool badNodeId = nodeId && (general || resource || !isEmpty);
    if (bagId || badResource || badNodeId) {
      refuseToWrite("Packet not written: a qualifier that cannot be read again");
    }
  }
};

void ElementWriter::element(const XMP_Node& node, std::size_t indent) {
  const std::string_view name = isItem(node) ? std::string_view("rdf:li") : node.name;
  start(name, indent);
  if (!node.qualifiers.empty()) return qualified(node, name, indent);
  if ((node.options & kPlainMask) == 0) return text(node, name);
  content(node, name, indent);
}

void ElementWriter::start(std::string_view name, std::size_t indent) {
  out_.room();
  out_.indent(indent);
  out_.put("<");
  out_.put(name);
}

void ElementWriter::end(std::string_view name, std::size_t indent) {
  out_.room();
  out_.indent(indent);
  closing(name);
}

void ElementWriter::closing(std::string_view name) {
  out_.put("</");
  out_.put(name);
  out_.put(">\n");
}

void ElementWriter::text(const XMP_Node& node, std::string_view name) {
  if (node.value.empty()) return out_.put("/>\n");
  out_.put(">");
  out_.escape<Place::element>(node.value);
  closing(name);
}

void ElementWriter::qualified(const XMP_Node& node, std::string_view name, std::size_t indent) {
  const Attributes has = attributes(node);
  has.check(node);
  if (has.general) return generallyQualified(node, name, indent);
  if (has.resource && isStructure(node)) return fieldsAsAttributes(node, indent);
  content(node, name, indent);
}

ElementWriter::Attributes ElementWriter::attributes(const XMP_Node& node) {
  Attributes has;
  for (const XMP_Node* qualifier : node.qualifiers) {
    if (!isAttributeQualifier(qualifier->name)) {
      has.general = true;
      continue;
    }
    has.note(qualifier->name);
    out_.put(" ");
    attribute<Place::attribute>(*qualifier);
  }
  return has;
}

template <Place kPlace>
void ElementWriter::attribute(const XMP_Node& node) {
  out_.put(node.name);
  out_.put("=\"");
  out_.escape<kPlace>(node.value);
  out_.put("\"");
}

void ElementWriter::generallyQualified(const XMP_Node& node, std::string_view name,
                                       std::size_t indent) {
  out_.put(" rdf:parseType=\"Resource\">\n");
  start("rdf:value", indent + 1);
  content(node, "rdf:value", indent + 1);
  for (const XMP_Node* qualifier : node.qualifiers) {
    if (!isAttributeQualifier(qualifier->name)) element(*qualifier, indent + 1);
  }
  end(name, indent);
}

void ElementWriter::content(const XMP_Node& node, std::string_view name, std::size_t indent) {
  if ((node.options & kXMP_PropValueIsArray) != 0) return array(node, name, indent);
  if (isStructure(node)) return structure(node, name, indent);
  if ((node.options & kXMP_PropValueIsURI) == 0) return text(node, name);
  out_.put(" rdf:resource=\"");
  out_.escape<Place::attribute>(node.value);
  out_.put("\"/>\n");
}

void ElementWriter::structure(const XMP_Node& node, std::string_view name, std::size_t indent) {
  if (node.children.empty()) return out_.put(" rdf:parseType=\"Resource\"/>\n");
  out_.put(" rdf:parseType=\"Resource\">\n");
  for (const XMP_Node* field : node.children) element(*field, indent + 1);
  end(name, indent);
}

void ElementWriter::fieldsAsAttributes(const XMP_Node& node, std::size_t indent) {
  for (const XMP_Node* field : node.children) {
    if (isItem(*field) || !field->qualifiers.empty() || (field->options & kPlainMask) != 0) {
      refuseRdf("Can't mix rdf:resource and complex fields");
    }
    out_.put("\n");
    out_.indent(indent + 1);
    out_.put(" ");
    attribute<Place::toolkitForgets>(*field);
  }
  out_.put("/>\n");
}

void ElementWriter::array(const XMP_Node& node, std::string_view name, std::size_t indent) {
  const bool isEmpty = node.children.empty();
  const std::string_view tag = arrayTag(node.options);
  out_.put(">\n");
  start(tag, indent + 1);
  out_.put(isEmpty ? std::string_view("/>\n") : std::string_view(">\n"));
  if (XMP_ArrayIsAltText(node.options)) {
    // Deliberate: the toolkit brings them into order in the tree, through a const object.
    NormalizeLangArray(const_cast<XMP_Node*>(&node));  // NOLINT
  }
  for (const XMP_Node* item : node.children) element(*item, indent + 2);
  if (!isEmpty) end(tag, indent + 1);
  end(name, indent);
}

}  // namespace xmpl

// SPDX-License-Identifier: Apache-2.0
#include "core/packet/survey.h"

#include <algorithm>

#include "core/own_properties.h"
#include "core/packet/limits.h"
#include "core/packet/used_names.h"

namespace xmpl {
namespace {

// Elements around the properties: x:xmpmeta, rdf:RDF, rdf:Description.
constexpr std::size_t kOuterElements = 3;
// Bytes of <></> and a line feed, of rdf:li twice, of rdf:parseType="Resource".
constexpr std::size_t kTagBytes = 6;
constexpr std::size_t kItemBytes = 12;
constexpr std::size_t kStructureBytes = 25;
constexpr std::size_t kIndentBytes = 3;

bool isOwn(const XMP_Node* node) { return isOwnProperty(node->name); }
bool isArray(const XMP_Node& node) { return (node.options & kXMP_PropValueIsArray) != 0; }

class Surveyor {
 public:
  Survey look(const XMP_Node& tree) && {
    for (const XMP_Node* schema : tree.children) {
      if (schema == nullptr) refuseHalfMade();
      names_.declare(schema->value, schema->name);
      countNamed(schema->children, isOwn,
                 "Packet not written: more than 2,048 properties of one namespace");
      named(schema->children, kOuterElements + 1);
    }
    return {std::move(names_).namespaces(), bytes_};
  }

 private:
  [[noreturn]] static void refuseHalfMade() {
    refuseToWrite("Packet not written: the metadata is incomplete");
  }

  // `depth` is that of an element in the text, from 1.
  void element(std::size_t depth) {
    if (depth > limits::kElementDepth) {
      refuseToWrite("Packet not written: more than 128 levels of elements");
    }
    bytes_ += kIndentBytes * (depth - 1) + kTagBytes;
  }

  // The toolkit declares the prefixes of all fields before those of what is in them.
  void named(const XMP_NodeOffspring& nodes, std::size_t depth) {
    for (const XMP_Node* node : nodes) {
      if (node == nullptr) refuseHalfMade();
      names_.use(node->name);
    }
    for (const XMP_Node* node : nodes) this->node(*node, depth);
  }

  void items(const XMP_Node& array, std::size_t depth) {
    element(depth - 1);
    bytes_ += kIndentBytes * depth + kItemBytes * (array.children.size() + 1);
    for (const XMP_Node* item : array.children) {
      if (item == nullptr || !item->name.starts_with('[')) refuseHalfMade();
      node(*item, depth);
    }
  }

  void node(const XMP_Node& node, std::size_t depth) {
    element(depth);
    bytes_ += 2 * node.name.size() + node.value.size();
    if (node.qualifiers.empty()) return content(node, depth);
    qualified(node, depth);
  }

  void content(const XMP_Node& node, std::size_t depth) {
    if ((node.options & kXMP_PropCompositeMask) == 0) return;
    bytes_ += kIndentBytes * depth;
    if (isArray(node)) return items(node, depth + 2);
    bytes_ += kStructureBytes;
    countNamed(node.children, isOwn, "Packet not written: more than 2,048 fields of one structure");
    named(node.children, depth + 1);
  }

  // The value's elements first, as the toolkit declares their prefixes.
  void qualified(const XMP_Node& node, std::size_t depth) {
    countNamed(
        node.qualifiers, [](const XMP_Node*) { return false; },
        "Packet not written: more than 2,048 qualifiers of one value");
    const auto isGeneral = [](const XMP_Node* qualifier) {
      if (qualifier == nullptr) refuseHalfMade();
      return !isAttributeQualifier(qualifier->name);
    };
    const bool general = std::any_of(node.qualifiers.begin(), node.qualifiers.end(), isGeneral);
    if (general) element(depth + 1);  // rdf:value
    content(node, general ? depth + 1 : depth);
    for (const XMP_Node* qualifier : node.qualifiers) this->qualifier(*qualifier, depth + 1);
  }

  // Deliberate: of an attribute the toolkit declares what is in it, though it does not write it.
  void qualifier(const XMP_Node& qualifier, std::size_t depth) {
    if (!isAttributeQualifier(qualifier.name)) {
      // A load makes one of the second rdf:value of a property, and swaps the two at every trip.
      if (qualifier.name == "rdf:value")
        refuseToWrite("Packet not written: two rdf:value of one value");
      names_.use(qualifier.name);
    } else if (qualifier.children.empty() && qualifier.qualifiers.empty()) {
      bytes_ += qualifier.name.size() + qualifier.value.size() + kTagBytes;
      return;
    }
    node(qualifier, depth);
  }

  template <class IsExempt>
  static void countNamed(const XMP_NodeOffspring& nodes, const IsExempt& isExempt,
                         const char* why) {
    if (nodes.size() <= limits::kNamedChildren) return;
    for (const XMP_Node* node : nodes) {
      if (node == nullptr) refuseHalfMade();
    }
    const auto exempt = std::count_if(nodes.begin(), nodes.end(), isExempt);
    if (nodes.size() - static_cast<std::size_t>(exempt) > limits::kNamedChildren) {
      refuseToWrite(why);
    }
  }

  UsedNames names_;
  std::size_t bytes_ = 0;
};

}  // namespace

Survey survey(const XMP_Node& tree) { return Surveyor().look(tree); }

}  // namespace xmpl

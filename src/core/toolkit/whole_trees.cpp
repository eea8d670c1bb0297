// SPDX-License-Identifier: Apache-2.0
#include "core/toolkit/whole_trees.h"

#include <algorithm>

#include "core/toolkit/nodes.h"

namespace xmpl {
namespace {

void copyBelow(const XMP_Node& from, XMP_Node& to);

void copyAll(const XMP_NodeOffspring& from, XMP_NodeOffspring& to, XMP_Node& parent) {
  to.reserve(from.size());  // so that each copy is in its place at once
  for (const XMP_Node* node : from) {
    to.push_back(new XMP_Node(&parent, node->name, node->value, node->options));
    copyBelow(*node, *to.back());
  }
}

void copyBelow(const XMP_Node& from, XMP_Node& to) {
  copyAll(from.qualifiers, to.qualifiers, to);
  copyAll(from.children, to.children, to);
}

bool areAllEqual(const XMP_NodeOffspring& a, const XMP_NodeOffspring& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const XMP_Node* x, const XMP_Node* y) { return areEqual(*x, *y); });
}

// Of a node and what is in it; `path` is that of its parent, and so it is again afterwards.
void forEachBelow(const std::string& schemaUri, const XMP_Node& node, const std::string& step,
                  std::string& path, const VisitNode& visit) {
  static const std::string kNoValue;
  const std::size_t before = path.size();
  path += step;
  const bool isComposite = (node.options & kXMP_PropCompositeMask) != 0;
  visit(schemaUri, path, isComposite ? kNoValue : node.value, node.options);
  for (const XMP_Node* qualifier : node.qualifiers) {
    forEachBelow(schemaUri, *qualifier, "/?" + qualifier->name, path, visit);
  }
  const bool isArray = (node.options & kXMP_PropValueIsArray) != 0;
  for (std::size_t i = 0; i < node.children.size(); ++i) {
    const XMP_Node& child = *node.children[i];
    const std::string next = isArray ? '[' + std::to_string(i + 1) + ']' : '/' + child.name;
    forEachBelow(schemaUri, child, next, path, visit);
  }
  path.resize(before);
}

}  // namespace

bool areEqual(const XMP_Node& a, const XMP_Node& b) {
  constexpr XMP_OptionBits kForm = kXMP_PropCompositeMask | kXMP_PropValueIsURI;
  return a.name == b.name && a.value == b.value && ((a.options ^ b.options) & kForm) == 0 &&
         areAllEqual(a.children, b.children) && areAllEqual(a.qualifiers, b.qualifiers);
}

void swapTrees(Metadata& a, Metadata& b) {
  XMP_Node& first = insideOf(a).tree;
  XMP_Node& second = insideOf(b).tree;
  std::swap(first.options, second.options);
  first.name.swap(second.name);
  first.value.swap(second.value);
  first.children.swap(second.children);
  first.qualifiers.swap(second.qualifiers);
  for (XMP_Node* schema : first.children) schema->parent = &first;
  for (XMP_Node* schema : second.children) schema->parent = &second;
}

Metadata copyOf(const Metadata& metadata) {
  Metadata copy;
  const XMP_Node& from = insideOf(metadata).tree;
  XMP_Node& to = insideOf(copy).tree;
  to.options = from.options;
  to.name = from.name;
  to.value = from.value;
  copyBelow(from, to);
  return copy;
}

bool haveEqualTrees(const Metadata& a, const Metadata& b) {
  return areEqual(insideOf(a).tree, insideOf(b).tree);
}

void forEachNode(const Metadata& metadata, const VisitNode& visit) {
  std::string path;
  for (const XMP_Node* schema : insideOf(metadata).tree.children) {
    if (schema->children.empty()) continue;
    visit(schema->name, path, path, schema->options);
    for (const XMP_Node* property : schema->children) {
      forEachBelow(schema->name, *property, property->name, path, visit);
    }
  }
}

}  // namespace xmpl

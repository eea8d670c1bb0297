#include "core/packet/settle.h"

#include <algorithm>

#include "core/packet/packet_guard.h"
#include "core/toolkit/nodes.h"

#include "core/toolkit/alias_mend.h"

namespace xmpl {
namespace {

// Those that are written as attributes.
bool isAttributeQualifier(const XMP_Node& qualifier) {
  constexpr std::string_view kNames[] = {"xml:lang", "rdf:resource", "rdf:ID", "rdf:bagID",
                                         "rdf:nodeID"};
  return std::find(std::begin(kNames), std::end(kNames), qualifier.name) != std::end(kNames);
}

// The toolkit makes a qualifier of it: saved, the two would change places at every load.
void refuseSecondValue(const XMP_Node& node) {
  const auto isValue = [](const XMP_Node* qualifier) { return qualifier->name == "rdf:value"; };
  if (std::any_of(node.qualifiers.begin(), node.qualifiers.end(), isValue)) {
    throw PacketRefused("more than one rdf:value of one property");
  }
}

// Levels of elements of a node as it is saved, itself included.
std::size_t savedLevels(const XMP_Node& node) {
  if (node.qualifiers.size() > limits::kNamedChildren) {
    throw PacketRefused("more than 2,048 qualifiers of one value");
  }
  refuseSecondValue(node);
  std::size_t inner = 0;
  for (const XMP_Node* child : node.children) inner = std::max(inner, savedLevels(*child));
  std::size_t levels = 1 + inner;
  if ((node.options & kXMP_PropValueIsArray) != 0) ++levels;  // rdf:Bag
  std::size_t qualified = 0;
  for (const XMP_Node* qualifier : node.qualifiers) {
    if (!isAttributeQualifier(*qualifier)) qualified = std::max(qualified, savedLevels(*qualifier));
  }
  return qualified == 0 ? levels : 1 + std::max(levels, qualified);  // rdf:value
}

void deleteEmptySchemas(XMP_Node& tree) {
  XMP_NodeOffspring& schemas = tree.children;
  const auto isEmpty = [](const XMP_Node* schema) { return schema->children.empty(); };
  for (XMP_Node*& schema : schemas) {
    if (!isEmpty(schema)) continue;
    delete schema;
    schema = nullptr;
  }
  std::erase(schemas, nullptr);
}

}  // namespace

void settle(XMPMeta& metadata) {
  XMP_Node& tree = metadata.tree;
  mendAliases(tree);
  NormalizeDCArrays(&tree);
  if ((tree.options & kXMP_PropHasAliases) != 0) {
    MoveExplicitAliases(&tree, 0, metadata.errorCallback);
  }
  TouchUpDataModel(&metadata, metadata.errorCallback);
  deleteEmptySchemas(tree);
}

void refuseUnsavable(const XMP_Node& tree) {
  constexpr std::size_t kOuter = 3;  // x:xmpmeta, rdf:RDF, rdf:Description
  std::size_t levels = 0;
  for (const XMP_Node* schema : tree.children) {
    for (const XMP_Node* property : schema->children) {
      levels = std::max(levels, savedLevels(*property));
    }
  }
  if (levels + kOuter > limits::kElementDepth) {
    throw PacketRefused("more than 128 levels of elements when saved");
  }
}

}  // namespace xmpl

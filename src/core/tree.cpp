#include "core/tree.h"

#include <algorithm>
#include <memory>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wall"
#pragma GCC diagnostic ignored "-Wextra"
#pragma GCC diagnostic ignored "-Wpedantic"
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
#include "XMPCore/source/XMPCore_Impl.hpp"
#include "XMPCore/source/XMPMeta.hpp"
#pragma GCC diagnostic pop

#include "core/value_text.h"

namespace xmpl {
namespace {

const XMP_Node& rootOf(const Metadata& metadata) {
  return reinterpret_cast<const XMPMeta*>(metadata.GetInternalRef())->tree;
}

const XMP_Node* childNamed(const XMP_Node& parent, std::string_view name) {
  const auto found = std::find_if(parent.children.begin(), parent.children.end(),
                                  [name](const XMP_Node* child) { return child->name == name; });
  return found == parent.children.end() ? nullptr : *found;
}

XMP_Node& append(XMP_Node& parent, const char* name) {
  auto node = std::make_unique<XMP_Node>(&parent, name, XMP_OptionBits{0});
  parent.children.push_back(node.get());
  return *node.release();
}

}  // namespace

const XMP_Node* findProperty(const Metadata& metadata, PropertyName name) {
  const XMP_Node* schema = childNamed(rootOf(metadata), name.schema);
  return schema == nullptr ? nullptr : childNamed(*schema, name.path);
}

const XMP_Node* findField(const XMP_Node& structure, std::string_view name) {
  if ((structure.options & kXMP_PropValueIsStruct) == 0) {
    throw XMP_Error(kXMPErr_BadXPath, "Named children only allowed for schemas and structs");
  }
  return childNamed(structure, name);
}

const XMP_Node* findItem(const XMP_Node& array, std::size_t index) {
  if ((array.options & kXMP_PropValueIsArray) == 0) {
    throw XMP_Error(kXMPErr_BadXPath, "Indexing applied to non-array");
  }
  return index <= array.children.size() ? array.children[index - 1] : nullptr;
}

const std::string& anyText(const XMP_Node& node) { return node.value; }

const std::string& simpleText(const XMP_Node& node) {
  if ((node.options & kXMP_PropCompositeMask) != 0) {
    throw XMP_Error(kXMPErr_BadXPath, "Property must be simple");
  }
  return node.value;
}

XMP_Node& recreateArray(Metadata& metadata, PropertyName name, ArrayKind kind) {
  metadata.DeleteProperty(name.schema, name.path);
  metadata.SetProperty(name.schema, name.path, nullptr, static_cast<XMP_OptionBits>(kind));
  return const_cast<XMP_Node&>(*findProperty(metadata, name));  // NOLINT: metadata is not const
}

XMP_Node& appendItem(XMP_Node& array) { return append(array, kXMP_ArrayItemName); }

XMP_Node& appendField(XMP_Node& structure, const char* name) { return append(structure, name); }

void makeStructure(XMP_Node& node) { node.options |= kXMP_PropValueIsStruct; }

void makeArray(XMP_Node& node, ArrayKind kind) {
  node.options |= kXMP_PropValueIsArray | static_cast<XMP_OptionBits>(kind);
}

void setText(XMP_Node& node, const char* text) {
  refuseOverlong(text);
  node.SetValue(text);
}

void refuseBadText(const char* text) {
  XMP_Node scratch(nullptr, "", XMP_OptionBits{0});
  setText(scratch, text);
}

void setPlainText(XMP_Node& node, std::string_view ascii) { node.value = ascii; }

}  // namespace xmpl

// SPDX-License-Identifier: Apache-2.0
#include "core/toolkit/tree.h"

#include <algorithm>
#include <memory>

#include "core/toolkit/new_nodes.h"
#include "core/toolkit/nodes.h"
#include "core/value_text.h"

namespace xmpl {
namespace {

const XMP_Node& rootOf(const Metadata& metadata) { return insideOf(metadata).tree; }

const XMP_Node* childNamed(const XMP_Node& parent, std::string_view name) {
  const auto found = std::find_if(parent.children.begin(), parent.children.end(),
                                  [name](const XMP_Node* child) { return child->name == name; });
  return found == parent.children.end() ? nullptr : *found;
}

bool haveOneForm(const XMP_Node& a, const XMP_Node& b) {
  constexpr XMP_OptionBits kForm = kXMP_PropValueIsStruct | kXMP_PropValueIsArray;
  return (a.options & kForm) == (b.options & kForm);
}

std::string joined(const std::string& path, const std::string& step) {
  return path.empty() ? step : path + '/' + step;
}

const XMP_Node* qualifierNamed(const XMP_Node& node, std::string_view name) {
  const auto found = std::find_if(node.qualifiers.begin(), node.qualifiers.end(),
                                  [name](const XMP_Node* each) { return each->name == name; });
  return found == node.qualifiers.end() ? nullptr : *found;
}

void refuseNonArray(const XMP_Node& node) {
  if ((node.options & kXMP_PropValueIsArray) == 0) refuseIndexing();
}

// The toolkit keeps the language in front of the other qualifiers.
bool isDefaultText(const XMP_Node* item) {
  return !item->qualifiers.empty() && item->qualifiers.front()->name == "xml:lang" &&
         item->qualifiers.front()->value == "x-default";
}

// What the toolkit would throw for an array in the place of `node`, but before it spoils the node.
void refuseToBecomeArray(const XMP_Node& node) {
  if (!node.value.empty()) {
    throw XMP_Error(kXMPErr_BadXPath, "Composite nodes can't have values");
  }
  if ((node.options & kXMP_PropValueIsStruct) != 0) {
    throw XMP_Error(kXMPErr_BadXPath, "Requested and existing composite form mismatch");
  }
}

OwnedNode newDefaultText(const char* text) {
  OwnedNode item(new XMP_Node(nullptr, kXMP_ArrayItemName, XMP_OptionBits{0}));
  setText(*item, text);
  auto language = std::make_unique<XMP_Node>(item.get(), "xml:lang", "x-default",
                                             XMP_OptionBits{kXMP_PropIsQualifier});
  item->qualifiers.reserve(1);
  item->qualifiers.push_back(language.release());
  item->options |= kXMP_PropHasQualifiers | kXMP_PropHasLang;
  return item;
}

// One walk through the stored nodes and their rewritten likes.
class DroppedNodes {
 public:
  DroppedNodes(IsSameText* isSame, const VisitDropped& visit) : isSame_(isSame), visit_(visit) {}

  void inList(const XMP_Node& stored, const XMP_Node& rewritten) {
    inQualifiers(stored, rewritten, "");
    const std::size_t count = std::min(stored.children.size(), rewritten.children.size());
    for (item_ = 1; item_ <= count; ++item_) {
      inNode(*stored.children[item_ - 1], rewritten.children[item_ - 1], "");
    }
  }

 private:
  void inNode(const XMP_Node& stored, const XMP_Node* rewritten, const std::string& path) {
    if (rewritten == nullptr || !haveOneForm(stored, *rewritten)) {
      visit_(item_, path, stored);
      return;
    }
    inQualifiers(stored, *rewritten, path);
    const XMP_OptionBits form = stored.options & kXMP_PropCompositeMask;
    if (form == 0) {
      if (!isSame_(stored.value, rewritten->value)) visit_(item_, path, stored);
    } else if ((form & kXMP_PropValueIsArray) != 0) {
      inItems(stored, *rewritten, path);
    } else {
      for (const XMP_Node* field : stored.children) {
        inNode(*field, childNamed(*rewritten, field->name), joined(path, field->name));
      }
    }
  }

  void inItems(const XMP_Node& stored, const XMP_Node& rewritten, const std::string& path) {
    const std::size_t count = std::min(stored.children.size(), rewritten.children.size());
    for (std::size_t i = 0; i < count; ++i) {
      const std::string item = path + '[' + std::to_string(i + 1) + ']';
      inNode(*stored.children[i], rewritten.children[i], item);
    }
  }

  void inQualifiers(const XMP_Node& stored, const XMP_Node& rewritten, const std::string& path) {
    for (const XMP_Node* qualifier : stored.qualifiers) {
      if (qualifierNamed(rewritten, qualifier->name) != nullptr) continue;
      visit_(item_, joined(path, '?' + qualifier->name), *qualifier);
    }
  }

  IsSameText* isSame_;
  const VisitDropped& visit_;
  std::size_t item_ = 0;
};

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
  refuseNonArray(array);
  return index - 1 < array.children.size() ? array.children[index - 1] : nullptr;
}

const XMP_Node* findDefaultText(const XMP_Node& array) {
  refuseNonArray(array);
  const auto found = std::find_if(array.children.begin(), array.children.end(), isDefaultText);
  return found == array.children.end() ? nullptr : *found;
}

std::size_t propertyCount(const Metadata& metadata, std::string_view schemaUri) {
  const XMP_Node* schema = childNamed(rootOf(metadata), schemaUri);
  return schema == nullptr ? 0 : schema->children.size();
}

void refuseIndexing() { throw XMP_Error(kXMPErr_BadXPath, "Indexing applied to non-array"); }

bool isAlias(const char* schemaUri, std::string_view name) {
  std::string prefix;
  if (!Metadata::GetNamespacePrefix(schemaUri, &prefix)) return false;
  return sRegisteredAliasMap->contains(prefix.append(name.substr(name.find(':') + 1)));
}

std::size_t itemCount(const XMP_Node& array) {
  return (array.options & kXMP_PropValueIsArray) == 0 ? 0 : array.children.size();
}

const std::string& anyText(const XMP_Node& node) { return node.value; }

const std::string& simpleText(const XMP_Node& node) {
  if ((node.options & kXMP_PropCompositeMask) != 0) {
    throw XMP_Error(kXMPErr_BadXPath, "Property must be simple");
  }
  return node.value;
}

bool isEmptyText(const XMP_Node& node) {
  return (node.options & kXMP_PropCompositeMask) == 0 && node.value.empty() &&
         node.qualifiers.empty();
}

XMP_Node& recreateArray(Metadata& metadata, PropertyName name, ArrayKind kind) {
  metadata.DeleteProperty(name.schema, name.path);
  metadata.SetProperty(name.schema, name.path, nullptr, static_cast<XMP_OptionBits>(kind));
  return const_cast<XMP_Node&>(*findProperty(metadata, name));  // NOLINT: metadata is not const
}

void setDefaultLanguage(Metadata& metadata, PropertyName name, const char* text) {
  OwnedNode item = newDefaultText(text);
  if (const XMP_Node* existing = findProperty(metadata, name)) refuseToBecomeArray(*existing);
  metadata.SetProperty(name.schema, name.path, nullptr, kXMP_PropArrayIsAltText);
  auto& array = const_cast<XMP_Node&>(*findProperty(metadata, name));  // NOLINT: as above
  array.children.push_back(item.get());
  item.release()->parent = &array;
}

XMP_Node& appendItem(XMP_Node& array) { return appendChild(array, kXMP_ArrayItemName); }

XMP_Node& appendField(XMP_Node& structure, const char* name) {
  return appendChild(structure, name);
}

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

void DeleteNode::operator()(XMP_Node* node) const { delete node; }

OwnedNode detachedArray(ArrayKind kind) {
  OwnedNode array(new XMP_Node(nullptr, "", XMP_OptionBits{0}));
  makeArray(*array, kind);
  return array;
}

void forEachDropped(const XMP_Node& stored, const XMP_Node& rewritten, IsSameText* isSame,
                    const VisitDropped& visit) {
  DroppedNodes(isSame, visit).inList(stored, rewritten);
}

}  // namespace xmpl

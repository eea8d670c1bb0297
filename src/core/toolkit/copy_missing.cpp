// SPDX-License-Identifier: Apache-2.0
#include "core/toolkit/copy_missing.h"

#include <string>

#include "core/toolkit/new_nodes.h"
#include "core/toolkit/nodes.h"
#include "core/toolkit/tree.h"

#include "core/toolkit/quick_search.h"

namespace xmpl {
namespace {

bool hasMore(const XMP_Node& node) { return !node.children.empty() || !node.qualifiers.empty(); }

class Copier {
 public:
  explicit Copier(XMP_Node& tree) : tree_(tree) {}

  void property(const XMP_Node& from, Part part) {
    if (part == Part::nothing || (part == Part::allButItself && !hasMore(from))) return;
    XMP_Node* to = existing(from);
    if (to == nullptr) to = part == Part::all ? &append(from, schemaOf(from)) : &implied(from);
    below(from, *to);
  }

 private:
  XMP_Node* existing(const XMP_Node& property) {
    XMP_Node* schema = existingSchema(*property.parent);
    return schema == nullptr ? nullptr : search_.find(schema->children, property.name.c_str());
  }

  // There may be a thousand: each is looked for once.
  XMP_Node* existingSchema(const XMP_Node& from) {
    if (from_ == &from) return schema_;
    from_ = &from;
    return schema_ = FindSchemaNode(&tree_, from.name.c_str(), kXMP_ExistingOnly);
  }

  XMP_Node& schemaOf(const XMP_Node& property) {
    if (XMP_Node* schema = existingSchema(*property.parent)) return *schema;
    schema_ = FindSchemaNode(&tree_, property.parent->name.c_str(), kXMP_CreateNodes);
    schema_->options &= ~XMP_OptionBits{kXMP_NewImplicitNode};
    return *schema_;
  }

  static XMP_OptionBits formOf(const XMP_Node& node) {
    return node.options & kXMP_PropCompositeMask;
  }
  static std::string valueOf(const XMP_Node& node) {
    return formOf(node) == 0 ? node.value : std::string();
  }

  static XMP_Node& append(const XMP_Node& from, XMP_Node& parent) {
    return appendNode(parent.children, parent, from.name, valueOf(from), formOf(from));
  }

  // The parent of what is meant, which is not. Deliberate: as the toolkit implies one from a path,
  // a structure from a field, never an array from an item.
  XMP_Node& implied(const XMP_Node& from) {
    const bool beginsWithChild = from.qualifiers.empty();
    if (beginsWithChild && (from.options & kXMP_PropValueIsArray) != 0) refuseIndexing();
    const XMP_OptionBits form = beginsWithChild ? XMP_OptionBits{kXMP_PropValueIsStruct} : 0;
    XMP_Node& schema = schemaOf(from);
    return appendNode(schema.children, schema, from.name, form);
  }

  void below(const XMP_Node& from, XMP_Node& to) {
    for (const XMP_Node* qualifier : from.qualifiers) this->qualifier(*qualifier, to);
    for (std::size_t i = 0; i < from.children.size(); ++i) child(*from.children[i], i, from, to);
  }

  void qualifier(const XMP_Node& from, XMP_Node& parent) {
    XMP_Node* to = search_.find(parent.qualifiers, from.name.c_str());
    below(from, to != nullptr ? *to : appendQualifier(from, parent));
  }

  // The toolkit puts a language and a type first, and looks for it among all before.
  static XMP_Node& appendQualifier(const XMP_Node& from, XMP_Node& parent) {
    const XMP_OptionBits options = kXMP_PropIsQualifier | formOf(from);
    if (from.name == "xml:lang" || from.name == "rdf:type") {
      XMP_Node& node = *FindQualifierNode(&parent, from.name.c_str(), kXMP_CreateNodes);
      node.options = options;
      node.value = valueOf(from);
      return node;
    }
    parent.options |= kXMP_PropHasQualifiers;
    return appendNode(parent.qualifiers, parent, from.name, valueOf(from), options);
  }

  void child(const XMP_Node& from, std::size_t index, const XMP_Node& parent, XMP_Node& to) {
    XMP_Node* there = (parent.options & kXMP_PropValueIsArray) != 0 ? item(to, index)
                                                                    : field(to, from.name.c_str());
    below(from, there != nullptr ? *there : append(from, to));
  }

  static XMP_Node* item(const XMP_Node& array, std::size_t index) {
    if ((array.options & kXMP_PropValueIsArray) == 0) refuseIndexing();
    return index < array.children.size() ? array.children[index] : nullptr;
  }

  XMP_Node* field(XMP_Node& structure, const char* name) {
    if ((structure.options & kXMP_PropValueIsStruct) == 0) {
      return FindChildNode(&structure, name, kXMP_ExistingOnly);  // the toolkit's error
    }
    return search_.find(structure.children, name);
  }

  XMP_Node& tree_;
  QuickSearch search_;
  const XMP_Node* from_ = nullptr;  // the schema that is copied
  XMP_Node* schema_ = nullptr;      // where it goes, when that exists
};

}  // namespace

bool holdsAny(const Metadata& metadata, PartOf partOf) {
  for (const XMP_Node* schema : insideOf(metadata).tree.children) {
    for (const XMP_Node* property : schema->children) {
      const Part part = partOf(schema->name, property->name);
      if (part == Part::all || (part == Part::allButItself && hasMore(*property))) return true;
    }
  }
  return false;
}

void copyMissing(const Metadata& from, Metadata& to, PartOf partOf) {
  Copier copier(insideOf(to).tree);
  for (const XMP_Node* schema : insideOf(from).tree.children) {
    for (const XMP_Node* property : schema->children) {
      copier.property(*property, partOf(schema->name, property->name));
    }
  }
}

}  // namespace xmpl

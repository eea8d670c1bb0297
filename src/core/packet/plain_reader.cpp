// SPDX-License-Identifier: Apache-2.0
#include "core/packet/plain_reader.h"

#include <algorithm>
#include <utility>

#include "core/ascii.h"
#include "core/packet/names_in_scope.h"
#include "core/packet/settle.h"
#include "core/packet/xml_parser.h"
#include "core/toolkit/new_nodes.h"
#include "core/toolkit/nodes.h"

namespace xmpl {
namespace {

using Term = ScopedName::Term;

bool isBlank(std::string_view text) {
  // Mostly indentation: the parser hands a line's end out by itself.
  constexpr std::string_view kIndentation = "                                                ";
  return kIndentation.starts_with(text) || std::all_of(text.begin(), text.end(), isXmlBlank);
}

// What stands open, and what may stand in it.
enum class Place : std::uint8_t {
  document,  // the packet's root
  packet,    // x:xmpmeta: rdf:RDF, once
  rdf,       // descriptions
  fields,    // of a structure, or the properties of a description at the top
  items,     // of an array
  value,     // of a property: a text, or one element that says what it is
  wrapped,   // a property whose one element has ended
  empty,     // a property that has all in its attributes
};

struct Open {
  Place place;
  XMP_Node* node;        // the property, structure or array; at the top the tree
  std::uint64_t number;  // of the structure; they count up as structures begin
  std::size_t scope;     // of namespaces, before it
};

struct Attribute {
  ScopedName* name;
  const char* value;
};

// Apart, so that blanks between elements do not pay for it.
[[gnu::noinline]] void appendText(std::string& value, std::string_view text) { value.append(text); }

class PlainReader final : public XmlEvents {
 public:
  explicit PlainReader(XMPMeta& metadata) : tree_(metadata.tree), names_(guard_) {
    open_.push_back({Place::document, &tree_, kTop, 0});
  }

  std::size_t deepest() const { return guard_.deepest(); }

  void startElement(const char* raw, const char** attributes) override {
    const std::size_t scope = names_.scope();
    if (*attributes != nullptr) declareNamespaces(attributes);
    ScopedName& name = names_.find(raw);
    resolveAttributes(attributes);
    guard_.startElement(name.guarded);
    for (const Attribute& each : attributes_) guard_.attribute(each.name->guarded);
    enter(name);
    open_.back().scope = scope;
  }

  void endElement() override {
    const Open ended = open_.back();
    open_.pop_back();
    guard_.endElement();
    names_.endScope(ended.scope);
    if (ended.place == Place::items && XMP_ArrayIsAlternate(ended.node->options)) {
      DetectAltText(ended.node);
    }
  }

  void characters(std::string_view text) override {
    const Open& here = open_.back();
    if (here.place == Place::value) {
      appendText(here.node->value, text);
    } else if (here.place == Place::empty || !isBlank(text)) {
      throw NotPlain();
    }
  }

  // The toolkit makes nodes of its own packet wrapper alone, and skips them outside the root. As
  // the parser works for it, it takes no colon.
  void instruction(std::string_view target) override {
    requirePlain(open_.size() == 1 || target != "xpacket");
    requirePlain(target.find(':') == std::string_view::npos);
  }

  void doctype() override { PacketGuard::refuseDoctype(); }

 private:
  static constexpr std::uint64_t kTop = 1;  // the number of all properties at the top
  static constexpr std::size_t kMostLookedThrough = 256;

  void declareNamespaces(const char** attributes) {
    for (; *attributes != nullptr; attributes += 2) {
      if (!NamesInScope::isDeclaration(attributes[0])) continue;
      names_.declare(attributes[0], attributes[1]);
    }
  }

  void resolveAttributes(const char** attributes) {
    attributes_.clear();
    for (; *attributes != nullptr; attributes += 2) {
      if (NamesInScope::isDeclaration(attributes[0])) continue;
      attributes_.push_back({&names_.find(attributes[0]), attributes[1]});
    }
  }

  void push(Place place, XMP_Node& node, std::uint64_t number = 0) {
    open_.push_back({place, &node, number, 0});
  }

  void enter(ScopedName& name) {
    switch (open_.back().place) {
      case Place::document:
        return name.term == Term::packet ? push(Place::packet, tree_) : enterRdf(name);
      case Place::packet:
        return enterRdf(name);
      case Place::rdf:
        return enterDescription(name);
      case Place::fields:
      case Place::items:
        return enterProperty(name);
      case Place::value:
        return enterForm(name);
      default:
        throw NotPlain();
    }
  }

  void enterRdf(const ScopedName& name) {
    if (name.term != Term::rdf || hasRdf_ || !attributes_.empty()) throw NotPlain();
    hasRdf_ = true;
    push(Place::rdf, tree_);
  }

  // One at the top.
  void enterDescription(const ScopedName& name) {
    if (name.term != Term::description) throw NotPlain();
    for (const Attribute& each : attributes_) {
      if (each.name->term == Term::about) {
        setAbout(each.value);
      } else {
        addField(tree_, kTop, each);
      }
    }
    push(Place::fields, tree_, kTop);
  }

  void setAbout(const char* value) {
    if (tree_.name.empty()) {
      tree_.name = value;
    } else if (*value != '\0' && tree_.name != value) {
      throw NotPlain();
    }
  }

  // A property, field or item.
  void enterProperty(ScopedName& name) {
    const Open& parent = open_.back();
    const bool isItem = parent.place == Place::items;
    if (name.term != (isItem ? Term::item : Term::property)) throw NotPlain();
    XMP_Node& node = isItem ? appendChild(*parent.node, kXMP_ArrayItemName)
                            : addNamed(*parent.node, parent.number, name);
    attributes_.empty() ? push(Place::value, node) : enterWithAttributes(node);
  }

  void enterWithAttributes(XMP_Node& node) {
    Place place = Place::value;
    std::uint64_t number = 0;
    for (const Attribute& each : attributes_) {
      switch (each.name->term) {
        case Term::language:
          addLanguage(node, each.value);
          break;
        case Term::parseType:
          requirePlain(place == Place::value && std::string_view(each.value) == "Resource");
          place = Place::fields;
          number = beginStructure(node);
          break;
        case Term::resource:
          requirePlain(place == Place::value);
          place = Place::empty;
          node.value = each.value;
          node.options |= kXMP_PropValueIsURI;
          break;
        default:
          requirePlain(place == Place::value || (place == Place::empty && number != 0));
          place = Place::empty;
          if (number == 0) number = beginStructure(node);
          addField(node, number, each);
      }
    }
    push(place, node, number);
  }

  // The element that says what form a property's value has.
  void enterForm(const ScopedName& name) {
    XMP_Node& node = *open_.back().node;
    requirePlain(isBlank(node.value));
    node.value.clear();
    open_.back().place = Place::wrapped;
    if (name.term == Term::description) {
      const std::uint64_t number = beginStructure(node);
      for (const Attribute& each : attributes_) addField(node, number, each);
      return push(Place::fields, node, number);
    }
    node.options |= arrayForm(name.term);
    requirePlain(attributes_.empty());
    push(Place::items, node);
  }

  static XMP_OptionBits arrayForm(Term term) {
    constexpr XMP_OptionBits kOrdered = kXMP_PropValueIsArray | kXMP_PropArrayIsOrdered;
    if (term == Term::bag) return kXMP_PropValueIsArray;
    if (term == Term::seq) return kOrdered;
    if (term == Term::alt) return kOrdered | kXMP_PropArrayIsAlternate;
    throw NotPlain();
  }

  std::uint64_t beginStructure(XMP_Node& node) {
    node.options |= kXMP_PropValueIsStruct;
    return ++lastNumber_;
  }

  void addField(XMP_Node& structure, std::uint64_t number, const Attribute& attribute) {
    if (attribute.name->term != Term::property) throw NotPlain();
    addNamed(structure, number, *attribute.name).value = attribute.value;
  }

  // `number` is that of the structure `parent`.
  XMP_Node& addNamed(XMP_Node& parent, std::uint64_t number, ScopedName& name) {
    XMP_Node& holder = number == kTop ? schemaOf(name) : parent;
    requirePlain(!hasField(holder, number, name));
    name.lastIn = number;
    XMP_Node& node = appendChild(holder, name.stored);
    const bool isTop = number == kTop;
    if (isTop && name.prefix->hasAliases && sRegisteredAliasMap->contains(name.stored)) {
      node.options |= kXMP_PropIsAlias;
      tree_.options |= kXMP_PropHasAliases;
    }
    return node;
  }

  // A structure that began later may hide that this one has the field already. For many fields the
  // toolkit's way has tables.
  static bool hasField(const XMP_Node& structure, std::uint64_t number, const ScopedName& name) {
    if (name.lastIn <= number) return name.lastIn == number;
    requirePlain(structure.children.size() < kMostLookedThrough);
    return std::any_of(structure.children.begin(), structure.children.end(),
                       [&](const XMP_Node* field) { return field->name == name.stored; });
  }

  XMP_Node& schemaOf(const ScopedName& name) {
    ScopedPrefix& prefix = *name.prefix;
    if (prefix.schema == nullptr) {
      prefix.schema = &appendChild(tree_, prefix.uri);
      prefix.schema->options = kXMP_SchemaNode;
      prefix.schema->value = prefix.registered;
    }
    return *prefix.schema;
  }

  static void requirePlain(bool isPlain) {
    if (!isPlain) throw NotPlain();
  }

  XMP_Node& tree_;
  PacketGuard guard_;
  NamesInScope names_;
  std::vector<Open> open_;
  std::vector<Attribute> attributes_;  // of the element that begins, without declarations
  std::uint64_t lastNumber_ = kTop;
  bool hasRdf_ = false;
};

}  // namespace

bool readPlain(std::string_view packet, Metadata& metadata) {
  XMPMeta& inside = insideOf(metadata);
  try {
    PlainReader reader(inside);
    if (parseXml(packet, reader)) {
      const bool hasMoved = settle(inside);
      // An element is saved as two at most; what has moved may be one too many where it is now.
      if (hasMoved || reader.deepest() * 2 > limits::kElementDepth) refuseUnsavablePlain(inside);
      return true;
    }
  } catch (const NotPlain&) {
  } catch (const PacketRefused&) {  // unless it is malformed, which the toolkit tells
  }
  inside.tree.ClearNode();
  return false;
}

}  // namespace xmpl

// SPDX-License-Identifier: Apache-2.0
// What a packet says: the texts of its values, found by the XML parser alone.
#pragma once

#include <expat.h>

#include <map>
#include <set>

#include "core/packet/packet_text.h"
#include "core/toolkit/nodes.h"
#include "target.h"

// An element with all that is in it. Names have the toolkit's prefixes.
struct XmlElement {
  std::string name;
  std::map<std::string, std::string> attributes;
  std::string text;  // its own
  std::vector<XmlElement> children;

  bool has(const char* attribute) const { return attributes.contains(attribute); }
};

class XmlTree {
 public:
  explicit XmlTree(std::string_view text) {
    XML_Parser parser = XML_ParserCreateNS(nullptr, '@');
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, onStart, onEnd);
    XML_SetCharacterDataHandler(parser, onText);
    const auto size = static_cast<int>(text.size());
    expect(XML_Parse(parser, text.data(), size, XML_TRUE) == XML_STATUS_OK, "it is XML");
    XML_ParserFree(parser);
  }

  const XmlElement& root() const { return document_.children.front(); }

 private:
  static void XMLCALL onStart(void* self, const char* name, const char** attributes) {
    auto& open = static_cast<XmlTree*>(self)->open_;
    XmlElement& element = open.back()->children.emplace_back();
    element.name = prefixed(name);
    for (; *attributes != nullptr; attributes += 2) {
      element.attributes[prefixed(attributes[0])] = attributes[1];
    }
    open.push_back(&element);  // its parent takes no other child while it is open
  }
  static void XMLCALL onEnd(void* self, const char*) {
    static_cast<XmlTree*>(self)->open_.pop_back();
  }
  static void XMLCALL onText(void* self, const char* text, int size) {
    static_cast<XmlTree*>(self)->open_.back()->text.append(text, static_cast<std::size_t>(size));
  }

  // Of "URI@local".
  static std::string prefixed(const std::string& name) {
    const std::size_t end = name.rfind('@');
    if (end == name.npos) return name;
    std::string uri = name.substr(0, end), prefix;
    if (uri == "http://purl.org/dc/1.1/") uri = kXMP_NS_DC;
    xmpl::Metadata::GetNamespacePrefix(uri.c_str(), &prefix);
    return prefix + name.substr(end + 1);
  }

  XmlElement document_;
  std::vector<XmlElement*> open_{&document_};
};

// The texts of a packet's values; `lasting` are those that do not belong to what docs/limits.md
// says is lost.
class Words {
 public:
  explicit Words(const std::string& packet) {
    const xmpl::PacketText text(packet);
    const XmlTree tree(text.view());
    std::vector<const XmlElement*> metadata;
    findRdf(tree.root(), metadata);
    if (metadata.size() != 1) return;  // one is read, by rules of its own
    for (const XmlElement& each : metadata[0]->children) countProperties(each);
    for (const XmlElement& each : metadata[0]->children) addDescription(each);
  }

  std::multiset<std::string> all, lasting;

 private:
  using Names = std::initializer_list<const char*>;
  static bool isAnyOf(const std::string& name, Names names) {
    return std::find(names.begin(), names.end(), name) != names.end();
  }

  static void findRdf(const XmlElement& element, std::vector<const XmlElement*>& found) {
    if (element.name == "rdf:RDF") found.push_back(&element);
    for (const XmlElement& child : element.children) findRdf(child, found);
  }

  // Attributes that say how something is written, and are no values.
  static bool isSyntax(const std::string& name) {
    return isAnyOf(name, {"rdf:about", "rdf:ID", "rdf:nodeID", "rdf:datatype", "rdf:parseType",
                          "xml:lang", "about", "ID"});
  }

  // The name under which the toolkit keeps a property.
  static bool isAlias(const std::string& stored) { return sRegisteredAliasMap->contains(stored); }
  static std::string target(const std::string& stored) {
    return isAlias(stored) ? sRegisteredAliasMap->find(stored)->second[kRootPropStep].step : stored;
  }

  template <class Visit>
  static void forEachProperty(const XmlElement& description, const Visit& visit) {
    for (const auto& [name, value] : description.attributes) {
      if (!isSyntax(name)) visit(XmlElement{name, {}, value, {}});
    }
    for (const XmlElement& child : description.children) visit(child);
  }

  void countProperties(const XmlElement& description) {
    forEachProperty(description,
                    [&](const XmlElement& property) { ++count_[target(property.name)]; });
  }

  void addDescription(const XmlElement& description) {
    for (const char* name : {"rdf:about", "about"}) {
      if (!description.has(name) || !about_.empty()) continue;
      about_ = description.attributes.at(name);
      add(about_, true);
    }
    forEachProperty(description, [&](const XmlElement& property) {
      addValue(property, !isLost(property), target(property.name));
    });
  }

  // With qualifiers: without, there is no word in it.
  static bool isEmptyText(const XmlElement& value) {
    if (value.has("rdf:value")) return value.attributes.at("rdf:value").empty();
    const auto isEmpty = [](const XmlElement& child) {
      if (child.name == "rdf:Description") return isEmptyText(child);
      return child.name == "rdf:value" && child.text.empty() && child.children.empty() &&
             !child.has("rdf:resource");
    };
    return std::any_of(value.children.begin(), value.children.end(), isEmpty);
  }

  bool isLost(const XmlElement& property) const {
    const std::string &name = property.name, base = target(name);
    const bool isDublinCoreArray = isAnyOf(
        base, {"dc:contributor", "dc:creator", "dc:date", "dc:description", "dc:language",
               "dc:publisher", "dc:relation", "dc:rights", "dc:subject", "dc:title", "dc:type"});
    if (isAlias(name) && property.children.empty() && count_.at(base) > 1) return true;
    if (isDublinCoreArray && isEmptyText(property)) return true;
    if (name == "xmpMM:InstanceID") return !about_.empty();
    if (base == "dc:rights" || name == "xmpDM:copyright") return count_.contains("xmpDM:copyright");
    return isAnyOf(name, {"iX:changes", "exif:GPSTimeStamp"});
  }

  void addValue(const XmlElement& value, bool lasts, const std::string& property = "") {
    if (value.children.empty() && !value.has("rdf:parseType")) {
      add(value.text, lasts);
    }
    for (const auto& [name, text] : value.attributes) {
      if (!isSyntax(name)) add(text, lasts);
    }
    const bool isRepaired = isAnyOf(property, {"dc:title", "dc:description", "dc:rights",
                                               "xmpRights:UsageTerms", "exif:UserComment"});
    for (const XmlElement& child : value.children) {
      const bool isSameValue = isAnyOf(child.name, {"rdf:value", "rdf:Description"});
      if (isArray(child)) {
        addItems(child, lasts, isRepaired);
      } else {
        addValue(child, lasts, isSameValue ? property : "");
      }
    }
  }

  // Its own, or that of the rdf:value that it stands for.
  static std::string language(const XmlElement& item) {
    if (item.has("xml:lang")) return item.attributes.at("xml:lang");
    for (const XmlElement& child : item.children) {
      if (isAnyOf(child.name, {"rdf:value", "rdf:Description"})) return language(child);
    }
    return "";
  }

  static bool isDefault(const XmlElement& item) {
    return strcasecmp(language(item).c_str(), "x-default") == 0;
  }

  static bool isArray(const XmlElement& element) {
    return isAnyOf(element.name, {"rdf:Bag", "rdf:Seq", "rdf:Alt"});
  }

  // What a description stands for, be it empty: a structure, or what its rdf:value is.
  static bool isStructure(const XmlElement& description) {
    if (description.has("rdf:value")) return false;
    for (const XmlElement& child : description.children) {
      if (child.name == "rdf:value") return isComposite(child);
    }
    return true;
  }

  // An array or structure.
  static bool isComposite(const XmlElement& value) {
    if (value.has("rdf:value") || value.has("rdf:resource")) return false;
    if (value.has("rdf:parseType")) return isStructure(value);
    for (const XmlElement& child : value.children) {
      if (child.name == "rdf:Description") return isStructure(child);
    }
    return !value.children.empty() ||
           std::any_of(value.attributes.begin(), value.attributes.end(),
                       [](const auto& attribute) { return !isSyntax(attribute.first); });
  }

  // Repaired, an array keeps texts alone, the empty ones only in a language.
  static bool isDropped(const XmlElement& item) {
    if (isComposite(item)) return true;
    const bool hasValue = item.has("rdf:value") || !item.text.empty() || !item.children.empty();
    const bool isEmpty =
        !hasValue && (!item.has("rdf:resource") || item.attributes.at("rdf:resource").empty());
    return (isEmpty || isEmptyText(item)) && language(item).empty();
  }

  // Of the default and one other item, the other's text is lost.
  void addItems(const XmlElement& array, bool lasts, bool isRepaired) {
    std::vector<const XmlElement*> items;
    for (const XmlElement& item : array.children) {
      const bool isLost = isRepaired && isDropped(item);
      if (isLost) addValue(item, false);
      if (!isLost) items.push_back(&item);
    }
    const bool isAlternative = isRepaired || array.name == "rdf:Alt";
    const auto ruling = std::find_if(items.begin(), items.end(),
                                     [](const XmlElement* item) { return isDefault(*item); });
    const bool isPair = isAlternative && items.size() == 2 && ruling != items.end();
    for (const XmlElement* item : items) addValue(*item, lasts && (!isPair || item == *ruling));
  }

  // Controls are blanks when they are saved or loaded.
  void add(std::string text, bool lasts) {
    std::replace(text.begin(), text.end(), '\x7F', ' ');
    if (text.find_first_not_of(" \t\n\r") == text.npos) return;
    all.insert(text);
    if (lasts) lasting.insert(text);
  }

  std::map<std::string, int> count_;  // of top-level properties, by the name that they stand for
  std::string about_;
};

// Every text of `before` is in `after`, or may be lost.
inline void expectWordsKept(const std::string& before, const std::string& after) {
  const Words old(before), now(after);
  for (const std::string& word : old.lasting) {
    expect(old.lasting.count(word) <= now.all.count(word), "no word is lost but those that may be",
           word);
  }
}

// What a packet says: the texts of its values, found by the XML parser alone.
#pragma once

#include <expat.h>

#include <map>
#include <set>

#include "core/packet/packet_text.h"
#include "core/toolkit/nodes.h"
#include "target.h"

// An element with all that is in it. Names are "URI@local".
struct XmlElement {
  std::string name;
  std::map<std::string, std::string> attributes;
  std::string text;  // its own
  std::vector<XmlElement> children;
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
    element.name = name;
    for (; *attributes != nullptr; attributes += 2) {
      element.attributes[attributes[0]] = attributes[1];
    }
    open.push_back(&element);  // its parent takes no other child while it is open
  }
  static void XMLCALL onEnd(void* self, const char*) {
    static_cast<XmlTree*>(self)->open_.pop_back();
  }
  static void XMLCALL onText(void* self, const char* text, int size) {
    static_cast<XmlTree*>(self)->open_.back()->text.append(text, static_cast<std::size_t>(size));
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
  static constexpr const char* kRdf = "http://www.w3.org/1999/02/22-rdf-syntax-ns#@";
  static constexpr const char* kLanguage = "http://www.w3.org/XML/1998/namespace@lang";

  static std::string rdf(const char* local) { return kRdf + std::string(local); }

  static void findRdf(const XmlElement& element, std::vector<const XmlElement*>& found) {
    if (element.name == rdf("RDF")) found.push_back(&element);
    for (const XmlElement& child : element.children) findRdf(child, found);
  }

  // Attributes that say how something is written, and are no values.
  static bool isSyntax(const std::string& name) {
    static const std::set<std::string> names = {
        rdf("about"),     rdf("ID"), rdf("nodeID"), rdf("datatype"),
        rdf("parseType"), kLanguage, "about",       "ID"};
    return names.contains(name);
  }

  // The name under which the toolkit keeps a property, aliases resolved.
  static std::string storedName(const std::string& name) {
    const std::size_t end = name.rfind('@');
    std::string uri = name.substr(0, end), prefix;
    if (uri == "http://purl.org/dc/1.1/") uri = kXMP_NS_DC;
    xmpl::Metadata::GetNamespacePrefix(uri.c_str(), &prefix);
    return prefix + name.substr(end + 1);
  }
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
    forEachProperty(description, [&](const XmlElement& property) {
      ++count_[target(storedName(property.name))];
    });
  }

  bool has(const char* property) const { return count_.contains(property); }

  void addDescription(const XmlElement& description) {
    for (const std::string& name : {rdf("about"), std::string("about")}) {
      const auto about = description.attributes.find(name);
      if (about == description.attributes.end() || !about_.empty()) continue;
      about_ = about->second;
      add(about_, true);
    }
    forEachProperty(description, [&](const XmlElement& property) {
      const std::string stored = storedName(property.name);
      addValue(property, !isLost(property, stored), target(stored));
    });
  }

  static bool isDublinCoreArray(const std::string& stored) {
    static const std::set<std::string> names = {"dc:contributor", "dc:creator",  "dc:date",
                                                "dc:description", "dc:language", "dc:publisher",
                                                "dc:relation",    "dc:rights",   "dc:subject",
                                                "dc:title",       "dc:type"};
    return names.contains(stored);
  }

  // With qualifiers: without, there is no word in it.
  static bool isEmptyText(const XmlElement& value) {
    const auto attribute = value.attributes.find(rdf("value"));
    if (attribute != value.attributes.end()) return attribute->second.empty();
    const auto isEmpty = [](const XmlElement& child) {
      if (child.name == rdf("Description")) return isEmptyText(child);
      const bool hasUri = child.attributes.contains(rdf("resource"));
      return child.name == rdf("value") && child.text.empty() && child.children.empty() && !hasUri;
    };
    return std::any_of(value.children.begin(), value.children.end(), isEmpty);
  }

  bool isLost(const XmlElement& property, const std::string& stored) const {
    const std::string base = target(stored);
    const bool isText = property.children.empty();
    if (isAlias(stored) && isText && count_.at(base) > 1) return true;
    if (isDublinCoreArray(base) && isEmptyText(property)) return true;
    if (stored == "xmpMM:InstanceID") return !about_.empty();
    if (base == "dc:rights" || stored == "xmpDM:copyright") return has("xmpDM:copyright");
    return stored == "iX:changes" || stored == "exif:GPSTimeStamp";
  }

  void addValue(const XmlElement& value, bool lasts, const std::string& property = "") {
    if (value.children.empty() && !value.attributes.contains(rdf("parseType"))) {
      add(value.text, lasts);
    }
    for (const auto& [name, text] : value.attributes) {
      if (!isSyntax(name)) add(text, lasts);
    }
    const bool isRepaired = property == "dc:title" || property == "dc:description" ||
                            property == "dc:rights" || property == "xmpRights:UsageTerms" ||
                            property == "exif:UserComment";
    for (const XmlElement& child : value.children) {
      const bool isSameValue = child.name == rdf("value") || child.name == rdf("Description");
      if (isArray(child)) {
        addItems(child, lasts, isRepaired);
      } else {
        addValue(child, lasts, isSameValue ? property : "");
      }
    }
  }

  // Its own, or that of the rdf:value that it stands for.
  static std::string language(const XmlElement& item) {
    const auto found = item.attributes.find(kLanguage);
    if (found != item.attributes.end()) return found->second;
    for (const XmlElement& child : item.children) {
      if (child.name == rdf("value") || child.name == rdf("Description")) return language(child);
    }
    return "";
  }

  static bool isDefault(const XmlElement& item) {
    return strcasecmp(language(item).c_str(), "x-default") == 0;
  }

  static bool isArray(const XmlElement& element) {
    return element.name == rdf("Bag") || element.name == rdf("Seq") || element.name == rdf("Alt");
  }

  // An array or structure. One with an rdf:value is a text with qualifiers.
  static bool isComposite(const XmlElement& value) {
    bool hasFields = !value.children.empty();
    for (const auto& [name, text] : value.attributes) hasFields |= !isSyntax(name);
    const auto isNested = [](const XmlElement& child) {
      return child.name == rdf("Description") && !isComposite(child);
    };
    const auto isValue = [](const XmlElement& child) { return child.name == rdf("value"); };
    const auto& children = value.children;
    return hasFields && !value.attributes.contains(rdf("value")) &&
           !value.attributes.contains(rdf("resource")) &&
           std::none_of(children.begin(), children.end(), isValue) &&
           std::none_of(children.begin(), children.end(), isNested);
  }

  // Repaired, an array keeps texts alone, the empty ones only in a language.
  static bool isDropped(const XmlElement& item) {
    const bool isEmpty = item.text.empty() && item.attributes.empty() && item.children.empty();
    return isComposite(item) || isEmpty || (isEmptyText(item) && language(item).empty());
  }

  // Of the default and one other item, the other's text is lost.
  void addItems(const XmlElement& array, bool lasts, bool isRepaired) {
    std::vector<const XmlElement*> items;
    for (const XmlElement& item : array.children) {
      const bool isLost = isRepaired && isDropped(item);
      if (isLost) addValue(item, false);
      if (!isLost) items.push_back(&item);
    }
    const bool isAlternative = isRepaired || array.name == rdf("Alt");
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

// SPDX-License-Identifier: Apache-2.0
#include "files/canonical.h"

#include <XMPlib.h>
#include <expat.h>

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

#include "files/packet_file.h"

namespace vxmeta {
namespace {

struct Element {
  std::string begin;                  // its name and attributes
  std::vector<std::string> children;  // in their canonical form
  std::string text;
  bool isArray = false;
};

// Builds the form from the inside out.
struct Reader {
  std::vector<Element> open = {Element()};

  static void begin(void* self, const char* name, const char** attributes) {
    std::vector<std::string> sorted;
    for (; *attributes != nullptr; attributes += 2) {
      sorted.push_back(std::string(" ") + attributes[0] + "=\"" + attributes[1] + "\"");
    }
    std::sort(sorted.begin(), sorted.end());
    Element element;
    element.begin = std::string("<") + name;
    for (const std::string& attribute : sorted) element.begin += attribute;
    constexpr std::string_view kRdf = "http://www.w3.org/1999/02/22-rdf-syntax-ns#|";
    for (const char* array : {"Seq", "Bag", "Alt"}) {
      element.isArray = element.isArray || std::string(kRdf) + array == name;
    }
    static_cast<Reader*>(self)->open.push_back(std::move(element));
  }

  static void text(void* self, const char* bytes, int length) {
    static_cast<Reader*>(self)->open.back().text.append(bytes, static_cast<std::size_t>(length));
  }

  static void end(void* self, const char*) {
    std::vector<Element>& open = static_cast<Reader*>(self)->open;
    Element element = std::move(open.back());
    open.pop_back();
    if (!element.isArray) std::sort(element.children.begin(), element.children.end());
    std::string form = element.begin + ">";
    if (element.children.empty()) form += element.text;
    for (const std::string& child : element.children) form += child;
    open.back().children.push_back(form + "</>\n");
  }
};

}  // namespace

std::string canonicalText(const std::string& packet) {
  XMPlib xmp;
  xmp.SetXML(packet);
  if (!xmp.ErrStr().empty()) throw FileError("the packet cannot be read: " + xmp.ErrStr());
  const std::string& text = xmp.GetXML();
  const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
      XML_ParserCreateNS("UTF-8", '|'), &XML_ParserFree);
  Reader reader;
  XML_SetUserData(parser.get(), &reader);
  XML_SetElementHandler(parser.get(), Reader::begin, Reader::end);
  XML_SetCharacterDataHandler(parser.get(), Reader::text);
  if (XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), 1) != XML_STATUS_OK) {
    throw FileError("the packet cannot be compared");
  }
  return reader.open.front().children.front();
}

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
// The XML parser, as the packet's readers use it.
#pragma once

#include <string>
#include <string_view>

namespace xmpl {

// What the parser meets. Names are as they stand in the text. What these throw ends the parse.
class XmlEvents {
 public:
  virtual ~XmlEvents() = default;
  // `attributes`: name and value in turn, up to a null.
  virtual void startElement(const char* name, const char** attributes) = 0;
  virtual void endElement() = 0;
  virtual void characters(std::string_view text) = 0;
  virtual void instruction(std::string_view target) = 0;
  virtual void doctype() = 0;
};

// Whether the text is well formed; if not, lastParseFailure() tells where and why, as for what an
// event has thrown, which passes.
bool parseXml(std::string_view text, XmlEvents& events);

// The encoding that the XML declaration names, and whether the parser knows it.
struct DeclaredEncoding {
  std::string name;  // empty: none is declared
  bool isKnown = true;
};
DeclaredEncoding declaredEncoding(std::string_view text);

}  // namespace xmpl

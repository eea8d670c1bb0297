// SPDX-License-Identifier: Apache-2.0
// Markup of the page: HTML that is well-formed XML too. Text gets into it through these functions
// alone, which escape it.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace vxmeta {

struct Markup {
  std::string html;

  bool empty() const { return html.empty(); }
  Markup& operator+=(const Markup& more) { return html += more.html, *this; }
};

inline Markup operator+(Markup first, const Markup& second) { return first += second; }

// An attribute, its value as plain text.
struct Attribute {
  std::string_view name;
  std::string value;
};

using Attributes = std::initializer_list<Attribute>;

// The text as characters of the page. What no page can hold is replaced: control characters by
// their pictures (U+2400 and on), bytes that are not UTF-8 and codes that are no characters of XML
// by U+FFFD. Line feeds and tabs stay.
Markup plain(std::string_view text);

// A text of the document: as above, isolated, so that marks of writing direction in it turn nothing
// around it.
Markup value(std::string_view text);

// The same in a text among other words, for places without markup: attributes, titles.
std::string isolated(std::string_view text);

// <name ...>content</name>; attributes without value are left out.
Markup element(std::string_view name, Attributes attributes, const Markup& content = {});
inline Markup element(std::string_view name, const Markup& content) {
  return element(name, {}, content);
}

// <name .../>, of those that have no content.
Markup single(std::string_view name, Attributes attributes = {});

Markup link(const std::string& id, const Markup& content);  // to a place in the page

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
// Packets for tests, small enough to stand in the test.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "XMPlib.h"

// A packet that holds `properties`; every prefix of the schema may be used in them.
std::string packet(const std::string& properties);

// A text in several languages.
using Texts = std::vector<std::pair<std::string, std::string>>;
std::string alternative(const std::string& property, const Texts& texts);

// Elements in short: "name=A type book=" is name A, type 2 (its number) and an empty book.
std::string elements(const std::string& prefix, const std::string& names);

// `names` with `other` for a name.
std::string swapped(const std::string& names, const std::string& name,
                    const std::string& other = "");

// A list of structures: `list("vxFontL:fonts", "Bag", {...})`, an item being its fields' elements.
using Items = std::vector<std::string>;
std::string list(const std::string& array, const std::string& kind, const Items& items);

// Without a byte order mark.
std::string utf16(const std::string& utf8, bool bigEndian);

// What the handle holds: the elements of its properties, without blanks between them. Clears
// ErrStr().
std::string stored(const XMPlib& xmp);

// A handle with a packet loaded: from its text, or from the properties in it.
struct FromText : XMPlib {
  explicit FromText(const std::string& text) { SetXML(text); }
};
struct Loaded : FromText {
  explicit Loaded(const std::string& properties) : FromText(packet(properties)) {}
};

// A handle without metadata.
struct Empty : XMPlib {
  Empty() { RemoveXAP(); }
};

// The number of pages, and the smart ID; -1 and "none" when they are not read.
int pagesOf(const XMPlib& xmp);
std::string smartIdOf(const XMPlib& xmp);

// The fields that an item may lack. Any other ends the list before the item, or is marked.
template <class Wrap, class Read>
std::string optionalFields(const char* prefix, const std::string& names, const Wrap& wrap,
                           const Read& read) {
  std::istringstream words(names);
  std::string optional, name;
  for (const std::string whole = elements(prefix, names); words >> name;) {
    const Loaded xmp(wrap(Items{whole, elements(prefix, swapped(names, name)), whole}));
    const std::size_t count = read(xmp).size();
    if (count == 1) continue;
    optional += (optional.empty() ? "" : " ") + name + (count == 3 ? "" : " (?)");
  }
  return optional;
}

// Packets for tests, small enough to stand in the test.
#pragma once

#include <string>
#include <vector>

#include "XMPlib.h"

// A packet that holds `properties`; every prefix of the schema may be used in them.
std::string packet(const std::string& properties);

// A list of structures: `list("vxFontL:fonts", "Bag", {...})`, an item being its fields' elements.
std::string list(const std::string& array, const std::string& kind,
                 const std::vector<std::string>& items);

// Elements in short: `fields("vxFont:", {{"name", "A"}, {"type", "B"}})`.
using Field = std::pair<std::string, std::string>;
std::string fields(const std::string& prefix, const std::vector<Field>& values);

// What the handle holds: the elements of its properties, without blanks between them. Clears
// ErrStr().
std::string stored(const XMPlib& xmp);

// A handle with a packet loaded.
struct Loaded : XMPlib {
  explicit Loaded(const std::string& properties) { SetXML(packet(properties)); }
};

// A handle without metadata.
struct Empty : XMPlib {
  Empty() { RemoveXAP(); }
};

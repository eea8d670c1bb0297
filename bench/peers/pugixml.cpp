// SPDX-License-Identifier: Apache-2.0
#include <pugixml.hpp>
#include <stdexcept>

#include "peers.h"
#include "peers/fields.h"

namespace bench {
namespace {

pugi::xml_document parsed(const std::string& packet) {
  pugi::xml_document document;
  if (!document.load_buffer(packet.data(), packet.size())) {
    throw std::runtime_error("pugixml refused the packet");
  }
  return document;
}

// The array's rdf:Seq or rdf:Bag.
pugi::xml_node listOf(const pugi::xml_document& document, const char* array) {
  for (const pugi::xml_node description : document.child("x:xmpmeta").child("rdf:RDF")) {
    if (const pugi::xml_node found = description.child(array)) return found.first_child();
  }
  return {};
}

// Sets the fields that the array's items hold; items beyond the records become records.
template <class Record>
void readInto(std::vector<Record>& records, const pugi::xml_document& document, const char* array) {
  std::size_t i = 0;
  for (const pugi::xml_node item : listOf(document, array)) {
    if (i == records.size()) records.emplace_back();
    Record& record = records[i++];
    for (const pugi::xml_node field : item) setField(field.name(), field.child_value(), record);
  }
}

}  // namespace

Inks inksByPugixml(const std::string& packet) {
  const pugi::xml_document document = parsed(packet);
  Inks inks;
  readInto(inks, document, "vxGr:inks");
  readInto(inks, document, "vxInkCovL:coverage");
  return inks;
}

Fonts fontsByPugixml(const std::string& packet) {
  Fonts fonts;
  readInto(fonts, parsed(packet), "vxFontL:fonts");
  return fonts;
}

}  // namespace bench

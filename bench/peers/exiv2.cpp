// SPDX-License-Identifier: Apache-2.0
#include <exiv2/exiv2.hpp>
#include <stdexcept>

#include "peers.h"
#include "peers/fields.h"

namespace bench {
namespace {

Exiv2::XmpData decoded(const std::string& packet) {
  Exiv2::XmpData properties;
  if (Exiv2::XmpParser::decode(properties, packet) != 0) {
    throw std::runtime_error("Exiv2 refused the packet");
  }
  return properties;
}

// The record of `array` that a property such as "inks[3]/vxInk:name" belongs to, or null; cuts the
// name down to the field.
template <class Record>
Record* recordOf(std::string_view& name, std::string_view array, std::vector<Record>& records) {
  if (!name.starts_with(array)) return nullptr;
  const std::size_t slash = name.find('/', array.size());
  if (slash == std::string_view::npos) return nullptr;
  std::size_t index = 0;
  std::from_chars(name.data() + array.size(), name.data() + slash, index);
  if (index == 0) return nullptr;
  if (index > records.size()) records.resize(index);
  name.remove_prefix(slash + 1);
  return &records[index - 1];
}

template <class Record>
bool setFieldOf(const Exiv2::Xmpdatum& property, std::string_view array,
                std::vector<Record>& records) {
  const std::string path = property.tagName();
  std::string_view name = path;
  Record* const record = recordOf(name, array, records);
  if (record == nullptr) return false;
  setField(name, property.toString(), *record);
  return true;
}

}  // namespace

Inks inksByExiv2(const std::string& packet) {
  Inks inks;
  for (const Exiv2::Xmpdatum& property : decoded(packet)) {
    if (!setFieldOf(property, "inks[", inks)) setFieldOf(property, "coverage[", inks);
  }
  return inks;
}

Fonts fontsByExiv2(const std::string& packet) {
  Fonts fonts;
  for (const Exiv2::Xmpdatum& property : decoded(packet)) setFieldOf(property, "fonts[", fonts);
  return fonts;
}

}  // namespace bench

// SPDX-License-Identifier: Apache-2.0
// The same reading through other libraries.
#pragma once

#include <memory>
#include <string>

#include "records.h"

namespace bench {

// A parsed packet, read by path.
class ExempiPacket {
 public:
  explicit ExempiPacket(const std::string& packet);

  Inks readInks() const;
  Fonts readFonts() const;
  Refs readRefs() const;

 private:
  std::shared_ptr<void> xmp_;  // an XmpPtr
};

// Parsed and walked, all properties once.
Inks inksByExiv2(const std::string& packet);
Fonts fontsByExiv2(const std::string& packet);

// The XML parser alone, which the toolkit parses with: no namespaces, handlers that do nothing.
void parseByExpat(const std::string& packet);

// The floor: XML without XMP. Reads packets in the one form that the toolkit writes.
Inks inksByPugixml(const std::string& packet);
Fonts fontsByPugixml(const std::string& packet);

}  // namespace bench

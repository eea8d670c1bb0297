// SPDX-License-Identifier: Apache-2.0
#include <expat.h>

#include <stdexcept>

#include "peers.h"

namespace bench {

void parseByExpat(const std::string& packet) {
  const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate(nullptr),
                                                                       XML_ParserFree);
  XML_SetElementHandler(
      parser.get(), [](void*, const char*, const char**) {}, [](void*, const char*) {});
  XML_SetCharacterDataHandler(parser.get(), [](void*, const char*, int) {});
  if (XML_Parse(parser.get(), packet.data(), static_cast<int>(packet.size()), 1) ==
      XML_STATUS_ERROR) {
    throw std::runtime_error("expat refused the packet");
  }
}

}  // namespace bench

// SPDX-License-Identifier: Apache-2.0
#include "checks/standard_properties.h"

namespace vxmeta {

StandardPdfData standardPdfData(const StoredProperties& stored) {
  const auto textAt = [&](std::string_view name) {
    const std::string* text = textOf(stored.property(name));
    return text == nullptr ? std::string() : *text;
  };
  return {textAt("dc:title"), textAt("pdf:Producer"), textAt("pdf:Trapped")};
}

}  // namespace vxmeta

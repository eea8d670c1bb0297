// SPDX-License-Identifier: Apache-2.0
// Properties of standard schemas that the library writes and does not read.
#pragma once

#include <string>

#include "model/stored.h"

namespace vxmeta {

// What the packet says of the PDF; absent fields are empty.
struct StandardPdfData {
  std::string title;     // dc:title, in the default language
  std::string producer;  // pdf:Producer
  std::string trapped;   // pdf:Trapped: "True", "False", "Unknown"
};

StandardPdfData standardPdfData(const StoredProperties& stored);

}  // namespace vxmeta

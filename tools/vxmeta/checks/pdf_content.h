// SPDX-License-Identifier: Apache-2.0
// The colours that a content stream sets by itself, without a resource.
#pragma once

#include <string>

namespace vxmeta {

struct ContentColours {
  bool cmyk = false;  // DeviceCMYK
  bool gray = false;  // DeviceGray
};

ContentColours coloursIn(const std::string& content);

}  // namespace vxmeta

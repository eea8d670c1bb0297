// SPDX-License-Identifier: Apache-2.0
// Three-way fields: an empty text leaves the stored property as it is, a single blank deletes it,
// any other text replaces it.
#pragma once

#include <string>

#include "core/properties.h"

namespace xmpl {

inline constexpr const char* kErase = " ";

inline void writeThreeWay(const PropertyWriter& properties, PropertyPath name,
                          const std::string& text) {
  if (text.empty()) return;
  if (text == kErase) {
    properties.remove(name);
  } else {
    properties.text(name, text);
  }
}

// As above; "now" is the date and time `now`.
inline void writeThreeWayDate(const PropertyWriter& properties, PropertyPath name,
                              const std::string& text, const XMP_DateTime& now) {
  if (text == "now") {
    properties.date(name, now);
  } else {
    writeThreeWay(properties, name, text);
  }
}

// Taken once a call, so that all its dates are identical.
inline XMP_DateTime currentDateTime() {
  XMP_DateTime now;
  ToolkitUtils::CurrentDateTime(&now);
  return now;
}

}  // namespace xmpl

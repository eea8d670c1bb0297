// SPDX-License-Identifier: Apache-2.0
// Colour space: simple properties
//   vxGr:colorprofloc   text, one of four locations
//   vxGr:colorprofname  text
//   vxGr:colorprofdesc  text
#include <algorithm>
#include <iterator>

#include "core/call_guard.h"
#include "core/properties.h"

using xmpl::Metadata;
using xmpl::PropertyReader;
using xmpl::PropertyWriter;

namespace {

constexpr const char* kLocations[] = {"Untagged", "PDFOutputIntent", "VXEmbedded", "VXDatabase"};

bool isLocation(const std::string& text) {
  return std::find(std::begin(kLocations), std::end(kLocations), text) != std::end(kLocations);
}

}  // namespace

bool XMPlib::GetColorSpace(XMPlColorSpace& colours) const {
  colours = XMPlColorSpace();
  return guarded([&](const Metadata& metadata) {
    const PropertyReader properties(metadata);
    properties.text("vxGr:colorprofloc", colours.colorprofloc);
    properties.text("vxGr:colorprofname", colours.colorprofname);
    return properties.text("vxGr:colorprofdesc", colours.colorprofdesc);
  });
}

bool XMPlib::SetColorSpace(const XMPlColorSpace& colours) {
  return guarded([&](Metadata& metadata) {
    if (!isLocation(colours.colorprofloc)) {
      errStr = "Illegal value for profile location";
      return false;
    }
    const PropertyWriter properties(metadata);
    properties.text("vxGr:colorprofloc", colours.colorprofloc);
    properties.text("vxGr:colorprofname", colours.colorprofname);
    properties.text("vxGr:colorprofdesc", colours.colorprofdesc);
    return true;
  });
}

// SPDX-License-Identifier: Apache-2.0
// CAD registration: simple properties, all required.
#include "core/call_guard.h"
#include "core/properties.h"

namespace {

constexpr auto kCadRegFields = [](const auto& properties, auto& registration) {
  return properties.text("vxCadReg:instanceID", registration.instanceID) &&
         properties.text("vxCadReg:renditionClass", registration.renditionClass) &&
         properties.text("vxCadReg:stationname", registration.stationname) &&
         properties.integer("vxCadReg:orientation", registration.orientation) &&
         properties.real("vxCadReg:orgX", registration.orgX) &&
         properties.real("vxCadReg:orgY", registration.orgY);
};

}  // namespace

bool XMPlCadReg::operator==(const XMPlCadReg& other) const {
  return instanceID == other.instanceID && renditionClass == other.renditionClass &&
         stationname == other.stationname && orientation == other.orientation &&
         orgX == other.orgX && orgY == other.orgY;
}

bool XMPlib::GetCadReg(XMPlCadReg& registration) const {
  return guarded([&](const xmpl::Metadata& metadata) {
    return kCadRegFields(xmpl::PropertyReader(metadata), registration);
  });
}

bool XMPlib::SetCadReg(XMPlCadReg& registration) {
  return guarded([&](xmpl::Metadata& metadata) {
    return kCadRegFields(xmpl::PropertyWriter(metadata), registration);
  });
}

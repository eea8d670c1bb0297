// CAD registration: simple properties, all required
//   vxCadReg:instanceID      text
//   vxCadReg:renditionClass  text
//   vxCadReg:stationname     text
//   vxCadReg:orientation     integer
//   vxCadReg:orgX, orgY      real
#include "core/call_guard.h"
#include "core/properties.h"

using xmpl::Metadata;
using xmpl::PropertyReader;
using xmpl::PropertyWriter;

bool XMPlCadReg::operator==(const XMPlCadReg& other) const {
  return instanceID == other.instanceID && renditionClass == other.renditionClass &&
         stationname == other.stationname && orientation == other.orientation &&
         orgX == other.orgX && orgY == other.orgY;
}

bool XMPlib::GetCadReg(XMPlCadReg& registration) const {
  return guarded([&](const Metadata& metadata) {
    const PropertyReader properties(metadata);
    return properties.text("vxCadReg:instanceID", registration.instanceID) &&
           properties.text("vxCadReg:renditionClass", registration.renditionClass) &&
           properties.text("vxCadReg:stationname", registration.stationname) &&
           properties.integer("vxCadReg:orientation", registration.orientation) &&
           properties.real("vxCadReg:orgX", registration.orgX) &&
           properties.real("vxCadReg:orgY", registration.orgY);
  });
}

bool XMPlib::SetCadReg(XMPlCadReg& registration) {
  return guarded([&](Metadata& metadata) {
    const PropertyWriter properties(metadata);
    properties.text("vxCadReg:instanceID", registration.instanceID);
    properties.text("vxCadReg:renditionClass", registration.renditionClass);
    properties.text("vxCadReg:stationname", registration.stationname);
    properties.integer("vxCadReg:orientation", registration.orientation);
    properties.real("vxCadReg:orgX", registration.orgX);
    properties.real("vxCadReg:orgY", registration.orgY);
    return true;
  });
}

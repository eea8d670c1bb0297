// Base document: the structure vxPrF:DerivedFrom
//   stRef:instanceID      text, required
//   stRef:renditionClass  text, required
#include "core/call_guard.h"
#include "core/properties.h"

using xmpl::Metadata;
using xmpl::PropertyReader;
using xmpl::PropertyWriter;

bool XMPlib::GetBaseDoc(XMPlExtRef& base) const {
  return guarded([&](const Metadata& metadata) {
    const PropertyReader properties(metadata);
    return properties.text("vxPrF:DerivedFrom/stRef:instanceID", base.instanceID) &&
           properties.text("vxPrF:DerivedFrom/stRef:renditionClass", base.renditionClass);
  });
}

bool XMPlib::SetBaseDoc(const XMPlExtRef& base) {
  return guarded([&](Metadata& metadata) {
    const PropertyWriter properties(metadata);
    properties.text("vxPrF:DerivedFrom/stRef:instanceID", base.instanceID);
    properties.text("vxPrF:DerivedFrom/stRef:renditionClass", base.renditionClass);
    return true;
  });
}

// SPDX-License-Identifier: Apache-2.0
// Base document: the structure vxPrF:DerivedFrom
//   stRef:instanceID      text, required
//   stRef:renditionClass  text, required
#include "core/call_guard.h"
#include "core/properties.h"

using xmpl::ItemReader;
using xmpl::Metadata;
using xmpl::PropertyReader;
using xmpl::PropertyWriter;

bool XMPlib::GetBaseDoc(XMPlExtRef& base) const {
  return guarded([&](const Metadata& metadata) {
    const ItemReader fields = PropertyReader(metadata).structure("vxPrF:DerivedFrom");
    return fields.text("stRef:instanceID", base.instanceID) &&
           fields.text("stRef:renditionClass", base.renditionClass);
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

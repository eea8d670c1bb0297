// SPDX-License-Identifier: Apache-2.0
// Page dimensions: simple properties, all required
//   vxGr:units                                               text
//   vxGr:vsize, hsize                                        real
//   vxGr:margtop, margbot, margleft, margright               real
//   vxGr:vshrink, hshrink                                    real
//   vxGr:readerspread                                        boolean
#include "core/call_guard.h"
#include "core/properties.h"

using xmpl::Metadata;
using xmpl::PropertyReader;
using xmpl::PropertyWriter;

// The order of reading is not that of writing; it decides what a failed Get has filled.
bool XMPlib::GetDimDat(XMPlDimDat& dimensions) const {
  return guarded([&](const Metadata& metadata) {
    const PropertyReader properties(metadata);
    return properties.real("vxGr:vsize", dimensions.vsize) &&
           properties.real("vxGr:hsize", dimensions.hsize) &&
           properties.real("vxGr:margbot", dimensions.margbot) &&
           properties.real("vxGr:margtop", dimensions.margtop) &&
           properties.real("vxGr:margleft", dimensions.margleft) &&
           properties.real("vxGr:margright", dimensions.margright) &&
           properties.real("vxGr:vshrink", dimensions.vshrink) &&
           properties.real("vxGr:hshrink", dimensions.hshrink) &&
           properties.text("vxGr:units", dimensions.units) &&
           properties.boolean("vxGr:readerspread", dimensions.readerspread);
  });
}

bool XMPlib::SetDimDat(const XMPlDimDat& dimensions) {
  return guarded([&](Metadata& metadata) {
    const PropertyWriter properties(metadata);
    properties.text("vxGr:units", dimensions.units);
    properties.real("vxGr:vsize", dimensions.vsize);
    properties.real("vxGr:hsize", dimensions.hsize);
    properties.real("vxGr:margtop", dimensions.margtop);
    properties.real("vxGr:margbot", dimensions.margbot);
    properties.real("vxGr:margleft", dimensions.margleft);
    properties.real("vxGr:margright", dimensions.margright);
    properties.real("vxGr:vshrink", dimensions.vshrink);
    properties.real("vxGr:hshrink", dimensions.hshrink);
    properties.boolean("vxGr:readerspread", dimensions.readerspread);
    return true;
  });
}

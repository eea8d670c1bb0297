// SPDX-License-Identifier: Apache-2.0
// Product data: simple properties
//   vxProd:id               text
//   vxProd:prodname         text
//   vxProd:prodid           text
//   vxProd:proddescription  text
//   vxProd:partid           text
//   vxProd:prodpartname     text
//   vxProd:prodpartid       text
#include "core/call_guard.h"
#include "core/properties.h"
#include "document/three_way.h"

using xmpl::Metadata;
using xmpl::PropertyReader;
using xmpl::PropertyWriter;
using xmpl::writeThreeWay;

bool XMPlib::GetProdData(XMPlProdData& product) const {
  return guarded([&](const Metadata& metadata) {
    const PropertyReader properties(metadata);
    bool found = properties.textOrEmpty("vxProd:id", product.id);
    found |= properties.textOrEmpty("vxProd:prodname", product.prodname);
    found |= properties.textOrEmpty("vxProd:prodid", product.prodid);
    found |= properties.textOrEmpty("vxProd:proddescription", product.proddescription);
    found |= properties.textOrEmpty("vxProd:partid", product.partid);
    found |= properties.textOrEmpty("vxProd:prodpartname", product.prodpartname);
    found |= properties.textOrEmpty("vxProd:prodpartid", product.prodpartid);
    return found;
  });
}

bool XMPlib::SetProdData(const XMPlProdData& product) {
  return guarded([&](Metadata& metadata) {
    const PropertyWriter properties(metadata);
    writeThreeWay(properties, "vxProd:id", product.id);
    writeThreeWay(properties, "vxProd:prodname", product.prodname);
    writeThreeWay(properties, "vxProd:prodid", product.prodid);
    writeThreeWay(properties, "vxProd:proddescription", product.proddescription);
    writeThreeWay(properties, "vxProd:partid", product.partid);
    writeThreeWay(properties, "vxProd:prodpartname", product.prodpartname);
    writeThreeWay(properties, "vxProd:prodpartid", product.prodpartid);
    return true;
  });
}

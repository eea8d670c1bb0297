// SPDX-License-Identifier: Apache-2.0
// Job data: the standard job reference, xmpBJ:JobRef, an unordered array of structures
//   stLoc:name         text  (read from the last item, written to the first)
//   stLoc:id           text
//   stLoc:url          text
// and simple properties
//   vxJob:description  text
//   vxJob:orderid      text
//   vxJob:suborderid   text
#include "core/call_guard.h"
#include "core/properties.h"
#include "document/three_way.h"

using xmpl::ItemReader;
using xmpl::Metadata;
using xmpl::PropertyReader;
using xmpl::PropertyWriter;
using xmpl::writeThreeWay;

// Deliberate: reads the last job reference, while SetJobData writes the first.
bool XMPlib::GetJobData(XMPlJobData& job) const {
  return guarded([&](const Metadata& metadata) {
    const PropertyReader properties(metadata);
    const ItemReader last = properties.array("xmpBJ:JobRef").last();
    bool found = last.textOrEmpty("stLoc:name", job.name);
    found |= last.textOrEmpty("stLoc:id", job.id);
    found |= last.textOrEmpty("stLoc:url", job.url);
    found |= properties.textOrEmpty("vxJob:description", job.description);
    found |= properties.textOrEmpty("vxJob:orderid", job.orderid);
    found |= properties.textOrEmpty("vxJob:suborderid", job.suborderid);
    return found;
  });
}

bool XMPlib::SetJobData(const XMPlJobData& job) {
  return guarded([&](Metadata& metadata) {
    const PropertyWriter properties(metadata);
    if (!PropertyReader(metadata).exists("xmpBJ:JobRef")) {
      properties.emptyArray("xmpBJ:JobRef", xmpl::ArrayKind::unordered);
      properties.emptyStructure("xmpBJ:JobRef[1]");
    }
    writeThreeWay(properties, "xmpBJ:JobRef[1]/stLoc:name", job.name);
    writeThreeWay(properties, "xmpBJ:JobRef[1]/stLoc:id", job.id);
    writeThreeWay(properties, "xmpBJ:JobRef[1]/stLoc:url", job.url);
    writeThreeWay(properties, "vxJob:orderid", job.orderid);
    writeThreeWay(properties, "vxJob:suborderid", job.suborderid);
    writeThreeWay(properties, "vxJob:description", job.description);
    return true;
  });
}

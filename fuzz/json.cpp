// SPDX-License-Identifier: Apache-2.0
// JSON, applied to a document without records and to one with some: it is refused, or what has
// become of the document is a document, whose own JSON changes nothing.
#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "model/json_text.h"
#include "model/read_document.h"
#include "model/write_document.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using namespace vxmeta;

Writing apply(const std::string& json, XMPlib& xmp) {
  Edit edit(readDocument(xmp, {}));
  putJson(edit, json);
  settleSharedProperties(edit);
  return writeDocument(edit, false, xmp);
}

// Whether it was applied.
bool isApplied(const std::string& json, XMPlib& xmp) {
  try {
    apply(json, xmp);
    return true;
  } catch (const JsonTextError&) {
    return false;
  } catch (const EditError&) {
    return false;
  } catch (const LossError&) {
    return false;
  }
}

void expectSettled(const std::string& packet) {
  XMPlib xmp;
  loadPacket(packet, xmp);
  const std::string json = jsonText(toJson(viewOf(readDocument(xmp, {}))), false);
  if (apply(json, xmp).written.empty()) return;
  std::fprintf(stderr, "Broken promise: a document's own JSON changes nothing\n%s\n", json.c_str());
  std::abort();
}

XMPlib withRecords() {
  XMPlib xmp;
  XMPlInk ink;
  ink.name = "Gold";
  xmp.SetInks({ink, ink}, true);
  xmp.SetLayers({{"a", true, false}});
  xmp.SetDimDat({});
  xmp.SetVDPVersion(2);
  XMPlJobData job;
  job.orderid = "1";
  xmp.SetJobData(job);
  return xmp;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string json(reinterpret_cast<const char*>(data), size);
  XMPlib bare;
  XMPlib filled = withRecords();
  for (XMPlib* xmp : {&bare, &filled}) {
    if (isApplied(json, *xmp)) expectSettled(xmp->GetXML());
  }
  return 0;
}

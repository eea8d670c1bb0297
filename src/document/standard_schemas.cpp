// SPDX-License-Identifier: Apache-2.0
// Standard-schema data, written for other tools: simple properties, and a language alternative
//   pdf:Producer            text
//   pdfxid:GTS_PDFXVersion  text
//   dc:title                its default language
//   pdf:Trapped             boolean
//   xmpMM:DocumentID        text
//   xmpMM:VersionID         text
//   xmpMM:DerivedFrom       text
//   xmpMM:RenditionClass    text
#include "core/call_guard.h"
#include "core/properties.h"

using xmpl::Metadata;
using xmpl::PropertyName;
using xmpl::PropertyWriter;

namespace {

void writeOrRemove(const PropertyWriter& properties, PropertyName name, const std::string& text) {
  if (text.empty()) {
    properties.remove(name);
  } else {
    properties.text(name, text);
  }
}

void writeTitle(const PropertyWriter& properties, const std::string& title) {
  if (title.empty()) {
    properties.remove("dc:title");
  } else {
    properties.defaultLanguage("dc:title", title);
  }
}

}  // namespace

bool XMPlib::SetPDFData(const XMPlPDFData& data) {
  return guarded([&](Metadata& metadata) {
    const PropertyWriter properties(metadata);
    writeOrRemove(properties, "pdf:Producer", data.producer);
    writeOrRemove(properties, "pdfxid:GTS_PDFXVersion", data.pdfxVersion);
    writeTitle(properties, data.title);
    if (data.trappedValid) {
      properties.boolean("pdf:Trapped", data.trapped);
    } else {
      properties.remove("pdf:Trapped");
    }
    return true;
  });
}

bool XMPlib::SetMMData(const XMPlMMData& data) {
  return guarded([&](Metadata& metadata) {
    const PropertyWriter properties(metadata);
    writeOrRemove(properties, "xmpMM:DocumentID", data.documentID);
    writeOrRemove(properties, "xmpMM:VersionID", data.versionID);
    writeOrRemove(properties, "xmpMM:DerivedFrom", data.derivedFrom);
    writeOrRemove(properties, "xmpMM:RenditionClass", data.renditionClass);
    return true;
  });
}

// SPDX-License-Identifier: Apache-2.0
// Document data: simple properties, and a language alternative
//   xmp:BaseURL       text
//   xmp:CreateDate    text, a date
//   xmp:CreatorTool   text
//   dc:description    its default language; xmp:Description is an alias of it
//   xmp:MetadataDate  text, a date
//   xmp:ModifyDate    text, a date
// Document version: simple properties of the version structure's own namespace
//   stVer:comments    text
//   stVer:modifyDate  text, a date
//   stVer:modifier    text
//   stVer:version     text
#include "core/call_guard.h"
#include "core/properties.h"
#include "core/toolkit/tree.h"
#include "document/three_way.h"

using xmpl::Metadata;
using xmpl::PropertyReader;
using xmpl::PropertyWriter;
using xmpl::writeThreeWay;
using xmpl::writeThreeWayDate;

namespace {

// Three-way, for all languages of the description at once.
void writeDescription(const PropertyWriter& properties, const std::string& description) {
  if (description.empty()) return;
  xmpl::refuseBadText(description.c_str());  // before the old one goes
  properties.remove("dc:description");
  if (description != xmpl::kErase) properties.defaultLanguage("dc:description", description);
}

}  // namespace

bool XMPlib::GetDocumentData(XMPlDocData& data) const {
  return guarded([&](const Metadata& metadata) {
    const PropertyReader properties(metadata);
    bool found = properties.textOrEmpty("xmp:BaseURL", data.baseURL);
    found |= properties.textOrEmpty("xmp:CreateDate", data.createDate);
    found |= properties.textOrEmpty("xmp:CreatorTool", data.creatorTool);
    found |= properties.array("dc:description").defaultTextOrEmpty(data.description);
    found |= properties.textOrEmpty("xmp:MetadataDate", data.metadataDate);
    found |= properties.textOrEmpty("xmp:ModifyDate", data.modifyDate);
    return found;
  });
}

bool XMPlib::SetDocumentData(const XMPlDocData& data) {
  return guarded([&](Metadata& metadata) {
    const XMP_DateTime now = xmpl::currentDateTime();
    const PropertyWriter properties(metadata);
    writeThreeWay(properties, "xmp:BaseURL", data.baseURL);
    writeThreeWayDate(properties, "xmp:CreateDate", data.createDate, now);
    writeThreeWay(properties, "xmp:CreatorTool", data.creatorTool);
    writeDescription(properties, data.description);
    writeThreeWayDate(properties, "xmp:MetadataDate", data.metadataDate, now);
    writeThreeWayDate(properties, "xmp:ModifyDate", data.modifyDate, now);
    return true;
  });
}

// Deliberate: the stored comments go into `version` and are overwritten there by the version, so
// that `comments` is never filled.
bool XMPlib::GetDocumentVersion(XMPlDocVersion& version) const {
  return guarded([&](const Metadata& metadata) {
    const PropertyReader properties(metadata);
    bool found = properties.textOrEmpty("stVer:comments", version.version);
    found |= properties.textOrEmpty("stVer:modifyDate", version.modifyDate);
    found |= properties.textOrEmpty("stVer:modifier", version.modifier);
    found |= properties.textOrEmpty("stVer:version", version.version);
    return found;
  });
}

bool XMPlib::SetDocumentVersion(const XMPlDocVersion& version) {
  return guarded([&](Metadata& metadata) {
    const XMP_DateTime now = xmpl::currentDateTime();
    const PropertyWriter properties(metadata);
    writeThreeWay(properties, "stVer:comments", version.comments);
    writeThreeWayDate(properties, "stVer:modifyDate", version.modifyDate, now);
    writeThreeWay(properties, "stVer:modifier", version.modifier);
    writeThreeWay(properties, "stVer:version", version.version);
    return true;
  });
}

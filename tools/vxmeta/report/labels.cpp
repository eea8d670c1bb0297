// SPDX-License-Identifier: Apache-2.0
// Names of fields for people, where the field's own name is none.
#include <algorithm>
#include <iterator>

#include "report/tables.h"

namespace vxmeta {
namespace {

struct Label {
  std::string_view name;
  std::string_view label;
};

constexpr Label kLabels[] = {
    {"backpage", "back page"},
    {"barWidthReduction", "bar width reduction"},
    {"baseURL", "base URL"},
    {"code2", "second code"},
    {"colorprofdesc", "description"},
    {"colorprofloc", "profile"},
    {"colorprofname", "name"},
    {"createDate", "created"},
    {"creatorTool", "made with"},
    {"derivedFrom", "derived from"},
    {"deviceCompensation", "device compensation"},
    {"digitalFilmVersion", "film version"},
    {"digitalJobVersion", "digital job version"},
    {"documentID", "document ID"},
    {"fontfile", "font file"},
    {"frontpage", "front page"},
    {"hdist", "dot distance, horizontal"},
    {"hnr", "columns"},
    {"hresolution", "resolution, horizontal"},
    {"hscale", "scale, horizontal"},
    {"hshrink", "shrink, horizontal"},
    {"hsize", "width"},
    {"id", "ID"},
    {"inknrsoriginal", "original number"},
    {"instanceID", "file"},
    {"isTrapped", "trapped"},
    {"margbot", "margin, bottom"},
    {"margleft", "margin, left"},
    {"margright", "margin, right"},
    {"margtop", "margin, top"},
    {"metadataDate", "metadata changed"},
    {"modifier", "by"},
    {"modifyDate", "changed"},
    {"nrInksOriginalDocument", "inks of the original"},
    {"nrPages", "pages"},
    {"orderid", "order"},
    {"orgX", "origin X"},
    {"orgY", "origin Y"},
    {"pagenr", "page"},
    {"partid", "part entry"},
    {"pdfNativeType", "native PDF type"},
    {"pdfNativeVersion", "native PDF version"},
    {"pdfNativeVindrelVersion", "native PDF, RIP version"},
    {"pdfxVersion", "PDF/X"},
    {"printingmethod", "printed by"},
    {"proddescription", "description"},
    {"prodid", "product ID"},
    {"prodname", "product"},
    {"prodpartid", "part ID"},
    {"prodpartname", "part"},
    {"readerspread", "reader spread"},
    {"rectoVerso", "sides"},
    {"renditionClass", "rendition"},
    {"scanlinedirection", "scan direction"},
    {"screenReg", "screen registration"},
    {"smartID", "smart ID"},
    {"startLogPage", "first logical page"},
    {"stationname", "station"},
    {"suborderid", "sub-order"},
    {"symbolType", "symbology"},
    {"url", "location"},
    {"vdist", "dot distance, vertical"},
    {"vdpVersion", "variable data version"},
    {"versionID", "version ID"},
    {"vnr", "rows"},
    {"vresolution", "resolution, vertical"},
    {"vscale", "scale, vertical"},
    {"vshrink", "shrink, vertical"},
    {"vsize", "height"},
    {"vxname", "system name"},
};

}  // namespace

std::string labelOf(const Field& field) {
  const auto* found = std::find_if(std::begin(kLabels), std::end(kLabels),
                                   [&](const Label& label) { return label.name == field.name; });
  return std::string(found == std::end(kLabels) ? field.name : found->label);
}

}  // namespace vxmeta

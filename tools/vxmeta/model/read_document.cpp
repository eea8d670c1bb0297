// SPDX-License-Identifier: Apache-2.0
#include "model/read_document.h"

#include <XMP_Const.h>

#include <algorithm>
#include <functional>
#include <map>

#include "files/encoding.h"
#include "model/reading.h"

namespace vxmeta {
namespace {

using X = XMPlib;

// A section and how it is read.
struct Section {
  std::string_view name;
  void (*read)(Reading&, Document&);
};

void readScalars(Reading& in, Document& document) {
  Scalars all;
  in.scalar("scalars.nrPages", &X::GetNrPages, all.nrPages);
  in.scalar("scalars.screenReg", &X::GetScreenReg, all.screenReg);
  in.scalar("scalars.isTrapped", &X::GetIsTrapped, all.isTrapped);
  in.scalar("scalars.startLogPage", &X::GetStartLogPage, all.startLogPage);
  in.scalar("scalars.smartID", &X::GetSmartID, all.smartID);
  in.scalar("scalars.rectoVerso", &X::GetRectoVerso, all.rectoVerso);
  in.scalar("scalars.pdfNativeVersion", &X::GetPDFNativeVersion, all.pdfNativeVersion);
  in.scalar("scalars.pdfNativeType", &X::GetPDFNativeType, all.pdfNativeType);
  in.scalar("scalars.pdfNativeVindrelVersion", &X::GetPDFNativeVindrelVersion,
            all.pdfNativeVindrelVersion);
  in.scalar("scalars.digitalFilmVersion", &X::GetDigitalFilmVersion, all.digitalFilmVersion);
  in.scalar("scalars.nrInksOriginalDocument", &X::GetNrInksOriginalDocument,
            all.nrInksOriginalDocument);
  in.scalar("scalars.digitalJobVersion", &X::GetDigitalJobVersion, all.digitalJobVersion);
  in.scalar("scalars.vdpVersion", &X::GetVDPVersion, all.vdpVersion);
  setUnlessBare(document.scalars, std::move(all));
}

void readFilm(Reading& in, Document& document) {
  Film film;
  in.scalar("film.version", &X::GetDigitalFilmVersionDetailed, film.version);
  in.scalar("film.dimensions", &X::GetDimDatDigFilm, film.dimensions);
  film.inks = in.inks().film;
  in.list("vxDigFilmRefs:files", &X::GetUsedDigitalJobRefs, film.jobReferences);
  film.metadata = in.filmMetadata();
  setUnlessBare(document.film, std::move(film));
}

void readScreens(Reading& in, Document& document) {
  in.list("vxScreenC:screenContainer", &X::GetScreenContainer, document.screens);
  if (document.screens && !document.screens->empty()) return in.passOver("vxScreenL:screens");
  std::optional<std::vector<XMPlScreen>> older;
  in.list("vxScreenL:screens",
          static_cast<bool (X::*)(std::vector<XMPlScreen>&) const>(&X::GetScreens), older);
  if (older) document.screens = {std::move(*older)};
}

void readColorSpace(Reading& in, Document& document) {
  XMPlColorSpace colours;
  // Its Get answers for the description alone.
  const bool isFound = in.call("colorSpace", &X::GetColorSpace, colours);
  const bool isThere = isFound || in.holds("vxGr:colorprofloc") || in.holds("vxGr:colorprofname");
  if (isThere) document.colorSpace = std::move(colours);
}

void readExtRefs(Reading& in, Document& document) {
  const auto get = [](const X& xmp, std::vector<XMPlExtRef>& refs) {
    return xmp.GetExtRefs(refs, true);
  };
  in.list("vxExtFL2:files", get, document.extRefs);
  if (in.hasCurrentRefs()) in.passOver("vxExtFL:files");
  if (!document.extRefs) in.list("vxExtFL:files", &X::GetOldExtRefs, document.extRefs);
  if (document.extRefs && in.wanted().expandRefs) in.expand(*document.extRefs);
}

constexpr bool (X::*kGetFonts)(std::vector<XMPlFont>&) const = &X::GetFonts;

constexpr Section kSections[] = {
    {"scalars", readScalars},
    {"job", [](Reading& in, Document& to) { in.scalar("job", &X::GetJobData, to.job); }},
    {"product",
     [](Reading& in, Document& to) { in.scalar("product", &X::GetProdData, to.product); }},
    {"document",
     [](Reading& in, Document& to) { in.scalar("document", &X::GetDocumentData, to.document); }},
    {"version",
     [](Reading& in, Document& to) { in.scalar("version", &X::GetDocumentVersion, to.version); }},
    {"baseDocument",
     [](Reading& in, Document& to) { in.scalar("baseDocument", &X::GetBaseDoc, to.baseDocument); }},
    {"page", [](Reading& in, Document& to) { in.scalar("page", &X::GetDimDat, to.page); }},
    {"film", readFilm},
    {"colorSpace", readColorSpace},
    {"inks", [](Reading& in, Document& to) { to.inks = in.inks().document; }},
    {"inkProperties",
     [](Reading& in, Document& to) {
       in.list("vxGr:inkproperties", &X::GetInkProperties, to.inkProperties);
     }},
    {"screens", readScreens},
    {"dgcs", [](Reading& in, Document& to) { in.list("vxDGCL:dgcs", &X::GetDgcs, to.dgcs); }},
    {"usedRefs",
     [](Reading& in, Document& to) { in.list("vxUsedFL:files", &X::GetUsedRefs, to.usedRefs); }},
    {"extRefs", readExtRefs},
    {"cadFiles",
     [](Reading& in, Document& to) { in.list("vxCadL:files", &X::GetCadFiles, to.cadFiles); }},
    {"fonts", [](Reading& in, Document& to) { in.list("vxFontL:fonts", kGetFonts, to.fonts); }},
    {"barcodes",
     [](Reading& in, Document& to) { in.list("vxBarcL:barcodes", &X::GetBarcodes, to.barcodes); }},
    {"layers",
     [](Reading& in, Document& to) { in.list("vxLayL:layers", &X::GetLayers, to.layers); }},
    {"pageRanges",
     [](Reading& in, Document& to) {
       in.list("vxPagL:pagelist", &X::GetPagRanges, to.pageRanges);
     }},
    {"smartNames",
     [](Reading& in, Document& to) {
       in.list("vxSmNameL:smartnames", &X::GetSmartNames, to.smartNames);
     }},
    {"repeats",
     [](Reading& in, Document& to) { in.list("vxSrLayout:repeats", &X::GetRepeats, to.repeats); }},
    {"cadRegistration",
     [](Reading& in, Document& to) {
       in.scalar("cadRegistration", &X::GetCadReg, to.cadRegistration);
     }},
    {"pdfData", [](Reading& in, Document& to) { to.pdfData = in.pdfData(); }},
    {"mmData", [](Reading& in, Document& to) { to.mmData = in.mmData(); }},
    {"foreign", [](Reading& in, Document& to) { to.foreign = in.foreign(); }},
    {"unread", [](Reading& in, Document& to) { to.unread = in.unread(to); }},
};

}  // namespace

Document readDocument(const XMPlib& xmp, const Wanted& wanted) {
  Document document;
  Reading reading(xmp, wanted);
  // What is unread shows only when all is read.
  const bool isAll = wanted.section.empty() || wanted.section == "unread";
  for (const Section& section : kSections) {
    if (isAll || section.name == wanted.section) section.read(reading, document);
  }
  return document;
}

void loadPacket(const std::string& text, XMPlib& xmp) {
  if (isUtf32(text)) {
    throw FileError("the packet is in UTF-32, which is not read; have it written in UTF-8");
  }
  xmp.SetXML(text);
  if (xmp.ErrStr().empty()) return;
  throw FileError("the packet cannot be read: " + xmp.ErrStr() +
                  "; have it written anew by the application that made it");
}

}  // namespace vxmeta

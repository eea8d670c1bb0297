// SPDX-License-Identifier: Apache-2.0
#include "document.h"

#include <functional>

namespace bench {
namespace {

class Digest {
 public:
  template <class... Values>
  void mix(const Values&... values) {
    ((sum_ = sum_ * 1099511628211U + std::hash<Values>{}(values)), ...);
  }
  std::size_t sum() const { return sum_; }

 private:
  std::size_t sum_ = 0;
};

void mixScalars(Digest& digest, const Document& d) {
  digest.mix(d.pages, d.firstPage, d.originalInks, d.nativeVersion, d.filmVersion, d.jobVersion,
             d.dataVersion, d.screenRegistration, d.trapped, d.smartId, d.sides, d.nativeType,
             d.ripVersion);
}

void mixTexts(Digest& digest, const Document& d) {
  digest.mix(d.job.name, d.job.id, d.job.url, d.job.description, d.job.orderid, d.job.suborderid);
  digest.mix(d.product.id, d.product.prodname, d.product.prodid, d.product.proddescription,
             d.product.partid, d.product.prodpartname, d.product.prodpartid);
  digest.mix(d.data.baseURL, d.data.createDate, d.data.modifyDate, d.data.metadataDate,
             d.data.creatorTool, d.data.description);
  digest.mix(d.version.modifyDate, d.version.modifier, d.version.version);
  digest.mix(d.film.version, d.film.structure, d.film.type);
  digest.mix(d.base.instanceID, d.base.renditionClass);
  digest.mix(d.colours.colorprofloc, d.colours.colorprofname, d.colours.colorprofdesc);
}

void mixNumbers(Digest& digest, const Document& d) {
  const XMPlDimDat& page = d.page;
  digest.mix(page.units, page.vsize, page.hsize, page.margtop, page.margbot, page.margleft,
             page.margright, page.vshrink, page.hshrink, page.readerspread);
  const XMPlDimDatDigFilm& film = d.filmPage;
  digest.mix(film.units, film.vsize, film.hsize, film.vresolution, film.hresolution, film.vdist,
             film.hdist, film.vscale, film.hscale, film.reverse, film.scanlinedirection,
             film.margtop, film.margbot, film.margleft, film.margright);
  const XMPlCadReg& registration = d.registration;
  digest.mix(registration.instanceID, registration.renditionClass, registration.stationname,
             registration.orientation, registration.orgX, registration.orgY);
}

void setScalars(XMPlib& xmp) {
  xmp.SetNrPages(2);
  xmp.SetScreenReg(true);
  xmp.SetIsTrapped(true);
  xmp.SetStartLogPage(3);
  xmp.SetSmartID("carton-1121");
  xmp.SetRectoVerso("both");
  xmp.SetPDFNativeVersion(4);
  xmp.SetPDFNativeType("artwork");
  xmp.SetPDFNativeVindrelVersion("12.1");
  xmp.SetDigitalFilmVersion(100);
  xmp.SetNrInksOriginalDocument(7);
  xmp.SetDigitalJobVersion(5);
  xmp.SetVDPVersion(6);
}

template <class Record>
using Get = bool (XMPlib::*)(std::vector<Record>&) const;

template <class Record>
std::size_t count(const XMPlib& xmp, Get<Record> get) {
  std::vector<Record> records;
  (xmp.*get)(records);
  return records.size();
}

}  // namespace

Document readDocument(const XMPlib& xmp) {
  Document d;
  xmp.GetNrPages(d.pages);
  xmp.GetScreenReg(d.screenRegistration);
  xmp.GetIsTrapped(d.trapped);
  xmp.GetStartLogPage(d.firstPage);
  xmp.GetSmartID(d.smartId);
  xmp.GetRectoVerso(d.sides);
  xmp.GetPDFNativeVersion(d.nativeVersion);
  xmp.GetPDFNativeType(d.nativeType);
  xmp.GetPDFNativeVindrelVersion(d.ripVersion);
  xmp.GetDigitalFilmVersion(d.filmVersion);
  xmp.GetNrInksOriginalDocument(d.originalInks);
  xmp.GetDigitalJobVersion(d.jobVersion);
  xmp.GetVDPVersion(d.dataVersion);
  xmp.GetJobData(d.job);
  xmp.GetProdData(d.product);
  xmp.GetDocumentData(d.data);
  xmp.GetDocumentVersion(d.version);
  xmp.GetDigitalFilmVersionDetailed(d.film);
  xmp.GetBaseDoc(d.base);
  xmp.GetDimDat(d.page);
  xmp.GetDimDatDigFilm(d.filmPage);
  xmp.GetColorSpace(d.colours);
  xmp.GetCadReg(d.registration);
  return d;
}

std::string documentPacket() {
  XMPlib xmp;
  setScalars(xmp);
  xmp.SetJobData({"Tea cartons", "J-4711", "job:4711", "Spring", "2026-1121", "3"});
  xmp.SetProdData({"1", "Green tea", "2", "Twenty bags", "3", "Carton", "4"});
  xmp.SetDocumentData({"file:/jobs", "2026-11-02", "2026-11-20", "2026-11-21", "Editor", "Tea"});
  xmp.SetDocumentVersion({"first", "2026-11-20", "prepress", "1.2"});
  xmp.SetDigitalFilmVersionDetailed({100, "Composite", "film"});
  xmp.SetBaseDoc({"file:/jobs/base.pdf", "default", -1, "", -1});
  xmp.SetDimDat({"mm", 182.5, 246, 3, 3.5, 4, 4.5, 0.98, 1.02, true});
  XMPlDimDatDigFilm film;
  film.vresolution = film.hresolution = 2400;
  film.basicOnly = false;
  xmp.SetDimDatDigFilm(film);
  xmp.SetColorSpace({"VXEmbedded", "CoatedBoard-300", "Offset on coated board"});
  XMPlCadReg registration{"file:/jobs/carton.ard", "default", "1", 90, 12.5, 7.25};
  xmp.SetCadReg(registration);
  return xmp.GetXMLPacket(false, 0);
}

std::size_t digest(const Document& document) {
  Digest digest;
  mixScalars(digest, document);
  mixTexts(digest, document);
  mixNumbers(digest, document);
  return digest.sum();
}

std::size_t readLists(const XMPlib& xmp) {
  using X = XMPlib;
  std::vector<XMPlExtRef> refs;
  std::vector<std::vector<XMPlScreen>> screens;
  xmp.GetExtRefs(refs, true);
  xmp.GetScreenContainer(screens);
  std::size_t total = refs.size();
  for (const std::vector<XMPlScreen>& group : screens) total += group.size();
  return total + count<XMPlInk>(xmp, &X::GetInks) + count(xmp, &X::GetInkProperties) +
         count(xmp, &X::GetDgcs) + count(xmp, &X::GetUsedRefs) + count(xmp, &X::GetCadFiles) +
         count<XMPlFont>(xmp, &X::GetFonts) + count(xmp, &X::GetBarcodes) +
         count(xmp, &X::GetLayers) + count(xmp, &X::GetPagRanges) + count(xmp, &X::GetSmartNames) +
         count(xmp, &X::GetRepeats);
}

}  // namespace bench

// SPDX-License-Identifier: Apache-2.0
// The document-level records and scalars with plain calls of the toolkit.
#include "by_hand_read.h"
#include "paths.h"

namespace bench::by_hand {
namespace {

constexpr const char* kBase = XMPLIB_BENCH_PRIVATE("prodfile/1.0/");
constexpr const char* kCad = XMPLIB_BENCH_PRIVATE("cadreg/1.0/");
constexpr const char* kFilm = XMPLIB_BENCH_PRIVATE("digfilmversion/1.0/");
constexpr const char* kJob = XMPLIB_BENCH_PRIVATE("jobinfo/1.0/");
constexpr const char* kNative = XMPLIB_BENCH_PRIVATE("pdfnatversion/1.0/");
constexpr const char* kProduct = XMPLIB_BENCH_PRIVATE("prodinfo/1.0/");

void readScalars(const Meta& meta, Document& d) {
  read(meta, kDocument, "vxGr:nrpages", d.pages);
  read(meta, kDocument, "vxGr:screenreg", d.screenRegistration);
  read(meta, kDocument, "vxGr:trapped", d.trapped);
  read(meta, kDocument, "vxGr:startlogpage", d.firstPage);
  read(meta, XMPLIB_BENCH_PRIVATE("smartid/1.0/"), "vxSmartID:id", d.smartId);
  read(meta, kDocument, "vxGr:sides", d.sides);
  read(meta, kNative, "vxPDFNat:version", d.nativeVersion);
  read(meta, kNative, "vxPDFNat:type", d.nativeType);
  read(meta, kNative, "vxPDFNat:vindrelversion", d.ripVersion);
  read(meta, kDocument, "vxGr:nrinksoriginal", d.originalInks);
  read(meta, XMPLIB_BENCH_PRIVATE("digjobversion/1.0/"), "vxDigJob:version", d.jobVersion);
  read(meta, XMPLIB_BENCH_PRIVATE("vdpinfo/1.0/"), "orvoVDP:version", d.dataVersion);
}

void readProduction(const Meta& meta, Document& d) {
  read(meta, kXMP_NS_XMP_BJ, "xmpBJ:JobRef/*[last()]/stLoc:name", d.job.name);
  read(meta, kXMP_NS_XMP_BJ, "xmpBJ:JobRef/*[last()]/stLoc:id", d.job.id);
  read(meta, kXMP_NS_XMP_BJ, "xmpBJ:JobRef/*[last()]/stLoc:url", d.job.url);
  read(meta, kJob, "vxJob:description", d.job.description);
  read(meta, kJob, "vxJob:orderid", d.job.orderid);
  read(meta, kJob, "vxJob:suborderid", d.job.suborderid);
  read(meta, kProduct, "vxProd:id", d.product.id);
  read(meta, kProduct, "vxProd:prodname", d.product.prodname);
  read(meta, kProduct, "vxProd:prodid", d.product.prodid);
  read(meta, kProduct, "vxProd:proddescription", d.product.proddescription);
  read(meta, kProduct, "vxProd:partid", d.product.partid);
  read(meta, kProduct, "vxProd:prodpartname", d.product.prodpartname);
  read(meta, kProduct, "vxProd:prodpartid", d.product.prodpartid);
  read(meta, kBase, "vxPrF:DerivedFrom/stRef:instanceID", d.base.instanceID);
  read(meta, kBase, "vxPrF:DerivedFrom/stRef:renditionClass", d.base.renditionClass);
}

void readDescription(const Meta& meta, Document& d) {
  constexpr const char* kVersion = kXMP_NS_XMP_ST_Version;
  read(meta, kXMP_NS_XMP, "xmp:BaseURL", d.data.baseURL);
  read(meta, kXMP_NS_XMP, "xmp:CreateDate", d.data.createDate);
  read(meta, kXMP_NS_XMP, "xmp:CreatorTool", d.data.creatorTool);
  read(meta, kXMP_NS_DC, "dc:description/*[@xml:lang='x-default']", d.data.description);
  read(meta, kXMP_NS_XMP, "xmp:MetadataDate", d.data.metadataDate);
  read(meta, kXMP_NS_XMP, "xmp:ModifyDate", d.data.modifyDate);
  read(meta, kVersion, "stVer:modifyDate", d.version.modifyDate);
  read(meta, kVersion, "stVer:modifier", d.version.modifier);
  read(meta, kVersion, "stVer:version", d.version.version);
  read(meta, kFilm, "vxDigFilm:version", d.film.version);
  read(meta, kFilm, "vxDigFilm:structure", d.film.structure);
  read(meta, kFilm, "vxDigFilm:type", d.film.type);
  d.filmVersion = d.film.version;
  read(meta, kDocument, "vxGr:colorprofloc", d.colours.colorprofloc);
  read(meta, kDocument, "vxGr:colorprofname", d.colours.colorprofname);
  read(meta, kDocument, "vxGr:colorprofdesc", d.colours.colorprofdesc);
}

void readPage(const Meta& meta, XMPlDimDat& page) {
  read(meta, kDocument, "vxGr:units", page.units);
  read(meta, kDocument, "vxGr:vsize", page.vsize);
  read(meta, kDocument, "vxGr:hsize", page.hsize);
  read(meta, kDocument, "vxGr:margtop", page.margtop);
  read(meta, kDocument, "vxGr:margbot", page.margbot);
  read(meta, kDocument, "vxGr:margleft", page.margleft);
  read(meta, kDocument, "vxGr:margright", page.margright);
  read(meta, kDocument, "vxGr:vshrink", page.vshrink);
  read(meta, kDocument, "vxGr:hshrink", page.hshrink);
  read(meta, kDocument, "vxGr:readerspread", page.readerspread);
}

// Page and film share properties: these are read once.
void readFilmPage(const Meta& meta, const XMPlDimDat& page, XMPlDimDatDigFilm& film) {
  film.units = page.units;
  film.vsize = page.vsize;
  film.hsize = page.hsize;
  film.margtop = page.margtop;
  film.margbot = page.margbot;
  film.margleft = page.margleft;
  film.margright = page.margright;
  read(meta, kDocument, "vxGr:vresolution", film.vresolution);
  read(meta, kDocument, "vxGr:hresolution", film.hresolution);
  read(meta, kDocument, "vxGr:vdist", film.vdist);
  read(meta, kDocument, "vxGr:hdist", film.hdist);
  read(meta, kDocument, "vxGr:vscale", film.vscale);
  read(meta, kDocument, "vxGr:hscale", film.hscale);
  read(meta, kDocument, "vxGr:reverse", film.reverse);
  read(meta, kDocument, "vxGr:scanlinedirection", film.scanlinedirection);
}

void readRegistration(const Meta& meta, XMPlCadReg& registration) {
  read(meta, kCad, "vxCadReg:instanceID", registration.instanceID);
  read(meta, kCad, "vxCadReg:renditionClass", registration.renditionClass);
  read(meta, kCad, "vxCadReg:stationname", registration.stationname);
  read(meta, kCad, "vxCadReg:orientation", registration.orientation);
  read(meta, kCad, "vxCadReg:orgX", registration.orgX);
  read(meta, kCad, "vxCadReg:orgY", registration.orgY);
}

}  // namespace

Document readDocument(const Meta& meta) {
  Document d;
  d.ripVersion = "undetermined";
  readScalars(meta, d);
  readProduction(meta, d);
  readDescription(meta, d);
  readPage(meta, d.page);
  readFilmPage(meta, d.page, d.filmPage);
  readRegistration(meta, d.registration);
  return d;
}

}  // namespace bench::by_hand

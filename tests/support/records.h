// Records by their fields.
#pragma once

#include <cmath>
#include <functional>
#include <tuple>

#include "support/packets.h"

// Every field, also those that operator== leaves out.
inline auto fieldsOf(XMPlInkBasic& r) {
  return std::tie(r.name, r.type, r.book, r.vxname, r.r, r.g, r.b, r.attribute, r.printingmethod);
}
inline auto fieldsOf(XMPlInk& r) {
  auto ink = std::tie(r.frequency, r.angle, r.dotshape, r.coverageValid, r.pct, r.mm2);
  return std::tuple_cat(fieldsOf(static_cast<XMPlInkBasic&>(r)), ink);
}
inline auto fieldsOf(XMPlInkDigFilm& r) {
  auto film = std::tie(r.opacity, r.inknrsoriginal);
  return std::tuple_cat(fieldsOf(static_cast<XMPlInkBasic&>(r)), film);
}
inline auto fieldsOf(XMPlInkProperty& r) {
  return std::tie(r.name, r.book, r.type, r.printingmethod);
}
inline auto fieldsOf(XMPlDgcc& r) { return std::tie(r.name, r.values); }
inline auto fieldsOf(XMPlUsedRef& r) { return std::tie(r.instanceID, r.renditionClass, r.pagenr); }
inline auto fieldsOf(XMPlScreen& r) {
  return std::tie(r.singlepressDGC, r.autoplateDGCreq, r.autoplateDGCLW, r.autoplateDGCCT,
                  r.autopressDGCreq, r.autopressDGCLW, r.autopressDGCCT, r.totalDGCCT, r.totalDGCLW,
                  r.gamma, r.usedrefs, r.hasScreening, r.frequencyreq, r.frequency, r.anglereq,
                  r.angle, r.dotshapereq, r.dotshape, r.dotname);
}
#define FIELDS_OF(Record, ...) \
  inline auto fieldsOf(Record& r) { return std::tie(__VA_ARGS__); }
FIELDS_OF(XMPlJobData, r.name, r.id, r.url, r.description, r.orderid, r.suborderid)
FIELDS_OF(XMPlProdData, r.id, r.prodname, r.prodid, r.proddescription, r.partid, r.prodpartname,
          r.prodpartid)
FIELDS_OF(XMPlDocData, r.baseURL, r.createDate, r.modifyDate, r.metadataDate, r.creatorTool,
          r.description)
FIELDS_OF(XMPlDocVersion, r.comments, r.modifyDate, r.modifier, r.version)
FIELDS_OF(XMPlDigFilmVersion, r.version, r.structure, r.type)
FIELDS_OF(XMPlDimDat, r.units, r.vsize, r.hsize, r.margtop, r.margbot, r.margleft, r.margright,
          r.vshrink, r.hshrink, r.readerspread)
FIELDS_OF(XMPlDimDatDigFilm, r.units, r.vsize, r.hsize, r.vresolution, r.hresolution, r.basicOnly,
          r.vdist, r.hdist, r.vscale, r.hscale, r.reverse, r.scanlinedirection, r.hasMargins,
          r.margtop, r.margbot, r.margleft, r.margright)
FIELDS_OF(XMPlPDFData, r.producer, r.title, r.pdfxVersion, r.trapped, r.trappedValid)
FIELDS_OF(XMPlMMData, r.documentID, r.versionID, r.derivedFrom, r.renditionClass)
FIELDS_OF(XMPlColorSpace, r.colorprofloc, r.colorprofname, r.colorprofdesc)
FIELDS_OF(XMPlUsedDigFilmRef, r.instanceID, r.renditionClass)
FIELDS_OF(XMPlExtRef, r.instanceID, r.renditionClass, r.pagenr, r.type, r.count)
FIELDS_OF(XMPlFont, r.name, r.type, r.location, r.protection, r.fontfile)
FIELDS_OF(XMPlBarcode, r.type, r.symbolType, r.code, r.code2, r.resolution, r.barWidthReduction,
          r.hasBarWidthReduction, r.hasDeviceCompensation, r.deviceCompensation, r.useMagnification,
          r.magnification, r.narrow, r.ratio)
FIELDS_OF(XMPlLay, r.name, r.printable, r.locked)
FIELDS_OF(XMPlPagRange, r.start, r.end, r.inks)
FIELDS_OF(XMPlSmartName, r.name, r.value)
FIELDS_OF(XMPlRepeat, r.type, r.name, r.stationname, r.vnr, r.hnr, r.front, r.frontpage, r.back,
          r.backpage, r.count)
FIELDS_OF(XMPlCadReg, r.instanceID, r.renditionClass, r.stationname, r.orientation, r.orgX, r.orgY)
FIELDS_OF(XMPlMetaDataDigFilm, r.dimdata, r.ink, r.screens, r.uRefs)
#undef FIELDS_OF

// For each field, whether a default record equals one that differs in that field alone.
template <class Record, class Equal = std::equal_to<>>
std::string equalButForOne(const Equal& equal = {}) {
  std::string result;
  Record a, b;
  const auto compare = [&]<class Value>(Value& field) {
    if constexpr (std::is_same_v<Value, std::string>) field += "x";
    if constexpr (std::is_same_v<Value, double>) field = std::nextafter(field, 2);
    if constexpr (std::is_same_v<Value, bool>) field = !field;
    if constexpr (std::is_same_v<Value, std::int32_t>) ++field;
    result += equal(a, b) ? '=' : '!';
    fieldsOf(b) = fieldsOf(a);
  };
  std::apply([&](auto&... field) { (compare(field), ...); }, fieldsOf(b));
  return result;
}

// For each field, whether it differs from the default.
template <class Record>
std::string changesIn(Record record) {
  std::string result;
  Record none;
  const auto compare = [&](auto&... field) {
    return [&](auto&... other) { ((result += field == other ? '-' : '1'), ...); };
  };
  std::apply(std::apply(compare, fieldsOf(record)), fieldsOf(none));
  return result;
}

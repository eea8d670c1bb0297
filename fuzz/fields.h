// The fields of the records that tests/support does not know yet, and the visit of all.
#pragma once

#include "support/random_records.h"

// clang-format off: a table
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
FIELDS_OF(XMPlColorSpace, r.colorprofloc, r.colorprofname, r.colorprofdesc)
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
#undef FIELDS_OF
// clang-format on

// Visits every single value in a value, a record or a list; calls `enter` for a list before.
template <class Value, class Enter, class Visit>
void visitFields(Value& value, const Enter& enter, const Visit& visit) {
  if constexpr (requires { fieldsOf(value); }) {
    std::apply([&](auto&... field) { (visitFields(field, enter, visit), ...); }, fieldsOf(value));
  } else if constexpr (requires { value.emplace_back(); }) {
    enter(value);
    for (auto& item : value) visitFields(item, enter, visit);
  } else {
    visit(value);
  }
}

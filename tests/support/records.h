// SPDX-License-Identifier: Apache-2.0
// Records by their fields.
#pragma once

#include <cmath>
#include <functional>
#include <iterator>
#include <regex>
#include <set>
#include <tuple>

#include "support/packets.h"

// Every field of a record, also those that operator== leaves out; and their names.
#define FIELDS_OF(Record, ...)                                      \
  inline auto fieldsOf(Record& r) { return std::tie(__VA_ARGS__); } \
  inline std::string fieldNamesOf(const Record&) { return #__VA_ARGS__; }
FIELDS_OF(XMPlInkBasic, r.name, r.type, r.book, r.vxname, r.r, r.g, r.b, r.attribute,
          r.printingmethod)
FIELDS_OF(XMPlInk, r.name, r.type, r.book, r.vxname, r.r, r.g, r.b, r.attribute, r.printingmethod,
          r.frequency, r.angle, r.dotshape, r.coverageValid, r.pct, r.mm2)
FIELDS_OF(XMPlInkDigFilm, r.name, r.type, r.book, r.vxname, r.r, r.g, r.b, r.attribute,
          r.printingmethod, r.opacity, r.inknrsoriginal)
FIELDS_OF(XMPlInkProperty, r.name, r.book, r.type, r.printingmethod)
FIELDS_OF(XMPlDgcc, r.name, r.values)
FIELDS_OF(XMPlUsedRef, r.instanceID, r.renditionClass, r.pagenr)
FIELDS_OF(XMPlScreen, r.singlepressDGC, r.autoplateDGCreq, r.autoplateDGCLW, r.autoplateDGCCT,
          r.autopressDGCreq, r.autopressDGCLW, r.autopressDGCCT, r.totalDGCCT, r.totalDGCLW,
          r.gamma, r.usedrefs, r.hasScreening, r.frequencyreq, r.frequency, r.anglereq, r.angle,
          r.dotshapereq, r.dotshape, r.dotname)
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

// The names of a record's fields for which `choose(its field, that of the other)` is true.
template <class Record, class Choose>
std::string fieldsWhere(Record& record, Record& other, const Choose& choose) {
  std::istringstream names(std::regex_replace(fieldNamesOf(record), std::regex("\\br\\.|,"), ""));
  std::string chosen, name;
  const auto visit = [&](auto& field, auto& its) {
    names >> name;
    if (choose(field, its)) chosen += (chosen.empty() ? "" : " ") + name;
  };
  const auto both = [&](auto&... field) { return [&](auto&... its) { (visit(field, its), ...); }; };
  std::apply(std::apply(both, fieldsOf(record)), fieldsOf(other));
  return chosen;
}

// The fields in which records may differ and still be equal.
template <class Record, class Equal = std::equal_to<>>
std::string ignoredFields(const Equal& equal = {}) {
  Record a, b;
  return fieldsWhere(b, a, [&]<class Value>(Value& field, Value& original) {
    if constexpr (std::is_same_v<Value, std::string>) field += "x";
    if constexpr (std::is_same_v<Value, double>) field = std::nextafter(field, 2);
    if constexpr (std::is_same_v<Value, bool>) field = !field;
    if constexpr (std::is_same_v<Value, std::int32_t>) ++field;
    const bool isEqual = equal(a, b);
    field = original;
    return isEqual;
  });
}

// The fields that are not as a new record has them.
template <class Record>
std::string changedFields(Record record) {
  Record none;
  return fieldsWhere(record, none, [](auto& field, auto& its) { return field != its; });
}

// Empty when a record that lacks one of `names` is read up to it, in that order.
template <class Record>
std::string notFilledUpToAGap(const char* prefix, const std::string& names,
                              bool (XMPlib::*get)(Record&) const) {
  const auto words = [](const std::string& text) {
    std::istringstream stream(text);
    return std::multiset<std::string>(std::istream_iterator<std::string>(stream), {});
  };
  std::istringstream all(names);
  for (std::string missing, before; all >> missing;
       before += ' ' + missing.substr(0, missing.find('='))) {
    Record part;
    const Loaded xmp(elements(prefix, swapped(names, missing)));
    if ((xmp.*get)(part) || words(changedFields(part)) != words(before))
      return missing + ": " + changedFields(part);
  }
  return "";
}

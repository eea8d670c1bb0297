// SPDX-License-Identifier: Apache-2.0
// Every kind of record with its Get and Set.
#pragma once

#include <optional>

#include "support/records.h"
#include "support/runs.h"

// Nothing when the call throws an Error, as it may. Other exceptions end the process.
template <class Error, class Call>
auto attempt(const Call& call) -> std::optional<decltype(call())> {
  try {
    return call();
  } catch (const Error&) {
    return {};
  }
}

template <class Value>
struct Kind {
  std::function<bool(XMPlib&, Value&)> get;
  std::function<bool(XMPlib&, const Value&)> set;
  bool keepsAll = true;  // a Get gives what was set
  bool isMerge = false;  // answers true even where it fails
};

template <class Value, class Set>
Kind<Value> kind(bool (XMPlib::*get)(Value&) const, Set set) {
  return {get, set};
}

// An operation that lets errors of that type pass.
template <class Error, class Operation>
auto passing(Operation operation) {
  return [operation](XMPlib& xmp, auto& value) {
    return attempt<Error>([&] { return std::invoke(operation, xmp, value); }).value_or(false);
  };
}

// An operation with its flag set.
template <class Operation>
auto flagged(Operation operation) {
  return [operation](XMPlib& xmp, auto& value) { return (xmp.*operation)(value, true); };
}

inline bool getExpanded(XMPlib& xmp, std::vector<XMPlExtRef>& refs) {
  xmp.GetExtRefs(refs, true);
  return !isSlow(filesIn(refs)) && xmp.GetExtRefs(refs);
}

// An input picks a kind by its place: new ones go to the end.
template <class Visit>
void forEachKind(const Visit& visit) {
  using X = XMPlib;
  using Refs = std::vector<XMPlExtRef>;
  using GetRefs = bool (X::*)(Refs&, bool) const;
  using SetRefs = bool (X::*)(const Refs&, bool);
  const auto visitAll = [&](const auto&... kinds) { (visit(kinds), ...); };
  visitAll(
      kind(&X::GetNrPages, &X::SetNrPages), kind(&X::GetScreenReg, &X::SetScreenReg),
      kind(&X::GetIsTrapped, &X::SetIsTrapped), kind(&X::GetStartLogPage, &X::SetStartLogPage),
      kind(&X::GetSmartID, &X::SetSmartID), kind(&X::GetRectoVerso, &X::SetRectoVerso),
      kind(&X::GetPDFNativeVersion, &X::SetPDFNativeVersion),
      kind(&X::GetPDFNativeType, &X::SetPDFNativeType),
      kind(&X::GetPDFNativeVindrelVersion, &X::SetPDFNativeVindrelVersion),
      kind(&X::GetDigitalFilmVersion, &X::SetDigitalFilmVersion),
      kind(&X::GetNrInksOriginalDocument, &X::SetNrInksOriginalDocument),
      kind(&X::GetDigitalJobVersion, &X::SetDigitalJobVersion),
      kind(&X::GetVDPVersion, &X::SetVDPVersion), kind(&X::GetJobData, &X::SetJobData),
      kind(&X::GetProdData, &X::SetProdData), kind(&X::GetDocumentData, &X::SetDocumentData),
      kind(&X::GetDocumentVersion, &X::SetDocumentVersion), kind(&X::GetBaseDoc, &X::SetBaseDoc),
      kind(&X::GetDimDat, &X::SetDimDat), kind(&X::GetColorSpace, &X::SetColorSpace),
      kind(&X::GetInks, flagged(&X::SetInks)), kind(&X::GetInkProperties, &X::SetInkProperties),
      kind(&X::GetScreens, &X::SetScreens), kind(&X::GetScreenContainer, &X::SetScreenContainer),
      kind(&X::GetUsedRefs, &X::SetUsedRefs), kind(&X::GetOldExtRefs, &X::SetOldExtRefs),
      kind(&X::GetCadFiles, &X::SetCadFiles), kind(&X::GetFonts, &X::SetFonts),
      kind(&X::GetBarcodes, &X::SetBarcodes), kind(&X::GetLayers, &X::SetLayers),
      kind(&X::GetPagRanges, &X::SetPagRanges), kind(&X::GetSmartNames, &X::SetSmartNames),
      kind(&X::GetRepeats, &X::SetRepeats),
      Kind<Refs>{flagged(GetRefs(&X::GetExtRefs)), flagged(SetRefs(&X::SetExtRefs))},
      Kind<Refs>{passing<std::logic_error>(getExpanded),
                 [](X& xmp, const Refs& refs) { return xmp.SetExtRefs(refs); }, false},
      Kind<std::vector<XMPlDgcc>>{passing<std::length_error>(&X::GetDgcs), &X::SetDgcs},
      Kind<std::vector<XMPlInkDigFilm>>{passing<XMP_Error>(&X::GetInksDigFilm),
                                        flagged(&X::SetInksDigFilm)},
      Kind<XMPlDigFilmVersion>{passing<XMP_Error>(&X::GetDigitalFilmVersionDetailed),
                               &X::SetDigitalFilmVersionDetailed},
      Kind<XMPlDimDatDigFilm>{passing<XMP_Error>(&X::GetDimDatDigFilm),
                              passing<XMP_Error>(&X::SetDimDatDigFilm)},
      Kind<XMPlCadReg>{&X::GetCadReg, [](X& xmp, XMPlCadReg reg) { return xmp.SetCadReg(reg); }},
      // Read from another namespace than written.
      Kind<std::vector<XMPlUsedDigFilmRef>>{&X::GetUsedDigitalJobRefs, &X::SetUsedDigitalJobRefs,
                                            false});
}

template <class List, class... Flag>
Kind<List> merging(bool (XMPlib::*merge)(const List&, Flag...)) {
  const auto set = [merge](XMPlib& xmp, const List& list) {
    return (xmp.*merge)(list, Flag(true)...);
  };
  return {nullptr, set, false, true};
}

// The operations that only write, likewise.
template <class Visit>
void forEachWriter(const Visit& visit) {
  using X = XMPlib;
  const auto visitAll = [&](const auto&... writers) { (visit(writers), ...); };
  visitAll(Kind<XMPlPDFData>{nullptr, &X::SetPDFData}, Kind<XMPlMMData>{nullptr, &X::SetMMData},
           Kind<std::vector<XMPlMetaDataDigFilm>>{nullptr, &X::SetMetaDataDigFilms},
           merging(&X::MergeInks), merging(&X::MergeExtRefs), merging(&X::MergeCadFiles),
           merging(&X::MergeFonts), merging(&X::MergeBarcodes), merging(&X::MergeLayers));
}

// A value with something in every field, a list of one item.
template <class Value>
Value filled(const std::string& text = "new") {
  Value value{};
  visitFields(
      value, [](auto& items) { items.resize(1); },
      [&]<class Field>(Field& field) {
        if constexpr (std::is_same_v<Field, std::string>) field = text;
        if constexpr (!std::is_same_v<Field, std::string>) field = 1;
      });
  if constexpr (std::is_same_v<Value, XMPlColorSpace>) value.colorprofloc = "PDFOutputIntent";
  if constexpr (std::is_same_v<Value, XMPlDimDatDigFilm>) value.basicOnly = false;
  return value;
}

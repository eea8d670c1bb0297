// SPDX-License-Identifier: Apache-2.0
#include "model/units.h"

#include <algorithm>

#include "model/path.h"

namespace vxmeta {
namespace {

using X = XMPlib;

template <class Member>
struct Held;
template <class Record, class Value>
struct Held<std::optional<Value> Record::*> {
  using Type = Value;
};

template <auto kMember>
typename Held<decltype(kMember)>::Type valueOr(const auto& record) {
  return (record.*kMember).value_or(typename Held<decltype(kMember)>::Type());
}

template <auto kSet, auto kMember>
bool writeScalar(X& xmp, const Document&, const Document& after) {
  return (xmp.*kSet)(valueOr<kMember>(after.scalars.value_or(Scalars())));
}

template <auto kSet, auto kMember>
bool writeFilm(X& xmp, const Document&, const Document& after) {
  return (xmp.*kSet)(valueOr<kMember>(after.film.value_or(Film())));
}

template <auto kSet, auto kMember>
bool writeSection(X& xmp, const Document&, const Document& after) {
  return (xmp.*kSet)(valueOr<kMember>(after));
}

// Only the texts that differ: an empty one leaves what is stored.
template <auto kSet, auto kMember>
bool writeThreeWay(X& xmp, const Document& before, const Document& after) {
  using Record = typename Held<decltype(kMember)>::Type;
  const Record stored = valueOr<kMember>(before);
  Record change = valueOr<kMember>(after);
  for (const Field& field : typeOf<Record>().fields) {
    auto& text = *static_cast<std::string*>(field.slot(&change));
    const std::string& old = viewOf(stored).field(field).text();
    text = text == old ? "" : text.empty() ? kErase : text;
  }
  return (xmp.*kSet)(change);
}

bool writeInks(X& xmp, const Document&, const Document& after) {
  return xmp.SetInks(*after.inks, true);
}
bool writeFilmInks(X& xmp, const Document&, const Document& after) {
  return xmp.SetInksDigFilm(*after.film->inks, true);
}
bool writeExtRefs(X& xmp, const Document&, const Document& after) {
  return xmp.SetExtRefs(*after.extRefs, true);
}
bool writeCadRegistration(X& xmp, const Document&, const Document& after) {
  XMPlCadReg registration = *after.cadRegistration;
  return xmp.SetCadReg(registration);
}

#define SCALAR(member, Name) \
  { "scalars." #member, writeScalar<&X::Set##Name, &Scalars::member> }
#define SCALAR_TO_DELETE(member, Name) \
  { "scalars." #member, writeScalar<&X::Set##Name, &Scalars::member>, Absence::deleted }
#define SECTION(member, Name) \
  { #member, writeSection < &X::Set##Name, &Document::member> }
#define TEXTS(member, Name) \
#member, writeThreeWay < &X::Set##Name, &Document::member>, Absence::threeWay
#define FILM(member, Name) "film." #member, writeFilm<&X::Set##Name, &Film::member>
#define TO_EMPTY(member, Name) \
#member, writeSection < &X::Set##Name, &Document::member>, Absence::emptied

constexpr std::string_view kJobs =
    "of several job references the first is written, and the last is read";
constexpr std::string_view kComments = "comments are written, and never read";
constexpr std::string_view kJobReferences = "they are written under names that are never read";
constexpr std::string_view kOlderScreens =
    "frequency, angle and shape are written with hasScreening alone; screens of the older layout "
    "stay as they are, and are read where no others are";

}  // namespace

const std::vector<Unit>& units() {
  static const std::vector<Unit> kUnits = {
      SCALAR(nrPages, NrPages),
      SCALAR(screenReg, ScreenReg),
      SCALAR(isTrapped, IsTrapped),
      SCALAR(startLogPage, StartLogPage),
      SCALAR(smartID, SmartID),
      SCALAR(rectoVerso, RectoVerso),
      SCALAR_TO_DELETE(pdfNativeVersion, PDFNativeVersion),
      SCALAR(pdfNativeType, PDFNativeType),
      SCALAR(pdfNativeVindrelVersion, PDFNativeVindrelVersion),
      SCALAR(digitalFilmVersion, DigitalFilmVersion),
      SCALAR(nrInksOriginalDocument, NrInksOriginalDocument),
      SCALAR(digitalJobVersion, DigitalJobVersion),
      SCALAR_TO_DELETE(vdpVersion, VDPVersion),
      {TEXTS(job, JobData), {}, kJobs},
      {TEXTS(product, ProdData)},
      {TEXTS(document, DocumentData)},
      {TEXTS(version, DocumentVersion), {}, kComments},
      SECTION(baseDocument, BaseDoc),
      SECTION(page, DimDat),
      {FILM(version, DigitalFilmVersionDetailed)},
      {FILM(dimensions, DimDatDigFilm)},
      {"film.inks", writeFilmInks, Absence::refused, "vxGr:inks"},
      {FILM(jobReferences, UsedDigitalJobRefs), Absence::refused, {}, kJobReferences},
      {FILM(metadata, MetaDataDigFilms)},
      SECTION(colorSpace, ColorSpace),
      {"inks", writeInks, Absence::refused, "vxInkCovL:coverage"},
      SECTION(inkProperties, InkProperties),
      {"screens",
       writeSection<&X::SetScreenContainer, &Document::screens>,
       Absence::refused,
       {},
       kOlderScreens},
      SECTION(dgcs, Dgcs),
      SECTION(usedRefs, UsedRefs),
      {"extRefs", writeExtRefs, Absence::refused, "vxExtFL:files"},
      SECTION(cadFiles, CadFiles),
      SECTION(fonts, Fonts),
      SECTION(barcodes, Barcodes),
      SECTION(layers, Layers),
      SECTION(pageRanges, PagRanges),
      SECTION(smartNames, SmartNames),
      SECTION(repeats, Repeats),
      {"cadRegistration", writeCadRegistration},
      {TO_EMPTY(pdfData, PDFData)},
      {TO_EMPTY(mmData, MMData)},
  };
  return kUnits;
}

const Unit* unitOf(std::string_view path) {
  const auto found = std::find_if(units().begin(), units().end(), [&](const Unit& unit) {
    const bool isInside = path.size() > unit.path.size() && path[unit.path.size()] == '.';
    return path.starts_with(unit.path) && (path.size() == unit.path.size() || isInside);
  });
  return found == units().end() ? nullptr : &*found;
}

const Type& typeOf(const Unit& unit) {
  const Type& root = typeOf<Document>();
  return typeAt(parsePath(unit.path, root), root);
}

std::optional<View> valueOf(const Document& document, const Unit& unit) {
  const auto value = valueAt(viewOf(document), parsePath(unit.path, typeOf<Document>()));
  const bool isText = unit.absence == Absence::threeWay || unit.absence == Absence::emptied;
  if (value || !isText) return value;
  return View{&typeOf(unit), typeOf(unit).defaults};
}

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
// Metadata of a digital film: vxDigFilmMetaDataList:metadataList, an ordered array of
//   vxDigFilmMetaData:dimdata   structure: the fields of film dimensions
//   vxDigFilmMetaData:ink       structure:
//     vxInk:name, type, attribute   text
//     vxInk:r, g, b, opacity        real
//     vxInk:nrinksoriginal          text, not written when empty
//   vxDigFilmMetaData:screens   ordered array of
//     vxDigFilmMetaData:screen      structure: the fields of a screen
//   vxDigFilmMetaData:uRefs     unordered array of
//     vxDigFilmMetaData:uRef        structure:
//       vxUsedF:renditionClass        text
//       vxUsedF:instanceID            text
//       vxUsedF:pagenr                integer
#include "core/call_guard.h"
#include "core/lists.h"
#include "document/film_dimensions.h"
#include "inks/ink_item.h"
#include "screening/screen_item.h"

using xmpl::ArrayKind;
using xmpl::ItemWriter;

namespace {

constexpr xmpl::List kFilms{"vxDigFilmMetaDataList:metadataList", ArrayKind::ordered};

// Deliberate: "nrinksoriginal" here, "inknrsoriginal" in the list of film inks.
void writeInk(const ItemWriter& item, const XMPlInkDigFilm& ink) {
  item.text("vxInk:name", ink.name);
  item.text("vxInk:type", ink.type);
  item.text("vxInk:attribute", ink.attribute);
  xmpl::kInkColour(item, ink);
  item.real("vxInk:opacity", ink.opacity);
  item.textUnlessEmpty("vxInk:nrinksoriginal", ink.inknrsoriginal);
}

void writeScreen(const ItemWriter& item, const XMPlScreen& screen) {
  const ItemWriter fields = item.structure("vxDigFilmMetaData:screen");
  xmpl::writeScreenCurves(fields, screen);
  xmpl::writeScreenDot(fields, screen);
  xmpl::kRulingsAndAngles(fields, screen);
}

void writeUsedRef(const ItemWriter& item, const XMPlUsedRef& ref) {
  const ItemWriter fields = item.structure("vxDigFilmMetaData:uRef");
  fields.text("vxUsedF:renditionClass", ref.renditionClass);
  fields.text("vxUsedF:instanceID", ref.instanceID);
  fields.integer("vxUsedF:pagenr", static_cast<std::int32_t>(ref.pagenr));
}

void writeFilm(const ItemWriter& item, const XMPlMetaDataDigFilm& film) {
  writeFilmDimensions(item.structure("vxDigFilmMetaData:dimdata"), film.dimdata);
  writeInk(item.structure("vxDigFilmMetaData:ink"), film.ink);
  writeItems(item.array("vxDigFilmMetaData:screens", ArrayKind::ordered), writeScreen,
             film.screens);
  writeItems(item.array("vxDigFilmMetaData:uRefs", ArrayKind::unordered), writeUsedRef, film.uRefs);
}

}  // namespace

bool XMPlib::SetMetaDataDigFilms(const std::vector<XMPlMetaDataDigFilm>& films) {
  return guarded(writing(kFilms, writeFilm, films));
}

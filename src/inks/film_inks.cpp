// SPDX-License-Identifier: Apache-2.0
// Inks of a digital film: vxGr:inks, an ordered array of
//   vxInk:name            text
//   vxInk:type            text
//   vxInk:book            text, optional; written on demand
//   vxInk:vxname          text, optional; written on demand
//   vxInk:r, g, b         real
//   vxInk:attribute       text
//   vxInk:printingmethod  text, optional
//   vxInk:opacity         real
//   vxInk:inknrsoriginal  text, optional; not written when empty
// Digital jobs that a film was made from: vxDigFilmRefs:files, an ordered array of
//   written vxDigFilmRef:instanceID,     read vxUsedF:instanceID       text
//   written vxDigFilmRef:renditionClass, read vxUsedF:renditionClass   text
#include "core/call_guard.h"
#include "core/unread.h"
#include "inks/ink_item.h"

using xmpl::ItemReader;
using xmpl::ItemWriter;
using xmpl::Metadata;

namespace {

constexpr xmpl::List kFilmInks{"vxGr:inks", xmpl::ArrayKind::ordered};
constexpr xmpl::List kJobRefs{"vxDigFilmRefs:files", xmpl::ArrayKind::ordered};

constexpr auto kFilmInkFields = [](const auto& item, auto& ink) {
  return xmpl::kInkColour(item, ink) && item.text("vxInk:attribute", ink.attribute) &&
         item.optionalText("vxInk:printingmethod", ink.printingmethod) &&
         item.real("vxInk:opacity", ink.opacity) &&
         item.textUnlessEmpty("vxInk:inknrsoriginal", ink.inknrsoriginal);
};

bool readFilmInk(const ItemReader& item, XMPlInkDigFilm& ink) {
  return readInkIdentity(item, ink) && kFilmInkFields(item, ink);
}

void writeFilmInk(const ItemWriter& item, const XMPlInkDigFilm& ink, bool withBookAndName) {
  writeInkIdentity(item, ink, withBookAndName);
  kFilmInkFields(item, ink);
}

// Deliberate: read from another namespace than writeJobRef writes.
bool readJobRef(const ItemReader& item, XMPlUsedDigFilmRef& ref) {
  return item.text("vxUsedF:instanceID", ref.instanceID) &&
         item.text("vxUsedF:renditionClass", ref.renditionClass);
}

void writeJobRef(const ItemWriter& item, const XMPlUsedDigFilmRef& ref) {
  item.text("vxDigFilmRef:instanceID", ref.instanceID);
  item.text("vxDigFilmRef:renditionClass", ref.renditionClass);
}

}  // namespace

void xmpl::findUnreadFilmInks(const Metadata& metadata, Unread& unread) {
  const auto write = [](const ItemWriter& item, const XMPlInkDigFilm& ink) {
    writeFilmInk(item, ink, true);
  };
  findUnread<XMPlInkDigFilm>(metadata, kFilmInks, readFilmInk, write, unread);
}

void xmpl::findUnreadJobRefs(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlUsedDigFilmRef>(metadata, kJobRefs, readJobRef, writeJobRef, unread);
}

bool XMPlib::GetInksDigFilm(std::vector<XMPlInkDigFilm>& inks) const {
  return guardedPassingToolkitErrors(reading(kFilmInks, readFilmInk, inks));
}

bool XMPlib::SetInksDigFilm(const std::vector<XMPlInkDigFilm>& inks, bool withBookAndName) {
  const auto write = [=](const ItemWriter& item, const XMPlInkDigFilm& ink) {
    writeFilmInk(item, ink, withBookAndName);
  };
  return guarded(writing(kFilmInks, write, inks));
}

bool XMPlib::GetUsedDigitalJobRefs(std::vector<XMPlUsedDigFilmRef>& refs) const {
  return guarded(reading(kJobRefs, readJobRef, refs));
}

bool XMPlib::SetUsedDigitalJobRefs(const std::vector<XMPlUsedDigFilmRef>& refs) {
  return guarded(writing(kJobRefs, writeJobRef, refs));
}

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

namespace {

using xmpl::ItemReader;
using xmpl::ItemWriter;
using xmpl::Metadata;

constexpr xmpl::List kFilmInks{"vxGr:inks", xmpl::ArrayKind::ordered};
constexpr xmpl::List kJobRefs{"vxDigFilmRefs:files", xmpl::ArrayKind::ordered};

bool readFilmInk(const ItemReader& item, XMPlInkDigFilm& ink) {
  if (!item.text("vxInk:name", ink.name) || !item.text("vxInk:type", ink.type)) return false;
  item.optional().text("vxInk:book", ink.book);
  item.optional().text("vxInk:vxname", ink.vxname);
  if (!item.real("vxInk:r", ink.r) || !item.real("vxInk:g", ink.g) ||
      !item.real("vxInk:b", ink.b) || !item.text("vxInk:attribute", ink.attribute)) {
    return false;
  }
  item.optional().text("vxInk:printingmethod", ink.printingmethod);
  if (!item.real("vxInk:opacity", ink.opacity)) return false;
  item.optional().text("vxInk:inknrsoriginal", ink.inknrsoriginal);
  return true;
}

void writeFilmInk(const ItemWriter& item, const XMPlInkDigFilm& ink, bool withBookAndName) {
  item.text("vxInk:name", ink.name);
  item.text("vxInk:type", ink.type);
  if (withBookAndName) {
    item.text("vxInk:book", ink.book);
    item.text("vxInk:vxname", ink.vxname);
  }
  item.real("vxInk:r", ink.r);
  item.real("vxInk:g", ink.g);
  item.real("vxInk:b", ink.b);
  item.text("vxInk:attribute", ink.attribute);
  item.text("vxInk:printingmethod", ink.printingmethod);
  item.real("vxInk:opacity", ink.opacity);
  if (!ink.inknrsoriginal.empty()) item.text("vxInk:inknrsoriginal", ink.inknrsoriginal);
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
  findUnread<XMPlInkDigFilm>({metadata, kFilmInks.name}, kFilmInks.kind, readFilmInk, write,
                             unread);
}

void xmpl::findUnreadJobRefs(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlUsedDigFilmRef>({metadata, kJobRefs.name}, kJobRefs.kind, readJobRef, writeJobRef,
                                 unread);
}

bool XMPlib::GetInksDigFilm(std::vector<XMPlInkDigFilm>& inks) const {
  inks.clear();
  return guardedPassingToolkitErrors(
      [&](const Metadata& metadata) { return readList(metadata, kFilmInks, readFilmInk, inks); });
}

bool XMPlib::SetInksDigFilm(const std::vector<XMPlInkDigFilm>& inks, bool withBookAndName) {
  return guarded([&](Metadata& metadata) {
    const auto write = [=](const ItemWriter& item, const XMPlInkDigFilm& ink) {
      writeFilmInk(item, ink, withBookAndName);
    };
    return writeList(metadata, kFilmInks, write, inks);
  });
}

bool XMPlib::GetUsedDigitalJobRefs(std::vector<XMPlUsedDigFilmRef>& refs) const {
  refs.clear();
  return guarded(
      [&](const Metadata& metadata) { return readList(metadata, kJobRefs, readJobRef, refs); });
}

bool XMPlib::SetUsedDigitalJobRefs(const std::vector<XMPlUsedDigFilmRef>& refs) {
  return guarded(
      [&](Metadata& metadata) { return writeList(metadata, kJobRefs, writeJobRef, refs); });
}

// SPDX-License-Identifier: Apache-2.0
// What the stored inks of a document and of a digital film have in common, but for their order:
// identity, then what each has of its own, with the colour in it.
#pragma once

#include <tuple>

#include "core/items.h"
#include "xmpl/inks.h"

namespace xmpl {

// Book and vxname are optional, and written on demand.
inline bool readInkIdentity(const ItemReader& item, XMPlInkBasic& ink) {
  return item.text("vxInk:name", ink.name) && item.text("vxInk:type", ink.type) &&
         item.optionalText("vxInk:book", ink.book) && item.optionalText("vxInk:vxname", ink.vxname);
}

inline void writeInkIdentity(const ItemWriter& item, const XMPlInkBasic& ink,
                             bool writeBookAndVxname) {
  item.text("vxInk:name", ink.name);
  item.text("vxInk:type", ink.type);
  if (!writeBookAndVxname) return;
  item.text("vxInk:book", ink.book);
  item.text("vxInk:vxname", ink.vxname);
}

inline constexpr auto kInkColour = [](const auto& item, auto& ink) {
  return item.real("vxInk:r", ink.r) && item.real("vxInk:g", ink.g) && item.real("vxInk:b", ink.b);
};

// Colour and coverage take no part.
inline constexpr auto kBasicInkIdentity = [](const XMPlInkBasic& ink) {
  return std::tie(ink.name, ink.type, ink.book, ink.vxname, ink.attribute, ink.printingmethod);
};
// Reals are compared exactly.
inline constexpr auto kInkIdentity = [](const XMPlInk& ink) {
  return std::tuple_cat(kBasicInkIdentity(ink), std::tie(ink.frequency, ink.angle, ink.dotshape));
};

}  // namespace xmpl

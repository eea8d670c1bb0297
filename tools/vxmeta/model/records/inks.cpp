// SPDX-License-Identifier: Apache-2.0
// Records of inks, DGC curves and digital films.
#include <iterator>

#include "model/records.h"

namespace vxmeta {
namespace {

// What every ink record begins with, as fields of the record R.
template <class R>
std::vector<Field> inkFields(std::initializer_list<Field> others) {
  std::vector<Field> fields = {
      VXMETA_FIELD(name, "name of the ink"),
      VXMETA_FIELD(type, "the application's word"),
      VXMETA_FIELD(book, "colour book that the ink comes from").detail(),
      VXMETA_FIELD(vxname, "name in the system's own naming").detail(),
      VXMETA_FIELD(r, "display colour, red; its range is the application's"),
      VXMETA_FIELD(g, "display colour, green"),
      VXMETA_FIELD(b, "display colour, blue"),
      VXMETA_FIELD(attribute, "omask: an opaque mask; else the application's word"),
      VXMETA_FIELD(printingmethod, "the application's word; unknown: not stated").detail(),
  };
  fields.insert(fields.end(), others.begin(), others.end());
  return fields;
}

}  // namespace

template <>
Type describe<XMPlInkBasic>() {
  return recordType<XMPlInkBasic>("basicInk", inkFields<XMPlInkBasic>({}));
}

template <>
Type describe<XMPlInk>() {
  using R = XMPlInk;
  return recordType<R>(
      "ink",
      inkFields<R>({
          VXMETA_FIELD(frequency, "screen ruling, in lines for a length of the application's"),
          VXMETA_FIELD(angle, "screen angle, in the application's unit and direction"),
          VXMETA_FIELD(dotshape, "dot shape"),
          VXMETA_FIELD(coverageValid, "pct and mm2 hold a measured coverage"),
          VXMETA_FIELD(pct, "coverage in percent").in("%").with("coverageValid"),
          VXMETA_FIELD(mm2, "coverage in square millimetres")
              .in("mm²")
              .with("coverageValid")
              .detail(),
      }));
}

template <>
Type describe<XMPlInkProperty>() {
  using R = XMPlInkProperty;
  return recordType<R>(
      "inkProperty",
      {
          VXMETA_FIELD(name, "name of the ink"),
          VXMETA_FIELD(book, "colour book that the ink comes from"),
          VXMETA_FIELD(type, "the application's word"),
          VXMETA_FIELD(printingmethod, "the application's word; unknown: not stated"),
      });
}

template <>
Type describe<XMPlInkDigFilm>() {
  using R = XMPlInkDigFilm;
  return recordType<R>(
      "filmInk", inkFields<R>({
                     VXMETA_FIELD(opacity, "opacity, in the application's range"),
                     VXMETA_FIELD(inknrsoriginal, "number of the ink in the original document"),
                 }));
}

template <>
Type describe<XMPlUsedDigFilmRef>() {
  using R = XMPlUsedDigFilmRef;
  return recordType<R>("jobReference", {
                                           VXMETA_FIELD(instanceID, "the digital job"),
                                           VXMETA_FIELD(renditionClass, "which rendition of it"),
                                       });
}

template <>
Type describe<XMPlDgcc>() {
  using R = XMPlDgcc;
  return recordType<R>("dgc", {
                                  VXMETA_FIELD(name, "name of the curve"),
                                  VXMETA_FIELD(values, "its values, in the application's range"),
                              });
}

template <>
Type describe<XMPlMetaDataDigFilm>() {
  using R = XMPlMetaDataDigFilm;
  return recordType<R>("separation",
                       {
                           VXMETA_FIELD(dimdata, "dimensions of the separation"),
                           VXMETA_FIELD(ink, "its ink"),
                           VXMETA_FIELD(screens, "the screens used on it").unordered(),
                           VXMETA_FIELD(spare, "neither read nor written").unstored(),
                           VXMETA_FIELD(uRefs, "the references that use them").unordered(),
                       });
}

}  // namespace vxmeta

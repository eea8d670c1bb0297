// SPDX-License-Identifier: Apache-2.0
// Film dimensions, at the top level or in a structure, in groups of fields.
#pragma once

#include "xmpl/document.h"

namespace xmpl {

inline constexpr auto kFilmSize = [](const auto& fields, auto& dimensions) {
  return fields.text("vxGr:units", dimensions.units) &&
         fields.real("vxGr:vsize", dimensions.vsize) &&
         fields.real("vxGr:hsize", dimensions.hsize) &&
         fields.real("vxGr:vresolution", dimensions.vresolution) &&
         fields.real("vxGr:hresolution", dimensions.hresolution);
};

inline constexpr auto kFilmScales = [](const auto& fields, auto& dimensions) {
  return fields.real("vxGr:vdist", dimensions.vdist) &&
         fields.real("vxGr:hdist", dimensions.hdist) &&
         fields.real("vxGr:vscale", dimensions.vscale) &&
         fields.real("vxGr:hscale", dimensions.hscale);
};

inline constexpr auto kFilmDirection = [](const auto& fields, auto& dimensions) {
  return fields.boolean("vxGr:reverse", dimensions.reverse) &&
         fields.integer("vxGr:scanlinedirection", dimensions.scanlinedirection);
};

inline constexpr auto kFilmMargins = [](const auto& fields, auto& dimensions) {
  return fields.real("vxGr:margtop", dimensions.margtop) &&
         fields.real("vxGr:margbot", dimensions.margbot) &&
         fields.real("vxGr:margleft", dimensions.margleft) &&
         fields.real("vxGr:margright", dimensions.margright);
};

// `Writer` is a PropertyWriter or an ItemWriter.
template <class Writer>
void writeFilmDimensions(const Writer& fields, const XMPlDimDatDigFilm& dimensions) {
  kFilmSize(fields, dimensions);
  if (dimensions.basicOnly) return;
  kFilmScales(fields, dimensions);
  kFilmDirection(fields, dimensions);
  if (dimensions.hasMargins) kFilmMargins(fields, dimensions);
}

}  // namespace xmpl

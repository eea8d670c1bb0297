// SPDX-License-Identifier: Apache-2.0
#include "document/film_dimensions.h"

#include "core/call_guard.h"
#include "core/properties.h"

using xmpl::Metadata;
using xmpl::PropertyReader;
using xmpl::PropertyWriter;

namespace {

// The direction is looked for whether or not the scales are complete.
bool readScan(const PropertyReader& properties, XMPlDimDatDigFilm& dimensions) {
  const bool hasScales = xmpl::kFilmScales(properties, dimensions);
  const bool hasDirection = xmpl::kFilmDirection(properties, dimensions);
  return hasScales && hasDirection;
}

void clearMargins(XMPlDimDatDigFilm& dimensions) {
  dimensions.margtop = 0;
  dimensions.margbot = 0;
  dimensions.margleft = 0;
  dimensions.margright = 0;
}

}  // namespace

bool XMPlib::GetDimDatDigFilm(XMPlDimDatDigFilm& dimensions) const {
  return guardedPassingToolkitErrors([&](const Metadata& metadata) {
    const PropertyReader properties(metadata);
    const bool hasBasic = xmpl::kFilmSize(properties, dimensions);
    dimensions.basicOnly = !(hasBasic && readScan(properties, dimensions));
    dimensions.hasMargins = !dimensions.basicOnly && xmpl::kFilmMargins(properties, dimensions);
    if (!dimensions.hasMargins) clearMargins(dimensions);
    return hasBasic;
  });
}

bool XMPlib::SetDimDatDigFilm(const XMPlDimDatDigFilm& dimensions) {
  return guardedPassingToolkitErrors([&](Metadata& metadata) {
    writeFilmDimensions(PropertyWriter(metadata), dimensions);
    return true;
  });
}

#include "document/film_dimensions.h"

#include "core/call_guard.h"
#include "core/properties.h"

namespace {

using xmpl::Metadata;
using xmpl::PropertyReader;
using xmpl::PropertyWriter;

bool readBasicGroup(const PropertyReader& properties, XMPlDimDatDigFilm& dimensions) {
  return properties.text("vxGr:units", dimensions.units) &&
         properties.real("vxGr:vsize", dimensions.vsize) &&
         properties.real("vxGr:hsize", dimensions.hsize) &&
         properties.real("vxGr:vresolution", dimensions.vresolution) &&
         properties.real("vxGr:hresolution", dimensions.hresolution);
}

// The direction is looked for whether or not the distances and scales are complete.
bool readScanGroup(const PropertyReader& properties, XMPlDimDatDigFilm& dimensions) {
  const bool hasScales = properties.real("vxGr:vdist", dimensions.vdist) &&
                         properties.real("vxGr:hdist", dimensions.hdist) &&
                         properties.real("vxGr:vscale", dimensions.vscale) &&
                         properties.real("vxGr:hscale", dimensions.hscale);
  const bool hasDirection =
      properties.boolean("vxGr:reverse", dimensions.reverse) &&
      properties.integer("vxGr:scanlinedirection", dimensions.scanlinedirection);
  return hasScales && hasDirection;
}

bool readMarginGroup(const PropertyReader& properties, XMPlDimDatDigFilm& dimensions) {
  return properties.real("vxGr:margtop", dimensions.margtop) &&
         properties.real("vxGr:margbot", dimensions.margbot) &&
         properties.real("vxGr:margleft", dimensions.margleft) &&
         properties.real("vxGr:margright", dimensions.margright);
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
    const bool hasBasic = readBasicGroup(properties, dimensions);
    dimensions.basicOnly = !(hasBasic && readScanGroup(properties, dimensions));
    dimensions.hasMargins = !dimensions.basicOnly && readMarginGroup(properties, dimensions);
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

// SPDX-License-Identifier: Apache-2.0
// Version of the digital-film data: simple properties
//   vxDigFilm:version    integer, required
//   vxDigFilm:structure  text
//   vxDigFilm:type       text
#include "core/call_guard.h"
#include "core/properties.h"

using xmpl::Metadata;
using xmpl::PropertyReader;
using xmpl::PropertyWriter;

bool XMPlib::GetDigitalFilmVersionDetailed(XMPlDigFilmVersion& version) const {
  return guardedPassingToolkitErrors([&](const Metadata& metadata) {
    const PropertyReader properties(metadata);
    if (!properties.integer("vxDigFilm:version", version.version)) return false;
    properties.textOrEmpty("vxDigFilm:structure", version.structure);
    properties.textOrEmpty("vxDigFilm:type", version.type);
    return true;
  });
}

bool XMPlib::SetDigitalFilmVersionDetailed(const XMPlDigFilmVersion& version) {
  return guarded([&](Metadata& metadata) {
    const PropertyWriter properties(metadata);
    properties.integer("vxDigFilm:version", version.version);
    properties.text("vxDigFilm:structure", version.structure);
    properties.text("vxDigFilm:type", version.type);
    return true;
  });
}

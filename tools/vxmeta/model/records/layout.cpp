// SPDX-License-Identifier: Apache-2.0
// Records of layout.
#include "model/records.h"

namespace vxmeta {

template <>
Type describe<XMPlRepeat>() {
  using R = XMPlRepeat;
  return recordType<R>(
      "repeat", {
                    VXMETA_FIELD(type, "grid (rows and columns), die (stations) or another kind"),
                    VXMETA_FIELD(name, "name of the placement"),
                    VXMETA_FIELD(stationname, "die station; stored for die alone"),
                    VXMETA_FIELD(vnr, "repeats vertically; stored for grid alone"),
                    VXMETA_FIELD(hnr, "repeats horizontally; stored for grid alone"),
                    VXMETA_FIELD(front, "file on the front side"),
                    VXMETA_FIELD(frontpage, "its page"),
                    VXMETA_FIELD(back, "file on the back side"),
                    VXMETA_FIELD(backpage, "its page"),
                    VXMETA_FIELD(count, "number of copies"),
                });
}

template <>
Type describe<XMPlCadReg>() {
  using R = XMPlCadReg;
  return recordType<R>(
      "cadRegistration",
      {
          VXMETA_FIELD(instanceID, "the CAD file"),
          VXMETA_FIELD(renditionClass, "which rendition of it"),
          VXMETA_FIELD(stationname, "station on the drawing"),
          VXMETA_FIELD(orientation, "of the document on the station, a code of the application's"),
          VXMETA_FIELD(orgX, "origin of the document on the station, in its unit"),
          VXMETA_FIELD(orgY, "origin of the document on the station, in its unit"),
      });
}

}  // namespace vxmeta

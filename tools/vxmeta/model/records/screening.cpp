// SPDX-License-Identifier: Apache-2.0
// Records of screening.
#include "model/records.h"

namespace vxmeta {

template <>
Type describe<XMPlScreen>() {
  using R = XMPlScreen;
  return recordType<R>(
      "screen",
      {
          VXMETA_FIELD(singlepressDGC, "DGC curve: single press"),
          VXMETA_FIELD(autoplateDGCreq, "DGC curve: automatic plate, requested"),
          VXMETA_FIELD(autoplateDGCLW, "DGC curve: automatic plate, LW"),
          VXMETA_FIELD(autoplateDGCCT, "DGC curve: automatic plate, CT"),
          VXMETA_FIELD(autopressDGCreq, "DGC curve: automatic press, requested"),
          VXMETA_FIELD(autopressDGCLW, "DGC curve: automatic press, LW"),
          VXMETA_FIELD(autopressDGCCT, "DGC curve: automatic press, CT"),
          VXMETA_FIELD(totalDGCCT, "DGC curve: total, CT"),
          VXMETA_FIELD(totalDGCLW, "DGC curve: total, LW"),
          VXMETA_FIELD(gamma, "gamma curve"),
          VXMETA_FIELD(usedrefs, "the references that use the screen, in the application's form"),
          VXMETA_FIELD(hasScreening, "the fields below are known"),
          VXMETA_FIELD(frequencyreq, "screen ruling, requested").with("hasScreening"),
          VXMETA_FIELD(frequency, "screen ruling, used").with("hasScreening"),
          VXMETA_FIELD(anglereq, "screen angle, requested").with("hasScreening"),
          VXMETA_FIELD(angle, "screen angle, used").with("hasScreening"),
          VXMETA_FIELD(dotshapereq, "dot shape, requested").with("hasScreening"),
          VXMETA_FIELD(dotshape, "dot shape, used").with("hasScreening"),
          VXMETA_FIELD(dotname, "name of the dot; empty: the dot shape").with("hasScreening"),
      });
}

template <>
Type describe<XMPlUsedRef>() {
  using R = XMPlUsedRef;
  return recordType<R>("usedRef", {
                                      VXMETA_FIELD(instanceID, "the file"),
                                      VXMETA_FIELD(renditionClass, "which rendition of it"),
                                      VXMETA_FIELD(pagenr, "its page; stored in 32 bits"),
                                  });
}

}  // namespace vxmeta

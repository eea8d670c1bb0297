// SPDX-License-Identifier: Apache-2.0
// One stored screen
//   curves     vxScreen:singlepressDGC                                     text
//              vxScreen:autoplateDGCreq, autoplateDGCLW, autoplateDGCCT    text
//              vxScreen:autopressDGCreq, autopressDGCLW, autopressDGCCT    text
//              vxScreen:totalDGCLW, totalDGCCT                             text, optional
//              vxScreen:gamma                                              text
//              vxScreen:usedrefs                                           text
//   rulings    vxScreen:frequencyreq, frequency                            real
//   angles     vxScreen:anglereq, angle                                    real
//   dot        vxScreen:dotshapereq, dotshape                              text
//              vxScreen:dotname                                            text, optional
// Rulings, angles and dot make up the screening, which is there as a whole or not at all.
#pragma once

#include "core/items.h"
#include "xmpl/screening.h"

namespace xmpl {

inline constexpr auto kRulingsAndAngles = [](const auto& item, auto& screen) {
  return item.real("vxScreen:frequencyreq", screen.frequencyreq) &&
         item.real("vxScreen:frequency", screen.frequency) &&
         item.real("vxScreen:anglereq", screen.anglereq) &&
         item.real("vxScreen:angle", screen.angle);
};

// Whether the item is a whole screen, with or without screening.
bool readScreen(const ItemReader& item, XMPlScreen& screen);

void writeScreen(const ItemWriter& item, const XMPlScreen& screen);
void writeScreenCurves(const ItemWriter& item, const XMPlScreen& screen);
void writeScreenDot(const ItemWriter& item, const XMPlScreen& screen);  // its shape for a name

}  // namespace xmpl

// One stored screen
//   curves     vxScreen:singlepressDGC                                     text
//              vxScreen:autoplateDGCreq, autoplateDGCLW, autoplateDGCCT    text
//              vxScreen:autopressDGCreq, autopressDGCLW, autopressDGCCT    text
//              vxScreen:totalDGCLW, totalDGCCT                             text, optional
//              vxScreen:gamma                                              text
//              vxScreen:usedrefs                                           text
//   rulings    vxScreen:frequencyreq, frequency, anglereq, angle           real
//   dot        vxScreen:dotshapereq, dotshape                              text
//              vxScreen:dotname                                            text, optional
// Rulings and dot make up the screening, which is there as a whole or not at all.
#pragma once

#include <string>

#include "core/items.h"
#include "xmpl/screening.h"

namespace xmpl {

// Whether the item is a whole screen, with or without screening.
bool readScreen(const ItemReader& item, XMPlScreen& screen);

void writeScreen(const ItemWriter& item, const XMPlScreen& screen);
void writeScreenCurves(const ItemWriter& item, const XMPlScreen& screen);
void writeScreenRulings(const ItemWriter& item, const XMPlScreen& screen);

// The dot name as it is stored: the dot shape where there is none.
inline const std::string& dotNameOf(const XMPlScreen& screen) {
  return screen.dotname.empty() ? screen.dotshape : screen.dotname;
}

}  // namespace xmpl

#include "screening/screen_item.h"

namespace xmpl {
namespace {

bool readCurves(const ItemReader& item, XMPlScreen& screen) {
  const bool hasPlateAndPress = item.text("vxScreen:singlepressDGC", screen.singlepressDGC) &&
                                item.text("vxScreen:autoplateDGCreq", screen.autoplateDGCreq) &&
                                item.text("vxScreen:autoplateDGCLW", screen.autoplateDGCLW) &&
                                item.text("vxScreen:autoplateDGCCT", screen.autoplateDGCCT) &&
                                item.text("vxScreen:autopressDGCreq", screen.autopressDGCreq) &&
                                item.text("vxScreen:autopressDGCLW", screen.autopressDGCLW) &&
                                item.text("vxScreen:autopressDGCCT", screen.autopressDGCCT);
  item.optional().text("vxScreen:totalDGCLW", screen.totalDGCLW);
  item.optional().text("vxScreen:totalDGCCT", screen.totalDGCCT);
  return hasPlateAndPress && item.text("vxScreen:gamma", screen.gamma) &&
         item.text("vxScreen:usedrefs", screen.usedrefs);
}

void readScreening(const ItemReader& item, XMPlScreen& screen) {
  screen.hasScreening = item.real("vxScreen:frequencyreq", screen.frequencyreq) &&
                        item.real("vxScreen:frequency", screen.frequency) &&
                        item.real("vxScreen:anglereq", screen.anglereq) &&
                        item.real("vxScreen:angle", screen.angle) &&
                        item.text("vxScreen:dotshapereq", screen.dotshapereq) &&
                        item.text("vxScreen:dotshape", screen.dotshape);
  if (screen.hasScreening && !item.text("vxScreen:dotname", screen.dotname)) {
    screen.dotname = screen.dotshape;
  }
}

}  // namespace

bool readScreen(const ItemReader& item, XMPlScreen& screen) {
  const bool whole = readCurves(item, screen);
  readScreening(item.optional(), screen);
  return whole;
}

void writeScreenCurves(const ItemWriter& item, const XMPlScreen& screen) {
  item.text("vxScreen:singlepressDGC", screen.singlepressDGC);
  item.text("vxScreen:autoplateDGCreq", screen.autoplateDGCreq);
  item.text("vxScreen:autoplateDGCLW", screen.autoplateDGCLW);
  item.text("vxScreen:autoplateDGCCT", screen.autoplateDGCCT);
  item.text("vxScreen:autopressDGCreq", screen.autopressDGCreq);
  item.text("vxScreen:autopressDGCLW", screen.autopressDGCLW);
  item.text("vxScreen:autopressDGCCT", screen.autopressDGCCT);
  item.text("vxScreen:totalDGCLW", screen.totalDGCLW);
  item.text("vxScreen:totalDGCCT", screen.totalDGCCT);
  item.text("vxScreen:gamma", screen.gamma);
  item.text("vxScreen:usedrefs", screen.usedrefs);
}

void writeScreenRulings(const ItemWriter& item, const XMPlScreen& screen) {
  item.real("vxScreen:frequencyreq", screen.frequencyreq);
  item.real("vxScreen:frequency", screen.frequency);
  item.real("vxScreen:anglereq", screen.anglereq);
  item.real("vxScreen:angle", screen.angle);
}

void writeScreen(const ItemWriter& item, const XMPlScreen& screen) {
  writeScreenCurves(item, screen);
  if (!screen.hasScreening) return;
  writeScreenRulings(item, screen);
  item.text("vxScreen:dotshapereq", screen.dotshapereq);
  item.text("vxScreen:dotshape", screen.dotshape);
  item.text("vxScreen:dotname", dotNameOf(screen));
}

}  // namespace xmpl

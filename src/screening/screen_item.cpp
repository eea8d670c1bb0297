// SPDX-License-Identifier: Apache-2.0
#include "screening/screen_item.h"

namespace xmpl {
namespace {

constexpr auto kPlateAndPressCurves = [](const auto& item, auto& screen) {
  return item.text("vxScreen:singlepressDGC", screen.singlepressDGC) &&
         item.text("vxScreen:autoplateDGCreq", screen.autoplateDGCreq) &&
         item.text("vxScreen:autoplateDGCLW", screen.autoplateDGCLW) &&
         item.text("vxScreen:autoplateDGCCT", screen.autoplateDGCCT) &&
         item.text("vxScreen:autopressDGCreq", screen.autopressDGCreq) &&
         item.text("vxScreen:autopressDGCLW", screen.autopressDGCLW) &&
         item.text("vxScreen:autopressDGCCT", screen.autopressDGCCT);
};

constexpr auto kTotalCurves = [](const auto& item, auto& screen) {
  return item.optionalText("vxScreen:totalDGCLW", screen.totalDGCLW) &&
         item.optionalText("vxScreen:totalDGCCT", screen.totalDGCCT);
};

constexpr auto kGammaAndRefs = [](const auto& item, auto& screen) {
  return item.text("vxScreen:gamma", screen.gamma) &&
         item.text("vxScreen:usedrefs", screen.usedrefs);
};

constexpr auto kDotShapes = [](const auto& item, auto& screen) {
  return item.text("vxScreen:dotshapereq", screen.dotshapereq) &&
         item.text("vxScreen:dotshape", screen.dotshape);
};

// The total curves are looked at whether or not those before them are complete.
bool readCurves(const ItemReader& item, XMPlScreen& screen) {
  const bool hasPlateAndPress = kPlateAndPressCurves(item, screen);
  kTotalCurves(item, screen);
  return hasPlateAndPress && kGammaAndRefs(item, screen);
}

void readScreening(const ItemReader& item, XMPlScreen& screen) {
  screen.hasScreening = kRulingsAndAngles(item, screen) && kDotShapes(item, screen);
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
  kPlateAndPressCurves(item, screen);
  kTotalCurves(item, screen);
  kGammaAndRefs(item, screen);
}

void writeScreenDot(const ItemWriter& item, const XMPlScreen& screen) {
  kDotShapes(item, screen);
  item.text("vxScreen:dotname", screen.dotname.empty() ? screen.dotshape : screen.dotname);
}

void writeScreen(const ItemWriter& item, const XMPlScreen& screen) {
  writeScreenCurves(item, screen);
  if (!screen.hasScreening) return;
  kRulingsAndAngles(item, screen);
  writeScreenDot(item, screen);
}

}  // namespace xmpl

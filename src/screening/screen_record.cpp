// SPDX-License-Identifier: Apache-2.0
// Equality and order of screens.
#include "xmpl/screening.h"

namespace {

// A dot name that merely repeats its own dot shape matches any dot name.
bool dotNamesMatch(const XMPlScreen& a, const XMPlScreen& b) {
  return a.dotname == a.dotshape || b.dotname == b.dotshape || a.dotname == b.dotname;
}

// Less, equal or greater as a negative number, 0 or a positive one; a pair with a NaN is greater
// both ways, so that it ends a comparison with "not less".
int compared(double a, double b) {
  if (a == b) return 0;
  return a < b ? -1 : 1;
}

int comparedScreening(const XMPlScreen& a, const XMPlScreen& b) {
  if (const int order = a.dotshape.compare(b.dotshape)) return order;
  if (const int order = compared(a.frequency, b.frequency)) return order;
  if (const int order = compared(a.angle, b.angle)) return order;
  if (const int order = a.dotshapereq.compare(b.dotshapereq)) return order;
  if (const int order = compared(a.frequencyreq, b.frequencyreq)) return order;
  if (const int order = compared(a.anglereq, b.anglereq)) return order;
  return dotNamesMatch(a, b) ? 0 : a.dotname.compare(b.dotname);
}

int comparedCurves(const XMPlScreen& a, const XMPlScreen& b) {
  if (const int order = a.singlepressDGC.compare(b.singlepressDGC)) return order;
  if (const int order = a.autoplateDGCreq.compare(b.autoplateDGCreq)) return order;
  if (const int order = a.autoplateDGCLW.compare(b.autoplateDGCLW)) return order;
  if (const int order = a.autoplateDGCCT.compare(b.autoplateDGCCT)) return order;
  if (const int order = a.autopressDGCreq.compare(b.autopressDGCreq)) return order;
  if (const int order = a.autopressDGCLW.compare(b.autopressDGCLW)) return order;
  if (const int order = a.autopressDGCCT.compare(b.autopressDGCCT)) return order;
  if (const int order = a.totalDGCCT.compare(b.totalDGCCT)) return order;
  if (const int order = a.totalDGCLW.compare(b.totalDGCLW)) return order;
  if (const int order = a.gamma.compare(b.gamma)) return order;
  return a.usedrefs.compare(b.usedrefs);
}

}  // namespace

bool XMPlScreen::operator==(const XMPlScreen& other) const {
  return singlepressDGC == other.singlepressDGC && autoplateDGCreq == other.autoplateDGCreq &&
         // Deliberate: these two are crossed. The LW and CT curves of automatic plates are never
         // compared each with its like.
         autoplateDGCLW == other.autoplateDGCCT && autoplateDGCreq == other.autoplateDGCCT &&
         autopressDGCreq == other.autopressDGCreq && autopressDGCLW == other.autopressDGCLW &&
         autopressDGCCT == other.autopressDGCCT && totalDGCCT == other.totalDGCCT &&
         totalDGCLW == other.totalDGCLW && gamma == other.gamma && usedrefs == other.usedrefs &&
         frequencyreq == other.frequencyreq && frequency == other.frequency &&
         anglereq == other.anglereq && angle == other.angle && dotshapereq == other.dotshapereq &&
         dotshape == other.dotshape && dotNamesMatch(*this, other);
}

bool XMPlScreen::operator<(const XMPlScreen& other) const {
  if (hasScreening != other.hasScreening) return hasScreening;
  if (hasScreening) {
    if (const int order = comparedScreening(*this, other)) return order < 0;
  }
  return comparedCurves(*this, other) < 0;
}

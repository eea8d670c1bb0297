// SPDX-License-Identifier: Apache-2.0
// The document's inks: vxGr:inks, an ordered array of
//   vxInk:name            text
//   vxInk:type            text
//   vxInk:book            text, optional; written on demand
//   vxInk:vxname          text, optional; written on demand
//   vxInk:frequency       real
//   vxInk:angle           real
//   vxInk:dotshape        text, optional
//   vxInk:r, g, b         real
//   vxInk:attribute       text; "normal" for an opaque mask
//   vxInk:omask           boolean, optional; true for an opaque mask, whose attribute reads "omask"
//   vxInk:printingmethod  text, optional
// and their coverage at the same positions: vxInkCovL:coverage, an ordered array of
//   vxInkCov:pct          real, optional
//   vxInkCov:mm2          real, optional
#include "core/call_guard.h"
#include "core/list_merge.h"
#include "core/unread.h"
#include "inks/ink_item.h"

using xmpl::ArrayReader;
using xmpl::ArrayWriter;
using xmpl::ItemReader;
using xmpl::ItemWriter;
using xmpl::Metadata;

namespace {

constexpr xmpl::List kInks{"vxGr:inks", xmpl::ArrayKind::ordered};
constexpr xmpl::List kCoverage{"vxInkCovL:coverage", xmpl::ArrayKind::ordered};
constexpr const char* kOpaqueMask = "omask";

// Deliberate: what cannot be read here is no error, the coverage is not valid then.
void readCoverage(const ArrayReader& coverage, std::size_t i, XMPlInk& ink) {
  try {
    const ItemReader item = coverage.item(i);
    ink.coverageValid = item.real("vxInkCov:pct", ink.pct) && item.real("vxInkCov:mm2", ink.mm2);
  } catch (const XMP_Error&) {
    ink.coverageValid = false;
  }
}

bool readInk(const ItemReader& item, XMPlInk& ink) {
  if (!readInkIdentity(item, ink) || !item.real("vxInk:frequency", ink.frequency) ||
      !item.real("vxInk:angle", ink.angle) || !item.optionalText("vxInk:dotshape", ink.dotshape) ||
      !xmpl::kInkColour(item, ink) || !item.text("vxInk:attribute", ink.attribute)) {
    return false;
  }
  item.optionalText("vxInk:printingmethod", ink.printingmethod);
  bool omask = false;
  item.optional().boolean("vxInk:omask", omask);
  if (omask) ink.attribute = kOpaqueMask;
  return true;
}

void writeAttribute(const ItemWriter& item, const std::string& attribute) {
  if (attribute == kOpaqueMask) {
    item.text("vxInk:attribute", "normal");
    item.boolean("vxInk:omask", true);
  } else {
    item.text("vxInk:attribute", attribute);
  }
}

void writeInk(const ItemWriter& item, const XMPlInk& ink, bool writeBookAndVxname) {
  writeInkIdentity(item, ink, writeBookAndVxname);
  item.real("vxInk:frequency", ink.frequency);
  item.real("vxInk:angle", ink.angle);
  item.text("vxInk:dotshape", ink.dotshape);
  xmpl::kInkColour(item, ink);
  writeAttribute(item, ink.attribute);
  item.text("vxInk:printingmethod", ink.printingmethod);
}

void writeCoverage(const ItemWriter& item, const XMPlInk& ink) {
  if (!ink.coverageValid) return;
  item.real("vxInkCov:pct", ink.pct);
  item.real("vxInkCov:mm2", ink.mm2);
}

// Ends like readItems.
void readInks(const ArrayReader& array, const ArrayReader& coverage, bool excludeOmask,
              std::vector<XMPlInk>& inks) {
  for (std::size_t i = 1;; ++i) {
    XMPlInk ink;
    if (!readInk(array.item(i), ink)) break;
    readCoverage(coverage, i, ink);
    if (!excludeOmask || ink.attribute != kOpaqueMask) inks.push_back(std::move(ink));
  }
}

}  // namespace

bool XMPlInkBasic::operator==(const XMPlInkBasic& other) const {
  return xmpl::kBasicInkIdentity(*this) == xmpl::kBasicInkIdentity(other);
}

bool XMPlInk::operator==(const XMPlInk& other) const {
  return xmpl::kInkIdentity(*this) == xmpl::kInkIdentity(other);
}

void xmpl::findUnreadInks(const Metadata& metadata, Unread& unread) {
  ListAudit inksAudit(metadata, kInks.name);
  ListAudit coverageAudit(metadata, kCoverage.name);
  std::vector<XMPlInk> inks;
  inksAudit.read([&](const ArrayReader& array) {
    readInks(array, ArrayReader(metadata, kCoverage.name), false, inks);
  });
  inksAudit.noteItems(inks.size(), unread);
  const auto write = [](const ItemWriter& item, const XMPlInk& ink) { writeInk(item, ink, true); };
  inksAudit.noteFields(
      kInks.kind, [&](const ArrayWriter& array) { writeItems(array, write, inks); }, unread);
  coverageAudit.read([](const ArrayReader& array) { array.item(1); });  // a text is no list
  coverageAudit.noteItems(std::min(inks.size(), coverageAudit.size()), unread, "no such ink");
  coverageAudit.noteFields(
      kCoverage.kind, [&](const ArrayWriter& array) { writeItems(array, writeCoverage, inks); },
      unread);
}

bool XMPlib::GetInks(std::vector<XMPlInk>& inks) const { return GetInks(inks, false); }

bool XMPlib::GetInks(std::vector<XMPlInk>& inks, bool excludeOmask) const {
  inks.clear();
  return guarded([&](const Metadata& metadata) {
    const ArrayReader array(metadata, kInks.name);
    const ArrayReader coverage(metadata, kCoverage.name);
    readInks(array, coverage, excludeOmask, inks);
    return array.exists();
  });
}

bool XMPlib::SetInks(const std::vector<XMPlInk>& inks, bool writeBookAndVxname) {
  return guarded([&](Metadata& metadata) {
    const ArrayWriter array(metadata, kInks.name, kInks.kind);
    const ArrayWriter coverage(metadata, kCoverage.name, kCoverage.kind);
    for (const XMPlInk& ink : inks) {
      const ItemWriter item = array.addItem();
      const ItemWriter coverageItem = coverage.addItem();
      writeInk(item, ink, writeBookAndVxname);
      writeCoverage(coverageItem, ink);
    }
    return true;
  });
}

bool XMPlib::MergeInks(const std::vector<XMPlInk>& inks, bool writeBookAndVxname) {
  return guarded([&](const Metadata&) {
    std::vector<XMPlInk> merged;
    GetInks(merged, false);
    if (!xmpl::mergeMissing(merged, inks, xmpl::kInkIdentity)) return true;
    // Deliberate: coverage was measured for another set of inks.
    for (XMPlInk& ink : merged) ink.coverageValid = false;
    SetInks(merged, writeBookAndVxname);
    return true;
  });
}

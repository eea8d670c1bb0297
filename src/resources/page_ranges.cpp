// SPDX-License-Identifier: Apache-2.0
// Page ranges: vxPagL:pagelist, an ordered array of
//   vxPag:start  integer
//   vxPag:end    integer
//   vxPag:inks   ordered array of integers, optional
#include "core/call_guard.h"
#include "core/unread.h"

using xmpl::ArrayKind;
using xmpl::ArrayReader;
using xmpl::ArrayWriter;
using xmpl::ItemReader;
using xmpl::ItemWriter;

namespace {

constexpr xmpl::List kPageRanges{"vxPagL:pagelist", ArrayKind::ordered};

bool readPageRange(const ItemReader& item, XMPlPagRange& range) {
  if (!item.integer("vxPag:start", range.start) || !item.integer("vxPag:end", range.end)) {
    return false;
  }
  const ArrayReader inks = item.optional().array("vxPag:inks");
  std::int32_t ink = 0;
  for (std::size_t j = 1; inks.integer(j, ink); ++j) range.inks.push_back(ink);
  return true;
}

void writePageRange(const ItemWriter& item, const XMPlPagRange& range) {
  item.integer("vxPag:start", range.start);
  item.integer("vxPag:end", range.end);
  const ArrayWriter inks = item.array("vxPag:inks", ArrayKind::ordered);
  for (const std::int32_t ink : range.inks) inks.addInteger(ink);
}

}  // namespace

void xmpl::findUnreadPageRanges(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlPagRange>(metadata, kPageRanges, readPageRange, writePageRange, unread);
}

bool XMPlib::GetPagRanges(std::vector<XMPlPagRange>& ranges) const {
  return guarded(reading(kPageRanges, readPageRange, ranges));
}

bool XMPlib::SetPagRanges(const std::vector<XMPlPagRange>& ranges) {
  return guarded(writing(kPageRanges, writePageRange, ranges));
}

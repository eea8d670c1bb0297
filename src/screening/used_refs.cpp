// SPDX-License-Identifier: Apache-2.0
// Used references: vxUsedFL:files, an ordered array of
//   vxUsedF:instanceID      text
//   vxUsedF:renditionClass  text
//   vxUsedF:pagenr          integer, optional
#include "core/call_guard.h"
#include "core/unread.h"

using xmpl::ItemReader;
using xmpl::ItemWriter;

namespace {

constexpr xmpl::List kUsedRefs{"vxUsedFL:files", xmpl::ArrayKind::ordered};

bool readUsedRef(const ItemReader& item, XMPlUsedRef& ref) {
  const bool complete = item.text("vxUsedF:instanceID", ref.instanceID) &&
                        item.text("vxUsedF:renditionClass", ref.renditionClass);
  std::int32_t page = 0;
  if (item.optional().integer("vxUsedF:pagenr", page)) ref.pagenr = page;
  return complete;
}

void writeUsedRef(const ItemWriter& item, const XMPlUsedRef& ref) {
  item.text("vxUsedF:instanceID", ref.instanceID);
  item.text("vxUsedF:renditionClass", ref.renditionClass);
  item.integer("vxUsedF:pagenr", static_cast<std::int32_t>(ref.pagenr));
}

}  // namespace

bool XMPlUsedRef::operator==(const XMPlUsedRef& other) const {
  return instanceID == other.instanceID && renditionClass == other.renditionClass &&
         pagenr == other.pagenr;
}

bool XMPlUsedRef::operator<(const XMPlUsedRef& other) const {
  if (instanceID != other.instanceID) return instanceID < other.instanceID;
  if (renditionClass != other.renditionClass) return renditionClass < other.renditionClass;
  return pagenr < other.pagenr;
}

void xmpl::findUnreadUsedRefs(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlUsedRef>(metadata, kUsedRefs, readUsedRef, writeUsedRef, unread);
}

bool XMPlib::GetUsedRefs(std::vector<XMPlUsedRef>& refs) const {
  return guarded(reading(kUsedRefs, readUsedRef, refs));
}

bool XMPlib::SetUsedRefs(const std::vector<XMPlUsedRef>& refs) {
  return guarded(writing(kUsedRefs, writeUsedRef, refs));
}

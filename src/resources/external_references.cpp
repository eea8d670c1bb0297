// SPDX-License-Identifier: Apache-2.0
// External references, and for older readers the same as file references in a list of their own.
#include <algorithm>
#include <limits>

#include "core/call_guard.h"
#include "core/list_merge.h"
#include "core/unread.h"
#include "resources/file_reference.h"

namespace {

constexpr xmpl::List kReferences{"vxExtFL2:files", xmpl::ArrayKind::unordered};
constexpr xmpl::List kOldReferences{"vxExtFL:files", xmpl::ArrayKind::unordered};

constexpr auto kReferenceFields = [](const auto& item, auto& ref) {
  return item.text("vxExtF:instanceID", ref.instanceID) &&
         item.text("vxExtF:renditionClass", ref.renditionClass) &&
         item.integer("vxExtF:pagenr", ref.pagenr) && item.optionalText("vxExtF:type", ref.type) &&
         item.integer("vxExtF:count", ref.count);
};

// An unknown count wins over any number.
void addCount(XMPlExtRef& listed, const XMPlExtRef& incoming) {
  constexpr std::int32_t kUnknown = -1;
  if (listed.count == kUnknown) return;
  if (incoming.count == kUnknown) {
    listed.count = kUnknown;
    return;
  }
  constexpr std::int64_t kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  const std::int64_t sum = std::int64_t{listed.count} + incoming.count;
  listed.count = static_cast<std::int32_t>(std::clamp(sum, kLeast, kMost));
}

}  // namespace

bool XMPlExtRef::operator==(const XMPlExtRef& other) const {
  return xmpl::kReferenceIdentity(*this) == xmpl::kReferenceIdentity(other);
}

void xmpl::findUnreadExtRefs(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlExtRef>(metadata, kReferences, kReferenceFields, unread);
  findUnread<XMPlExtRef>(metadata, kOldReferences, kFileReferenceFields, unread);
}

bool XMPlib::GetExtRefs(std::vector<XMPlExtRef>& refs) const { return GetExtRefs(refs, false); }

bool XMPlib::GetExtRefs(std::vector<XMPlExtRef>& refs, bool verbatim) const {
  refs.clear();
  return guarded([&](const xmpl::Metadata& metadata) {
    const xmpl::ArrayReader array(metadata, kReferences.name);
    const bool current = array.item(1).exists("vxExtF:instanceID");
    const bool found = current ? readItems(array, kReferenceFields, refs) : GetOldExtRefs(refs);
    if (!verbatim) refs = ExpandExtRefs(refs);
    return found;
  });
}

bool XMPlib::GetOldExtRefs(std::vector<XMPlExtRef>& refs) const {
  return guarded(reading(kOldReferences, xmpl::kFileReferenceFields, refs));
}

bool XMPlib::SetExtRefs(const std::vector<XMPlExtRef>& refs) { return SetExtRefs(refs, false); }

bool XMPlib::SetExtRefs(const std::vector<XMPlExtRef>& refs, bool verbatim) {
  return guarded([&](xmpl::Metadata& metadata) {
    if (!verbatim) return SetExtRefs(SimplifyExtRefs(refs), true);
    writeList(metadata, kReferences, kReferenceFields, refs);
    return SetOldExtRefs(refs);
  });
}

bool XMPlib::SetOldExtRefs(const std::vector<XMPlExtRef>& refs) {
  return guarded(writing(kOldReferences, xmpl::kFileReferenceFields, refs));
}

// Deliberate: without a new reference, the added counts are dropped with the list.
bool XMPlib::MergeExtRefs(const std::vector<XMPlExtRef>& refs) {
  return guarded(xmpl::merging(*this, &XMPlib::GetExtRefs, &XMPlib::SetExtRefs, refs,
                               xmpl::kReferenceIdentity, addCount));
}

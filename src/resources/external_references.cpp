// External references: vxExtFL2:files, an unordered array of
//   vxExtF:instanceID      text
//   vxExtF:renditionClass  text
//   vxExtF:pagenr          integer
//   vxExtF:type            text, optional
//   vxExtF:count           integer
// and for older readers vxExtFL:files, an unordered array of file references.
#include <algorithm>
#include <limits>

#include "core/call_guard.h"
#include "core/list_merge.h"
#include "core/unread.h"
#include "resources/file_reference.h"

namespace {

using xmpl::ArrayReader;
using xmpl::ItemReader;
using xmpl::ItemWriter;
using xmpl::Metadata;

constexpr xmpl::List kReferences{"vxExtFL2:files", xmpl::ArrayKind::unordered};
constexpr xmpl::List kOldReferences{"vxExtFL:files", xmpl::ArrayKind::unordered};

bool readReference(const ItemReader& item, XMPlExtRef& ref) {
  if (!item.text("vxExtF:instanceID", ref.instanceID) ||
      !item.text("vxExtF:renditionClass", ref.renditionClass) ||
      !item.integer("vxExtF:pagenr", ref.pagenr)) {
    return false;
  }
  item.optional().text("vxExtF:type", ref.type);
  return item.integer("vxExtF:count", ref.count);
}

void writeReference(const ItemWriter& item, const XMPlExtRef& ref) {
  item.text("vxExtF:instanceID", ref.instanceID);
  item.text("vxExtF:renditionClass", ref.renditionClass);
  item.integer("vxExtF:pagenr", ref.pagenr);
  item.text("vxExtF:type", ref.type);
  item.integer("vxExtF:count", ref.count);
}

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
  return instanceID == other.instanceID && pagenr == other.pagenr;
}

void xmpl::findUnreadExtRefs(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlExtRef>({metadata, kReferences.name}, kReferences.kind, readReference,
                         writeReference, unread);
  findUnread<XMPlExtRef>({metadata, kOldReferences.name}, kOldReferences.kind, readFileReference,
                         writeFileReference, unread);
}

bool XMPlib::GetExtRefs(std::vector<XMPlExtRef>& refs) const { return GetExtRefs(refs, false); }

bool XMPlib::GetExtRefs(std::vector<XMPlExtRef>& refs, bool verbatim) const {
  refs.clear();
  return guarded([&](const Metadata& metadata) {
    const ArrayReader array(metadata, kReferences.name);
    const bool current = array.item(1).exists("vxExtF:instanceID");
    const bool found = current ? readItems(array, readReference, refs) : GetOldExtRefs(refs);
    if (!verbatim) refs = ExpandExtRefs(refs);
    return found;
  });
}

bool XMPlib::GetOldExtRefs(std::vector<XMPlExtRef>& refs) const {
  refs.clear();
  return guarded([&](const Metadata& metadata) {
    return readList(metadata, kOldReferences, xmpl::readFileReference, refs);
  });
}

bool XMPlib::SetExtRefs(const std::vector<XMPlExtRef>& refs) { return SetExtRefs(refs, false); }

bool XMPlib::SetExtRefs(const std::vector<XMPlExtRef>& refs, bool verbatim) {
  return guarded([&](Metadata& metadata) {
    if (!verbatim) return SetExtRefs(SimplifyExtRefs(refs), true);
    writeList(metadata, kReferences, writeReference, refs);
    return SetOldExtRefs(refs);
  });
}

bool XMPlib::SetOldExtRefs(const std::vector<XMPlExtRef>& refs) {
  return guarded([&](Metadata& metadata) {
    return writeList(metadata, kOldReferences, xmpl::writeFileReference, refs);
  });
}

bool XMPlib::MergeExtRefs(const std::vector<XMPlExtRef>& refs) {
  return guarded([&](const Metadata&) {
    std::vector<XMPlExtRef> merged;
    GetExtRefs(merged, false);
    // Deliberate: without a new reference, the added counts are dropped with the list.
    if (xmpl::mergeMissing(merged, refs, xmpl::identity, addCount)) SetExtRefs(merged, false);
    return true;
  });
}

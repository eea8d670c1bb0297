// SPDX-License-Identifier: Apache-2.0
// CAD files: file references.
#include "core/call_guard.h"
#include "core/list_merge.h"
#include "core/unread.h"
#include "resources/file_reference.h"

namespace {

constexpr xmpl::List kCadFiles{"vxCadL:files", xmpl::ArrayKind::unordered};

}  // namespace

void xmpl::findUnreadCadFiles(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlExtRef>(metadata, kCadFiles, kFileReferenceFields, unread);
}

bool XMPlib::GetCadFiles(std::vector<XMPlExtRef>& files) const {
  return guarded(reading(kCadFiles, xmpl::kFileReferenceFields, files));
}

bool XMPlib::SetCadFiles(const std::vector<XMPlExtRef>& files) {
  return guarded(writing(kCadFiles, xmpl::kFileReferenceFields, files));
}

// Deliberate: page numbers are compared though none is stored, so that a file with a page number
// other than the default is always new.
bool XMPlib::MergeCadFiles(const std::vector<XMPlExtRef>& files) {
  return guarded(xmpl::merging(*this, &XMPlib::GetCadFiles, &XMPlib::SetCadFiles, files,
                               xmpl::kReferenceIdentity));
}

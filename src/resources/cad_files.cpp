// CAD files: vxCadL:files, an unordered array of file references.
#include "core/call_guard.h"
#include "core/list_merge.h"
#include "core/unread.h"
#include "resources/file_reference.h"

namespace {

using xmpl::Metadata;

constexpr xmpl::List kCadFiles{"vxCadL:files", xmpl::ArrayKind::unordered};

}  // namespace

void xmpl::findUnreadCadFiles(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlExtRef>({metadata, kCadFiles.name}, kCadFiles.kind, xmpl::readFileReference,
                         xmpl::writeFileReference, unread);
}

bool XMPlib::GetCadFiles(std::vector<XMPlExtRef>& files) const {
  files.clear();
  return guarded([&](const Metadata& metadata) {
    return readList(metadata, kCadFiles, xmpl::readFileReference, files);
  });
}

bool XMPlib::SetCadFiles(const std::vector<XMPlExtRef>& files) {
  return guarded([&](Metadata& metadata) {
    return writeList(metadata, kCadFiles, xmpl::writeFileReference, files);
  });
}

// Deliberate: page numbers are compared though none is stored, so that a file with a page number
// other than the default is always new.
bool XMPlib::MergeCadFiles(const std::vector<XMPlExtRef>& files) {
  return guarded([&](const Metadata&) {
    std::vector<XMPlExtRef> merged;
    GetCadFiles(merged);
    if (xmpl::mergeMissing(merged, files, xmpl::identity)) SetCadFiles(merged);
    return true;
  });
}

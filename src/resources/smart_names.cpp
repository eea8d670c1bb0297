// Smart names: vxSmNameL:smartnames, an unordered array of
//   vxSmName:name   text
//   vxSmName:value  text
#include "core/call_guard.h"
#include "core/unread.h"

namespace {

using xmpl::ItemReader;
using xmpl::ItemWriter;
using xmpl::Metadata;

constexpr xmpl::List kSmartNames{"vxSmNameL:smartnames", xmpl::ArrayKind::unordered};

bool readSmartName(const ItemReader& item, XMPlSmartName& name) {
  return item.text("vxSmName:name", name.name) && item.text("vxSmName:value", name.value);
}

void writeSmartName(const ItemWriter& item, const XMPlSmartName& name) {
  item.text("vxSmName:name", name.name);
  item.text("vxSmName:value", name.value);
}

}  // namespace

bool XMPlSmartName::operator==(const XMPlSmartName& other) const { return name == other.name; }

void xmpl::findUnreadSmartNames(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlSmartName>({metadata, kSmartNames.name}, kSmartNames.kind, readSmartName,
                            writeSmartName, unread);
}

bool XMPlib::GetSmartNames(std::vector<XMPlSmartName>& names) const {
  names.clear();
  return guarded([&](const Metadata& metadata) {
    return readList(metadata, kSmartNames, readSmartName, names);
  });
}

bool XMPlib::SetSmartNames(const std::vector<XMPlSmartName>& names) {
  return guarded(
      [&](Metadata& metadata) { return writeList(metadata, kSmartNames, writeSmartName, names); });
}

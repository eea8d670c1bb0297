// SPDX-License-Identifier: Apache-2.0
#include "core/call_guard.h"
#include "core/unread.h"

namespace {

constexpr xmpl::List kSmartNames{"vxSmNameL:smartnames", xmpl::ArrayKind::unordered};

constexpr auto kSmartNameFields = [](const auto& item, auto& name) {
  return item.text("vxSmName:name", name.name) && item.text("vxSmName:value", name.value);
};

}  // namespace

bool XMPlSmartName::operator==(const XMPlSmartName& other) const { return name == other.name; }

void xmpl::findUnreadSmartNames(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlSmartName>(metadata, kSmartNames, kSmartNameFields, unread);
}

bool XMPlib::GetSmartNames(std::vector<XMPlSmartName>& names) const {
  return guarded(reading(kSmartNames, kSmartNameFields, names));
}

bool XMPlib::SetSmartNames(const std::vector<XMPlSmartName>& names) {
  return guarded(writing(kSmartNames, kSmartNameFields, names));
}

// SPDX-License-Identifier: Apache-2.0
// Ink properties: name, and optional texts that are not written when empty.
#include "core/call_guard.h"
#include "core/unread.h"

namespace {

constexpr xmpl::List kInkProperties{"vxGr:inkproperties", xmpl::ArrayKind::ordered};

constexpr auto kInkPropertyFields = [](const auto& item, auto& property) {
  return item.text("vxInk:name", property.name) &&
         item.textUnlessEmpty("vxInk:book", property.book) &&
         item.textUnlessEmpty("vxInk:type", property.type) &&
         item.textUnlessEmpty("vxInk:printingmethod", property.printingmethod);
};

}  // namespace

bool XMPlInkProperty::operator==(const XMPlInkProperty& other) const {
  return name == other.name && book == other.book && type == other.type &&
         printingmethod == other.printingmethod;
}

void xmpl::findUnreadInkProperties(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlInkProperty>(metadata, kInkProperties, kInkPropertyFields, unread);
}

// Deliberate: true for a list that holds nothing to be read.
bool XMPlib::GetInkProperties(std::vector<XMPlInkProperty>& properties) const {
  properties.clear();
  return guarded([&](const xmpl::Metadata& metadata) {
    const xmpl::ArrayReader array(metadata, kInkProperties.name);
    readItems(array, kInkPropertyFields, properties);
    return array.exists();
  });
}

bool XMPlib::SetInkProperties(const std::vector<XMPlInkProperty>& properties) {
  return guarded(writing(kInkProperties, kInkPropertyFields, properties));
}

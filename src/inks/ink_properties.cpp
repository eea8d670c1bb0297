// Ink properties: vxGr:inkproperties, an ordered array of
//   vxInk:name            text
//   vxInk:book            text, optional; not written when empty
//   vxInk:type            text, optional; not written when empty
//   vxInk:printingmethod  text, optional; not written when empty
#include "core/call_guard.h"
#include "core/unread.h"

namespace {

using xmpl::ItemReader;
using xmpl::ItemWriter;
using xmpl::Metadata;

constexpr xmpl::List kInkProperties{"vxGr:inkproperties", xmpl::ArrayKind::ordered};

bool readInkProperty(const ItemReader& item, XMPlInkProperty& property) {
  if (!item.text("vxInk:name", property.name)) return false;
  item.optional().text("vxInk:book", property.book);
  item.optional().text("vxInk:type", property.type);
  item.optional().text("vxInk:printingmethod", property.printingmethod);
  return true;
}

void writeUnlessEmpty(const ItemWriter& item, const char* field, const std::string& text) {
  if (!text.empty()) item.text(field, text);
}

void writeInkProperty(const ItemWriter& item, const XMPlInkProperty& property) {
  item.text("vxInk:name", property.name);
  writeUnlessEmpty(item, "vxInk:book", property.book);
  writeUnlessEmpty(item, "vxInk:type", property.type);
  writeUnlessEmpty(item, "vxInk:printingmethod", property.printingmethod);
}

}  // namespace

void xmpl::findUnreadInkProperties(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlInkProperty>({metadata, kInkProperties.name}, kInkProperties.kind, readInkProperty,
                              writeInkProperty, unread);
}

bool XMPlib::GetInkProperties(std::vector<XMPlInkProperty>& properties) const {
  properties.clear();
  return guarded([&](const Metadata& metadata) {
    const xmpl::ArrayReader array(metadata, kInkProperties.name);
    readItems(array, readInkProperty, properties);
    return array.exists();
  });
}

bool XMPlib::SetInkProperties(const std::vector<XMPlInkProperty>& properties) {
  return guarded([&](Metadata& metadata) {
    return writeList(metadata, kInkProperties, writeInkProperty, properties);
  });
}

// SPDX-License-Identifier: Apache-2.0
#include "core/call_guard.h"
#include "core/list_merge.h"
#include "core/unread.h"

namespace {

constexpr xmpl::List kLayers{"vxLayL:layers", xmpl::ArrayKind::ordered};

constexpr auto kLayerFields = [](const auto& item, auto& layer) {
  return item.text("vxLay:name", layer.name) && item.boolean("vxLay:printable", layer.printable) &&
         item.boolean("vxLay:locked", layer.locked);
};

constexpr auto kLayerIdentity = [](const XMPlLay& layer) { return std::tie(layer.name); };

}  // namespace

bool XMPlLay::operator==(const XMPlLay& other) const {
  return kLayerIdentity(*this) == kLayerIdentity(other);
}

void xmpl::findUnreadLayers(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlLay>(metadata, kLayers, kLayerFields, unread);
}

bool XMPlib::GetLayers(std::vector<XMPlLay>& layers) const {
  return guarded(reading(kLayers, kLayerFields, layers));
}

bool XMPlib::SetLayers(const std::vector<XMPlLay>& layers) {
  return guarded(writing(kLayers, kLayerFields, layers));
}

bool XMPlib::MergeLayers(const std::vector<XMPlLay>& layers) {
  return guarded(
      xmpl::merging(*this, &XMPlib::GetLayers, &XMPlib::SetLayers, layers, kLayerIdentity));
}

// Layers: vxLayL:layers, an ordered array of
//   vxLay:name       text
//   vxLay:printable  boolean
//   vxLay:locked     boolean
#include "core/call_guard.h"
#include "core/list_merge.h"
#include "core/unread.h"

namespace {

using xmpl::ItemReader;
using xmpl::ItemWriter;
using xmpl::Metadata;

constexpr xmpl::List kLayers{"vxLayL:layers", xmpl::ArrayKind::ordered};

bool readLayer(const ItemReader& item, XMPlLay& layer) {
  return item.text("vxLay:name", layer.name) && item.boolean("vxLay:printable", layer.printable) &&
         item.boolean("vxLay:locked", layer.locked);
}

void writeLayer(const ItemWriter& item, const XMPlLay& layer) {
  item.text("vxLay:name", layer.name);
  item.boolean("vxLay:printable", layer.printable);
  item.boolean("vxLay:locked", layer.locked);
}

// The fields that operator== compares.
auto identity(const XMPlLay& layer) { return std::tie(layer.name); }

}  // namespace

bool XMPlLay::operator==(const XMPlLay& other) const { return name == other.name; }

void xmpl::findUnreadLayers(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlLay>({metadata, kLayers.name}, kLayers.kind, readLayer, writeLayer, unread);
}

bool XMPlib::GetLayers(std::vector<XMPlLay>& layers) const {
  layers.clear();
  return guarded(
      [&](const Metadata& metadata) { return readList(metadata, kLayers, readLayer, layers); });
}

bool XMPlib::SetLayers(const std::vector<XMPlLay>& layers) {
  return guarded(
      [&](Metadata& metadata) { return writeList(metadata, kLayers, writeLayer, layers); });
}

bool XMPlib::MergeLayers(const std::vector<XMPlLay>& layers) {
  return guarded([&](const Metadata&) {
    std::vector<XMPlLay> merged;
    GetLayers(merged);
    if (xmpl::mergeMissing(merged, layers, identity)) SetLayers(merged);
    return true;
  });
}

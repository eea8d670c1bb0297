// Step and repeat: vxSrLayout:repeats, an unordered array of
//   vxSRRep:type         text
//   vxSRRep:name         text
//   vxSRRep:stationname  text, for the type "die" alone
//   vxSRRep:vnr, hnr     integer, for the type "grid" alone
//   vxSRRep:front        text
//   vxSRRep:frontpage    integer
//   vxSRRep:back         text
//   vxSRRep:backpage     integer
//   vxSRRep:count        integer
#include "core/call_guard.h"
#include "core/unread.h"

namespace {

using xmpl::ItemReader;
using xmpl::ItemWriter;
using xmpl::Metadata;

constexpr xmpl::List kRepeats{"vxSrLayout:repeats", xmpl::ArrayKind::unordered};
constexpr const char* kDie = "die";
constexpr const char* kGrid = "grid";

bool readPlacement(const ItemReader& item, XMPlRepeat& repeat) {
  if (repeat.type == kDie) return item.text("vxSRRep:stationname", repeat.stationname);
  if (repeat.type == kGrid) {
    return item.integer("vxSRRep:vnr", repeat.vnr) && item.integer("vxSRRep:hnr", repeat.hnr);
  }
  return true;
}

bool readRepeat(const ItemReader& item, XMPlRepeat& repeat) {
  return item.text("vxSRRep:type", repeat.type) && item.text("vxSRRep:name", repeat.name) &&
         readPlacement(item, repeat) && item.text("vxSRRep:front", repeat.front) &&
         item.integer("vxSRRep:frontpage", repeat.frontpage) &&
         item.text("vxSRRep:back", repeat.back) &&
         item.integer("vxSRRep:backpage", repeat.backpage) &&
         item.integer("vxSRRep:count", repeat.count);
}

void writePlacement(const ItemWriter& item, const XMPlRepeat& repeat) {
  const std::string_view type = repeat.type.c_str();  // as it is stored: up to a NUL
  if (type == kDie) {
    item.text("vxSRRep:stationname", repeat.stationname);
  } else if (type == kGrid) {
    item.integer("vxSRRep:vnr", repeat.vnr);
    item.integer("vxSRRep:hnr", repeat.hnr);
  }
}

void writeRepeat(const ItemWriter& item, const XMPlRepeat& repeat) {
  item.text("vxSRRep:type", repeat.type);
  item.text("vxSRRep:name", repeat.name);
  writePlacement(item, repeat);
  item.text("vxSRRep:front", repeat.front);
  item.integer("vxSRRep:frontpage", repeat.frontpage);
  item.text("vxSRRep:back", repeat.back);
  item.integer("vxSRRep:backpage", repeat.backpage);
  item.integer("vxSRRep:count", repeat.count);
}

}  // namespace

void xmpl::findUnreadRepeats(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlRepeat>({metadata, kRepeats.name}, kRepeats.kind, readRepeat, writeRepeat, unread);
}

bool XMPlib::GetRepeats(std::vector<XMPlRepeat>& repeats) const {
  repeats.clear();
  return guarded(
      [&](const Metadata& metadata) { return readList(metadata, kRepeats, readRepeat, repeats); });
}

bool XMPlib::SetRepeats(const std::vector<XMPlRepeat>& repeats) {
  return guarded(
      [&](Metadata& metadata) { return writeList(metadata, kRepeats, writeRepeat, repeats); });
}

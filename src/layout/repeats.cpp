// SPDX-License-Identifier: Apache-2.0
#include "core/call_guard.h"
#include "core/unread.h"

namespace {

constexpr xmpl::List kRepeats{"vxSrLayout:repeats", xmpl::ArrayKind::unordered};

// What the type alone has.
constexpr auto kPlacement = [](const auto& item, auto& repeat) {
  const std::string_view type = repeat.type.c_str();  // as it is stored: up to a NUL
  if (type == "die") return item.text("vxSRRep:stationname", repeat.stationname);
  if (type == "grid") {
    return item.integer("vxSRRep:vnr", repeat.vnr) && item.integer("vxSRRep:hnr", repeat.hnr);
  }
  return true;
};

constexpr auto kRepeatFields = [](const auto& item, auto& repeat) {
  return item.text("vxSRRep:type", repeat.type) && item.text("vxSRRep:name", repeat.name) &&
         kPlacement(item, repeat) && item.text("vxSRRep:front", repeat.front) &&
         item.integer("vxSRRep:frontpage", repeat.frontpage) &&
         item.text("vxSRRep:back", repeat.back) &&
         item.integer("vxSRRep:backpage", repeat.backpage) &&
         item.integer("vxSRRep:count", repeat.count);
};

}  // namespace

void xmpl::findUnreadRepeats(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlRepeat>(metadata, kRepeats, kRepeatFields, unread);
}

bool XMPlib::GetRepeats(std::vector<XMPlRepeat>& repeats) const {
  return guarded(reading(kRepeats, kRepeatFields, repeats));
}

bool XMPlib::SetRepeats(const std::vector<XMPlRepeat>& repeats) {
  return guarded(writing(kRepeats, kRepeatFields, repeats));
}

// SPDX-License-Identifier: Apache-2.0
// What the Gets of lists leave out, over all lists of the schema.
#include "core/unread.h"

#include "core/call_guard.h"

using xmpl::Metadata;
using xmpl::Unread;

namespace {

constexpr xmpl::FindUnread* kInks = xmpl::findUnreadInks;
constexpr xmpl::FindUnread* kFilmInks = xmpl::findUnreadFilmInks;

constexpr xmpl::FindUnread* kOtherLists[] = {
    xmpl::findUnreadInkProperties, xmpl::findUnreadJobRefs,    xmpl::findUnreadDgcs,
    xmpl::findUnreadScreens,       xmpl::findUnreadUsedRefs,   xmpl::findUnreadExtRefs,
    xmpl::findUnreadCadFiles,      xmpl::findUnreadFonts,      xmpl::findUnreadBarcodes,
    xmpl::findUnreadLayers,        xmpl::findUnreadPageRanges, xmpl::findUnreadSmartNames,
    xmpl::findUnreadRepeats,
};

Unread unreadIn(const Metadata& metadata, bool filmInks) {
  Unread unread;
  (filmInks ? kFilmInks : kInks)(metadata, unread);
  for (xmpl::FindUnread* find : kOtherLists) find(metadata, unread);
  return unread;
}

}  // namespace

bool XMPlib::GetUnreadItems(std::vector<XMPlUnreadItems>& unread) const {
  return GetUnreadItems(unread, false);
}

bool XMPlib::GetUnreadItems(std::vector<XMPlUnreadItems>& unread, bool filmInks) const {
  unread.clear();
  return guarded([&](const Metadata& metadata) {
    unread = unreadIn(metadata, filmInks).items;
    return !unread.empty();
  });
}

bool XMPlib::GetUnreadFields(std::vector<XMPlUnreadField>& unread) const {
  return GetUnreadFields(unread, false);
}

bool XMPlib::GetUnreadFields(std::vector<XMPlUnreadField>& unread, bool filmInks) const {
  unread.clear();
  return guarded([&](const Metadata& metadata) {
    unread = unreadIn(metadata, filmInks).fields;
    return !unread.empty();
  });
}

// SPDX-License-Identifier: Apache-2.0
// Screens in groups: vxScreenC:screenContainer, an ordered array of
//   vxScreenL:screens  unordered array of screens (screen_item.h)
// The older layout, which is only read: vxScreenL:screens at the top level.
#include "core/call_guard.h"
#include "core/unread.h"
#include "screening/screen_item.h"

using xmpl::ArrayKind;
using xmpl::ArrayReader;
using xmpl::ArrayWriter;
using xmpl::Metadata;

namespace {

constexpr xmpl::List kContainer{"vxScreenC:screenContainer", ArrayKind::ordered};
constexpr xmpl::PropertyName kOlderScreens = "vxScreenL:screens";
constexpr const char* kGroupScreens = "vxScreenL:screens";

ArrayReader screensOf(const ArrayReader& container, std::size_t group) {
  return container.item(group).array(kGroupScreens);
}

bool readScreens(const ArrayReader& array, std::vector<XMPlScreen>& screens) {
  return readItems(array, xmpl::readScreen, screens);
}

// Whether reading goes on with this group.
bool hasGroup(const ArrayReader& container, std::size_t group) {
  return screensOf(container, group).item(1).exists("vxScreen:autoplateDGCreq");
}

// Appends the screens of all groups; answers whether the last group that was read had any.
bool readAllGroups(const ArrayReader& container, std::vector<XMPlScreen>& screens) {
  for (std::size_t group = 1;; ++group) {
    if (!readScreens(screensOf(container, group), screens)) return false;
    if (!hasGroup(container, group + 1)) return true;
  }
}

// Appends one list a group; ends before the first group that yields nothing.
void readGroups(const ArrayReader& container, std::vector<std::vector<XMPlScreen>>& groups) {
  do {
    std::vector<XMPlScreen> screens;
    if (!readScreens(screensOf(container, groups.size() + 1), screens)) break;
    groups.push_back(std::move(screens));
  } while (hasGroup(container, groups.size() + 1));
}

void writeGroup(const ArrayWriter& container, const std::vector<XMPlScreen>& screens) {
  const ArrayWriter group = container.addItem().array(kGroupScreens, ArrayKind::unordered);
  writeItems(group, xmpl::writeScreen, screens);
}

}  // namespace

void xmpl::findUnreadScreens(const Metadata& metadata, Unread& unread) {
  ListAudit container(metadata, kContainer.name);
  std::vector<std::vector<XMPlScreen>> groups;
  container.read([&](const ArrayReader& array) { readGroups(array, groups); });
  container.noteItems(groups.size(), unread);
  const auto writeGroups = [&](const ArrayWriter& array) {
    for (const std::vector<XMPlScreen>& screens : groups) writeGroup(array, screens);
  };
  container.noteFields(kContainer.kind, writeGroups, unread);
  for (std::size_t i = 1; i <= std::min(groups.size() + 1, container.size()); ++i) {
    ListAudit group = container.nested(i, kGroupScreens);
    std::vector<XMPlScreen> screens;
    group.read([&](const ArrayReader& array) { readScreens(array, screens); });
    group.noteItems(screens.size(), unread);
  }
  findUnread<XMPlScreen>({metadata, kOlderScreens}, ArrayKind::unordered, readScreen, writeScreen,
                         unread);
}

// Deliberate: the result is that of the last list read. It is false when a group behind others
// breaks off at its first screen, whatever those others yielded.
bool XMPlib::GetScreens(std::vector<XMPlScreen>& screens) const {
  screens.clear();
  return guarded([&](const Metadata& metadata) {
    const bool found = readAllGroups(ArrayReader(metadata, kContainer.name), screens);
    return screens.empty() ? readScreens(ArrayReader(metadata, kOlderScreens), screens) : found;
  });
}

bool XMPlib::GetScreens(std::vector<XMPlScreen>& screens, int group) const {
  screens.clear();
  return guarded([&](const Metadata& metadata) {
    const ArrayReader container(metadata, kContainer.name);
    return group > 0 && readScreens(screensOf(container, static_cast<std::size_t>(group)), screens);
  });
}

bool XMPlib::SetScreens(const std::vector<XMPlScreen>& screens) {
  return guarded([&](Metadata& metadata) {
    writeGroup(ArrayWriter(metadata, kContainer.name, kContainer.kind), screens);
    return true;
  });
}

bool XMPlib::GetScreenContainer(std::vector<std::vector<XMPlScreen>>& groups) const {
  groups.clear();
  return guarded([&](const Metadata& metadata) {
    readGroups(ArrayReader(metadata, kContainer.name), groups);
    return !groups.empty();
  });
}

bool XMPlib::SetScreenContainer(const std::vector<std::vector<XMPlScreen>>& groups) {
  return guarded([&](Metadata& metadata) {
    const ArrayWriter container(metadata, kContainer.name, kContainer.kind);
    for (const std::vector<XMPlScreen>& screens : groups) writeGroup(container, screens);
    return true;
  });
}

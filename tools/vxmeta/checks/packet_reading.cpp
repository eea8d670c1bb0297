// SPDX-License-Identifier: Apache-2.0
#include "checks/packet_reading.h"

#include <fmt/format.h>
#include <algorithm>

namespace vxmeta {
namespace {

bool continuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

}  // namespace

std::string quoted(const std::string& text) {
  constexpr std::size_t kLongest = 60;
  if (text.size() <= kLongest) return '"' + text + '"';
  std::size_t end = kLongest;
  while (end > 0 && continuesCharacter(text[end])) --end;
  return '"' + text.substr(0, end) + "...\"";
}

std::string counted(std::size_t count, const char* thing) {
  return fmt::format("{} {}{}", count, thing, count == 1 ? "" : "s");
}

bool hasList(const Subject& subject, std::string_view property) {
  const StoredNode* stored = subject.stored().property(property);
  return stored != nullptr && stored->form == StoredNode::Form::list;
}

const std::vector<StoredNode>& itemsOf(const StoredNode* list) {
  static const std::vector<StoredNode> kNone;
  return list == nullptr || list->form != StoredNode::Form::list ? kNone : list->children;
}

}  // namespace vxmeta

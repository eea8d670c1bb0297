// SPDX-License-Identifier: Apache-2.0
#include "model/losses.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "model/path.h"
#include "model/sections.h"
#include "model/stored.h"
#include "model/unread.h"

namespace vxmeta {
namespace {

using Counts = std::map<std::string, std::ptrdiff_t, std::less<>>;

void count(const StoredNode& node, const std::string& path, std::ptrdiff_t by, Counts& counts) {
  if (node.form == StoredNode::Form::text && node.text.empty()) return;
  counts[path] += by;
  for (const StoredNode& qualifier : node.qualifiers) {
    count(qualifier, path + '/' + qualifier.name, by, counts);
  }
  for (const StoredNode& child : node.children) {
    count(child, child.name == "rdf:li" ? path + "[]" : path + '/' + child.name, by, counts);
  }
}

std::string lossOf(const UnreadPart& part) {
  if (!isOfList(part)) {
    return fmt::format("{} of {} ({})", storedPath(part), part.list, part.reason.value_or(""));
  }
  if (part.field) {
    const std::string item = part.item ? fmt::format("[{}]", *part.item) : "";
    return fmt::format("{} in {}{}", *part.field, part.list, item);
  }
  const int stored = part.stored.value_or(0);
  const int read = part.read.value_or(0);
  const std::string reason = part.reason.value_or("");
  if (part.item) return fmt::format("{}[{}] ({})", part.list, *part.item, reason);
  if (stored == 0) return fmt::format("what stands in {} and is no list ({})", part.list, reason);
  return fmt::format("{} of {} items of {}, from [{}] on, which is not read ({})", stored - read,
                     stored, part.list, read, reason);
}

std::string descriptionIn(const Document& document) {
  return document.document.value_or(XMPlDocData()).description;
}

// Whether a Set writes the property anew. Those of single values leave all else alone, but for the
// description, and for what is removed where its text is empty.
bool isWrittenAnew(const Unit& unit, const Edit& edit, const UnreadPart& part) {
  if (part.property == unit.writtenToo) return true;
  if (sectionOf(part.property) != unit.path || isBeside(part.property)) return false;
  if (part.property == "dc:description") {
    return descriptionIn(edit.before) != descriptionIn(edit.after);
  }
  const bool isBlank = part.value && part.value->empty();
  return (unit.absence == Absence::emptied && !isBlank) || typeOf(unit).kind == Kind::list;
}

}  // namespace

std::vector<Loss> lostNodes(const StoredProperties& before, const StoredProperties& after,
                            const std::vector<std::string_view>& but) {
  Counts counts;
  for (const StoredNode& node : before.properties) count(node, node.name, 1, counts);
  for (const StoredNode& node : after.properties) count(node, node.name, -1, counts);
  std::vector<Loss> losses;
  for (const auto& [path, lost] : counts) {
    const std::string property = path.substr(0, path.find_first_of("/["));
    const bool isLeftOut = std::find(but.begin(), but.end(), property) != but.end();
    if (lost > 0 && !isLeftOut) losses.push_back({property, fmt::format("{} × {}", lost, path)});
  }
  return losses;
}

std::vector<Loss> lossesOf(const Unit& unit, const Edit& edit) {
  std::vector<Loss> losses;
  for (const UnreadPart& part : edit.before.unread) {
    if (isWrittenAnew(unit, edit, part)) losses.push_back({part.property, lossOf(part)});
  }
  return losses;
}

}  // namespace vxmeta

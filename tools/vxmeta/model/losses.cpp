// SPDX-License-Identifier: Apache-2.0
#include "model/losses.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "model/path.h"
#include "model/stored.h"

namespace vxmeta {
namespace {

using Counts = std::map<std::string, std::ptrdiff_t, std::less<>>;

void count(const StoredNode& node, const std::string& path, std::ptrdiff_t by, Counts& counts) {
  if (node.form == StoredNode::Form::text && node.text.empty()) return;
  counts[path] += by;
  for (const StoredNode& child : node.children) {
    count(child, child.name == "rdf:li" ? path + "[]" : path + '/' + child.name, by, counts);
  }
}

bool isOf(const UnreadPart& part, std::string_view list) {
  return !list.empty() && part.list.starts_with(list) &&
         (part.list.size() == list.size() || part.list[list.size()] == '[');
}

Loss lossOf(const UnreadPart& part) {
  if (part.field) {
    const std::string item = part.item ? fmt::format("[{}]", *part.item) : "";
    return {part.list, fmt::format("{} in {}{}", *part.field, part.list, item)};
  }
  const int stored = part.stored.value_or(0);
  const int read = part.read.value_or(0);
  const std::string reason = part.reason.value_or("");
  if (stored == 0) return {part.list, fmt::format("what stands there and is no list ({})", reason)};
  return {part.list, fmt::format("{} of {} items of {}, from [{}] on, which is not read ({})",
                                 stored - read, stored, part.list, read, reason)};
}

// The description as it is stored, or none: those in all other languages go with it.
Document descriptionOf(const Document& before) {
  Document only;
  only.document = XMPlDocData();
  only.document->description = before.document ? before.document->description : "";
  if (only.document->description.empty()) only.document->description = kErase;
  return only;
}

bool isDescriptionKept(const Edit& edit) {
  const auto descriptionIn = [](const Document& document) {
    return document.document.value_or(XMPlDocData()).description;
  };
  return descriptionIn(edit.before) == descriptionIn(edit.after);
}

// Writes what is stored into a copy, and looks what has gone.
std::vector<Loss> hiddenLosses(const Unit& unit, const Edit& edit, const XMPlib& xmp) {
  const bool isDocument = unit.absence == Absence::threeWay;
  if (isDocument && isDescriptionKept(edit)) return {};
  const StoredProperties stored = readStored(xmp.GetXML());
  XMPlib copy = xmp.CloneXAP();
  unit.write(copy, {}, isDocument ? descriptionOf(edit.before) : edit.before);
  return lostNodes(stored, readStored(copy.GetXML()), {});
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

std::vector<Loss> lossesOf(const Unit& unit, const Edit& edit, const XMPlib& xmp) {
  std::vector<Loss> losses;
  for (const UnreadPart& part : edit.before.unread) {
    const bool isItsOwn = typeOf(unit).kind == Kind::list && isOf(part, unit.path);
    if (isItsOwn || isOf(part, unit.writtenToo)) losses.push_back(lossOf(part));
  }
  if (unit.isLossHidden) {
    const std::vector<Loss> hidden = hiddenLosses(unit, edit, xmp);
    losses.insert(losses.end(), hidden.begin(), hidden.end());
  }
  return losses;
}

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
// What reading leaves out of lists.
#include <algorithm>

#include "model/sections.h"
#include "model/unread.h"

namespace vxmeta {
namespace {

UnreadPart partOf(std::string_view storedList) {
  UnreadPart part;
  part.list = pathOfList(std::string(storedList));
  part.property = propertyOf(storedList);
  return part;
}

// --- Separations --------------------------------------------------------------------------------

constexpr std::string_view kSeparations = "vxDigFilmMetaDataList:metadataList";

class SeparationAudit {
 public:
  explicit SeparationAudit(const ReadNodes& read) : read_(read) {}

  std::vector<UnreadPart> of(const StoredNode& list) {
    if (list.form != StoredNode::Form::list) return {notRead(list, 0, "is no list")};
    for (std::size_t i = 0; i < list.children.size(); ++i) {
      item_ = static_cast<std::int32_t>(i);
      look(list.children[i], "");
    }
    return std::move(parts_);
  }

 private:
  static UnreadPart notRead(const StoredNode& node, std::int32_t stored, std::string reason) {
    UnreadPart part = partOf(kSeparations);
    part.stored = stored;
    part.read = 0;
    part.reason = std::move(reason);
    part.value = valueText(node);
    return part;
  }

  void look(const StoredNode& node, const std::string& path) {
    if (read_.contains(&node)) return lookBelow(node, path);
    if (!path.empty()) return noteField(node, path);
    UnreadPart part = notRead(node, 1, "is no structure");
    part.item = item_;
    parts_.push_back(std::move(part));
  }

  void noteField(const StoredNode& node, const std::string& path) {
    UnreadPart part = partOf(kSeparations);
    part.item = item_;
    part.field = path;
    part.value = valueText(node);
    parts_.push_back(std::move(part));
  }

  void lookBelow(const StoredNode& node, const std::string& path) {
    for (const StoredNode& qualifier : node.qualifiers) {
      noteField(qualifier, path + (path.empty() ? "" : "/") + qualifier.name);
    }
    for (std::size_t i = 0; i < node.children.size(); ++i) {
      const StoredNode& child = node.children[i];
      const std::string step =
          node.form == StoredNode::Form::list ? '[' + std::to_string(i + 1) + ']' : child.name;
      const bool isFirst = path.empty() || node.form == StoredNode::Form::list;
      look(child, path + (isFirst ? "" : "/") + step);
    }
  }

  const ReadNodes& read_;
  std::int32_t item_ = 0;
  std::vector<UnreadPart> parts_;
};

// --- Lists beside others ------------------------------------------------------------------------

using Files = std::vector<std::pair<std::string, std::string>>;

std::string textIn(const StoredNode& item, std::string_view field) {
  const std::string* text = textOf(item.field(field));
  return text == nullptr ? "" : *text;
}

// Names and rendition classes, without order.
Files filesIn(const StoredNode* list, const std::string& prefix) {
  Files files;
  if (list == nullptr) return files;
  for (const StoredNode& item : list->children) {
    files.emplace_back(textIn(item, prefix + ":instanceID"),
                       textIn(item, prefix + ":renditionClass"));
  }
  std::sort(files.begin(), files.end());
  return files;
}

// References are written in both layouts.
bool isSameAsCurrent(const StoredProperties& stored, const StoredNode& older) {
  return older.name == "vxExtFL:files" &&
         filesIn(&older, "stRef") == filesIn(stored.property("vxExtFL2:files"), "vxExtF");
}

bool isEmpty(const StoredNode& node) {
  return node.text.empty() && std::all_of(node.children.begin(), node.children.end(), isEmpty);
}

// --- Lists --------------------------------------------------------------------------------------

UnreadPart itemsPart(const XMPlUnreadItems& row, const StoredProperties& stored) {
  UnreadPart part = partOf(row.list);
  part.stored = row.stored;
  part.read = row.read;
  part.reason = row.reason;
  const StoredNode* list = nodeAt(stored, row.list);
  if (list != nullptr) part.value = valueText(*list, static_cast<std::size_t>(row.read));
  return part;
}

// Job references are read under other names than they are written, so that a Set would drop what is
// read.
bool isReadJobReference(const XMPlUnreadField& row) {
  return row.list == "vxDigFilmRefs:files" &&
         (row.field == "vxUsedF:instanceID" || row.field == "vxUsedF:renditionClass");
}

UnreadPart fieldPart(const XMPlUnreadField& row, const StoredProperties& stored) {
  UnreadPart part = partOf(row.list);
  part.field = row.field;
  std::string path = row.list;
  if (row.item > 0) {
    part.item = row.item - 1;
    path += '[' + std::to_string(row.item) + ']';
  }
  const StoredNode* node = nodeAt(stored, path + '/' + row.field);
  if (node != nullptr) part.value = valueText(*node);
  return part;
}

}  // namespace

std::vector<UnreadPart> unreadSeparations(const StoredProperties& stored, const ReadNodes& read) {
  const StoredNode* list = stored.property(kSeparations);
  return list == nullptr ? std::vector<UnreadPart>() : SeparationAudit(read).of(*list);
}

std::optional<UnreadPart> unreadBeside(const StoredProperties& stored, const StoredNode& list) {
  if (isEmpty(list) || isSameAsCurrent(stored, list)) return std::nullopt;
  UnreadPart part = partOf(list.name);
  part.stored = static_cast<std::int32_t>(list.children.size());
  part.read = 0;
  part.reason = list.name == "vxInkCovL:coverage"
                    ? "coverage is not read beside the inks of a film"
                    : "the older layout is not read beside the current one";
  part.value = valueText(list);
  return part;
}

std::vector<UnreadPart> unreadInLists(const XMPlib& xmp, bool asFilmInks,
                                      const StoredProperties& stored) {
  std::vector<UnreadPart> parts;
  std::vector<XMPlUnreadItems> items;
  xmp.GetUnreadItems(items, asFilmInks);
  std::vector<XMPlUnreadField> fields;
  xmp.GetUnreadFields(fields, asFilmInks);
  parts.reserve(items.size() + fields.size());
  for (const XMPlUnreadItems& row : items) parts.push_back(itemsPart(row, stored));
  for (const XMPlUnreadField& row : fields) {
    if (!isReadJobReference(row)) parts.push_back(fieldPart(row, stored));
  }
  return parts;
}

}  // namespace vxmeta

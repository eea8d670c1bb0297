// SPDX-License-Identifier: Apache-2.0
#include "model/compare.h"

#include <fmt/format.h>

#include <map>

#include "model/match.h"

namespace vxmeta {
namespace {

using Way = Change::Way;

// How the items of a list are called: by name where it is one item's alone, else by index.
class ItemNames {
 public:
  explicit ItemNames(const View& list) : list_(list), key_(list.type->item->key()) {
    if (key_ == nullptr || key_->type->kind != Kind::text) return;
    for (std::size_t i = 0; i < list.size(); ++i) ++counts_[textOf(i)];
  }

  std::string of(std::size_t index) const {
    const auto count = counts_.empty() ? counts_.end() : counts_.find(textOf(index));
    const bool isName = count != counts_.end() && count->second == 1 && !count->first.empty() &&
                        count->first.find_first_of("]\"") == std::string::npos;
    return isName ? fmt::format("[{}={}]", key_->name, count->first) : fmt::format("[{}]", index);
  }

 private:
  const std::string& textOf(std::size_t index) const {
    return list_.item(index).field(*key_).text();
  }

  View list_;
  const Field* key_;
  std::map<std::string, std::size_t> counts_;
};

class Comparer {
 public:
  explicit Comparer(bool isSemantic) : isSemantic_(isSemantic) {}

  void sections(const Document& before, const Document& after) {
    fields(viewOf(before), viewOf(after), "", true);
  }

  void unread(const Document& before, const Document& after) {
    lists(viewOf(before.unread), viewOf(after.unread), "unread", false);
  }

  std::vector<Change> changes() { return std::move(changes_); }

 private:
  void note(Way way, const std::string& path, const View& before, const View& after) {
    changes_.push_back({way, path, before, after});
  }

  void fields(const View& before, const View& after, const std::string& path, bool isDocument) {
    for (const Field& field : before.type->fields) {
      const bool isLeftOut = (isDocument && isAboutTheFile(field)) || !field.isStored ||
                             (isSemantic_ && field.isDateOrId);
      if (isLeftOut) continue;
      const std::string name = (isDocument ? "" : path + ".") + std::string(field.name);
      values(before.field(field).present(), after.field(field).present(), name, field.isOrdered);
    }
  }

  // Null types: absent.
  void values(const View& before, const View& after, const std::string& path, bool isOrdered) {
    if (before.type == nullptr && after.type == nullptr) return;
    if (before.type == nullptr) return note(Way::added, path, {}, after);
    if (after.type == nullptr) return note(Way::removed, path, before, {});
    if (before.is(Kind::record)) return fields(before, after, path, false);
    if (before.is(Kind::list)) return lists(before, after, path, isOrdered);
    if (!isSame(before, after)) note(Way::changed, path, before, after);
  }

  void lists(const View& before, const View& after, const std::string& path, bool isOrdered) {
    const Kind kind = before.type->item->kind;
    if (kind == Kind::record) return records(before, after, path, isOrdered);
    if (kind == Kind::list) return groups(before, after, path);
    if (!isSame(before, after)) note(Way::changed, path, before, after);
  }

  // Lists in a list, by place.
  void groups(const View& before, const View& after, const std::string& path) {
    const auto at = [](const View& list, std::size_t i) {
      return i < list.size() ? list.item(i) : View{};
    };
    for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
      values(at(before, i), at(after, i), fmt::format("{}[{}]", path, i), false);
    }
  }

  void records(const View& before, const View& after, const std::string& path, bool isOrdered) {
    const Matching matching = match(before, after);
    const ItemNames namesBefore(before);
    const ItemNames namesAfter(after);
    bool isMoved = false;
    std::size_t last = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
      const std::string name = path + namesBefore.of(i);
      const auto partner = matching.partners[i];
      if (!partner) {
        note(Way::removed, name, before.item(i), {});
        continue;
      }
      isMoved = isMoved || *partner < last;
      last = *partner;
      fields(before.item(i), after.item(*partner), name, false);
    }
    for (const std::size_t j : matching.added) {
      note(Way::added, path + namesAfter.of(j), {}, after.item(j));
    }
    if (isMoved && isOrdered) note(Way::moved, path, before, after);
  }

  bool isSemantic_;
  std::vector<Change> changes_;
};

}  // namespace

std::vector<Change> compare(const Document& before, const Document& after, bool isSemantic) {
  Comparer comparer(isSemantic);
  comparer.sections(before, after);
  return comparer.changes();
}

std::vector<Change> compareAll(const Document& before, const Document& after, bool isSemantic) {
  Comparer comparer(isSemantic);
  comparer.sections(before, after);
  comparer.unread(before, after);
  return comparer.changes();
}

}  // namespace vxmeta

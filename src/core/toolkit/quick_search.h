// SPDX-License-Identifier: Apache-2.0
// Among the children or qualifiers of a node, where there are many: the toolkit looks through all
// of them for each that it adds, and 16,000 fields took it seconds.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <unordered_map>

#include "XMPCore/source/XMPCore_Impl.hpp"

namespace xmpl {

// Tables of what a parse has met so far. Nodes are only ever added, at the end, while it looks.
class QuickSearch {
 public:
  static constexpr std::size_t kMany = 12;

  // Of the parse in this thread; null: the toolkit's own will do.
  static QuickSearch*& current() {
    static thread_local QuickSearch* search = nullptr;
    return search;
  }

  XMP_Node* find(const XMP_NodeOffspring& nodes, const char* name) {
    Table& table = tables_[&nodes];
    const bool isStale =
        table.seen > nodes.size() || (table.seen > 0 && nodes[table.seen - 1] != table.last);
    if (isStale) table = Table();
    for (; table.seen < nodes.size(); ++table.seen) {
      table.last = nodes[table.seen];
      if (table.last != nullptr) table.byName.emplace(table.last->name, table.last);
    }
    const auto found = table.byName.find(name);
    return found == table.byName.end() ? nullptr : found->second;
  }

 private:
  struct Table {
    std::map<std::string, XMP_Node*, std::less<>> byName;  // names may be chosen to collide
    std::size_t seen = 0;
    XMP_Node* last = nullptr;
  };

  std::unordered_map<const XMP_NodeOffspring*, Table> tables_;
};

}  // namespace xmpl

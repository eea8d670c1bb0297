// SPDX-License-Identifier: Apache-2.0
#include "commands/changes.h"

#include <nlohmann/json.hpp>

#include "text/cells.h"
#include "text/table.h"

namespace vxmeta {
namespace {

struct WayWords {
  const char* sign;
  const char* word;
  Style style;
};

const WayWords& wordsOf(Change::Way way) {
  static constexpr WayWords kWords[] = {
      {"+", "added", Style::added},
      {"-", "removed", Style::removed},
      {"~", "changed", Style::warning},
      {"^", "moved", Style::warning},
  };
  return kWords[static_cast<std::size_t>(way)];
}

std::string orderOf(const View& list) {
  const Field* key = list.type->item->key();
  std::string names;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const std::string name = key != nullptr ? shownField(list.item(i), *key) : "?";
    names += (i == 0 ? "" : ", ") + name;
  }
  return names;
}

std::string sentenceOf(const Change& change) {
  if (change.way == Change::Way::added) return shortOf(change.after);
  if (change.way == Change::Way::removed) return shortOf(change.before);
  if (change.way == Change::Way::changed) {
    return shortOf(change.before) + " → " + shortOf(change.after);
  }
  const bool hasNames = change.before.type->item->key() != nullptr;
  return hasNames ? orderOf(change.before) + " → " + orderOf(change.after)
                  : "the same items in another order";
}

}  // namespace

std::string changesText(const std::vector<Change>& changes, const Screen& screen) {
  Table table{{{"", false}, {"", false}, {"", false}}, {}};
  for (const Change& change : changes) {
    const WayWords& words = wordsOf(change.way);
    table.rows.push_back({{words.sign, {}, words.style},
                          {visible(change.path), {}, words.style},
                          {sentenceOf(change), {}, Style::plain}});
  }
  return formatTable(table, screen, 0);
}

Json changeJson(const Change& change) {
  Json json = {{"path", change.path}, {"change", wordsOf(change.way).word}};
  if (change.before.type != nullptr) json["before"] = toJson(change.before);
  if (change.after.type != nullptr) json["after"] = toJson(change.after);
  return json;
}

}  // namespace vxmeta

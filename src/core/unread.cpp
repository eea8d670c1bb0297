// SPDX-License-Identifier: Apache-2.0
#include "core/unread.h"

#include <algorithm>
#include <sstream>

#include "core/value_text.h"

namespace xmpl {
namespace {

template <class ValueOf>
bool isSameAs(const std::string& stored, const std::string& rewritten, const ValueOf& valueOf) {
  try {
    return valueOf(stored) == valueOf(rewritten);
  } catch (const XMP_Error&) {  // it is no such value
    return false;
  }
}

// Numbers and truth values may be spelt in other ways than a Set spells them.
bool isSameWord(const std::string& stored, const std::string& rewritten) {
  constexpr int kDecimals = 6;
  return stored == rewritten || isSameAs(stored, rewritten, toInteger) ||
         isSameAs(stored, rewritten, toBoolean) ||
         isSameAs(stored, rewritten,
                  [](const std::string& word) { return fixedText(toReal(word), kDecimals); });
}

std::vector<std::string> wordsOf(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(std::move(word));
  return words;
}

// DGC values are several numbers in one text.
bool isSameText(const std::string& stored, const std::string& rewritten) {
  if (isSameWord(stored, rewritten)) return true;
  const std::vector<std::string> before = wordsOf(stored), after = wordsOf(rewritten);
  return std::equal(before.begin(), before.end(), after.begin(), after.end(), isSameWord);
}

}  // namespace

ListAudit ListAudit::nested(std::size_t item, const char* field) const {
  const XMP_Node* found = nullptr;
  try {
    found = findField(*findItem(*array_, item), field);
  } catch (const XMP_Error&) {  // the item is no structure: it has no such list
  }
  return {path_ + '[' + std::to_string(item) + "]/" + field, found};
}

void ListAudit::noteItems(std::size_t read, Unread& unread, const char* reason) const {
  if (array_ == nullptr) return;
  const std::size_t stored = size();
  if (read == stored && error_.empty()) return;
  XMPlUnreadItems row;
  row.list = path_;
  row.stored = static_cast<std::int32_t>(stored);
  row.read = static_cast<std::int32_t>(read);
  row.reason = !error_.empty() ? error_ : !trace_.missing.empty() ? trace_.missing : reason;
  unread.items.push_back(std::move(row));
}

void ListAudit::noteDropped(const XMP_Node& rewritten, Unread& unread) const {
  if (array_ == nullptr) return;
  forEachDropped(*array_, rewritten, isSameText,
                 [&](std::size_t item, const std::string& path, const XMP_Node& node) {
                   // An empty text that a record knows is as good as none.
                   if (isEmptyText(node) && trace_.read.contains(&node)) return;
                   XMPlUnreadField row;
                   row.list = path_;
                   row.item = static_cast<std::int32_t>(item);
                   row.field = path;
                   unread.fields.push_back(std::move(row));
                 });
}

}  // namespace xmpl

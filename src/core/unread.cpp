// SPDX-License-Identifier: Apache-2.0
#include "core/unread.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "core/value_text.h"

namespace xmpl {
namespace {

// To the digits that a Set keeps.
bool isSameReal(double stored, double rewritten) {
  constexpr double kLeast = 1e-6, kRelative = 1e-9;
  if (std::isnan(stored)) return std::isnan(rewritten);
  return stored == rewritten ||
         std::fabs(stored - rewritten) <= std::max(kLeast, kRelative * std::fabs(stored));
}

// Numbers and truth values may be spelt in other ways than a Set spells them.
bool isSameWord(const std::string& stored, const std::string& rewritten) {
  if (stored == rewritten) return true;
  try {
    const bool isTruth = rewritten == booleanText(true) || rewritten == booleanText(false);
    return isTruth ? booleanText(toBoolean(stored)) == rewritten
                   : isSameReal(toReal(stored), toReal(rewritten));
  } catch (const XMP_Error&) {  // it is no such value
    return false;
  }
}

// DGC values are several numbers in one text.
bool isSameText(const std::string& stored, const std::string& rewritten) {
  if (stored == rewritten) return true;
  std::istringstream before(stored), after(rewritten);
  for (std::string word, other;;) {
    const bool hasWord = static_cast<bool>(before >> word);
    const bool hasOther = static_cast<bool>(after >> other);
    if (!hasWord || !hasOther) return hasWord == hasOther;
    if (!isSameWord(word, other)) return false;
  }
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

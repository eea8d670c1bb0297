// SPDX-License-Identifier: Apache-2.0
#include "core/namespaces.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <unordered_map>

#include "core/packet/limits.h"
#include "core/toolkit/namespace_table.h"

namespace xmpl {
namespace {

// At most `bytes` of it, and no broken character.
std::string shortened(const std::string& prefix, std::size_t bytes) {
  std::size_t end = std::min(prefix.size(), bytes);
  while (end < prefix.size() && (prefix[end] & 0xC0) == 0x80) --end;
  return prefix.substr(0, end);
}

// The next of prefix_1_, prefix_2_ ...: what others have is not tried again. Long prefixes with the
// same begin share their numbers.
std::string nextVariant(const std::string& prefix) {
  constexpr std::size_t kLongestSuffix = 12;
  static std::mutex mutex;
  static std::map<std::string, int>& lastOf = *new std::map<std::string, int>;
  const std::string begin = shortened(prefix, limits::kPrefixBytes - kLongestSuffix);
  const std::lock_guard<std::mutex> lock(mutex);
  return begin + '_' + std::to_string(++lastOf[begin]) + '_';
}

std::unordered_map<std::string_view, const Namespace*> namespacesByUri() {
  std::unordered_map<std::string_view, const Namespace*> rows;
  for (const Namespace& row : kNamespaces) rows.emplace(row.uri, &row);
  return rows;
}

}  // namespace

const Namespace* ownNamespace(std::string_view uri) {
  static const auto& rows = *new auto(namespacesByUri());
  const auto found = rows.find(uri);
  return found == rows.end() ? nullptr : found->second;
}

void registerNamespaces() {
  std::string prefixInUse;  // of no interest: the table's prefixes come first in every process
  for (const Namespace& row : kNamespaces) {
    Metadata::RegisterNamespace(row.uri, row.prefix.data(), &prefixInUse);
  }
}

std::string registerDeclared(const std::string& prefix, const std::string& uri) {
  if (const Namespace* own = ownNamespace(uri)) return std::string(own->prefix) + ':';
  std::string registered;
  if (Metadata::GetNamespacePrefix(uri.c_str(), &registered)) return registered;
  std::string suggested = prefix;
  while (!registerWholly(uri, suggested)) suggested = nextVariant(prefix);
  Metadata::GetNamespacePrefix(uri.c_str(), &registered);  // another thread's may have come first
  return registered;
}

}  // namespace xmpl

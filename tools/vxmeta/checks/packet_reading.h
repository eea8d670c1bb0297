// SPDX-License-Identifier: Apache-2.0
// What the checks of a packet have in common.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "checks/finding.h"
#include "checks/reading.h"

namespace vxmeta {

// What reckoning adds to a number, or takes from it.
constexpr double kRounding = 1e-6;

// But for rounding; a NaN is within nothing.
inline bool isWithin(double value, double least, double most) {
  return value >= least - kRounding && value <= most + kRounding;
}

// A name or value of the packet, in quotation marks; a long one is cut.
std::string quoted(const std::string& text);

// "1 page", "2 pages".
std::string counted(std::size_t count, const char* thing);

// Whether the list is stored. An empty one says that there is none, an absent one says nothing.
bool hasList(const Subject& subject, std::string_view property);

// The items of a stored list; none where it is absent.
const std::vector<StoredNode>& itemsOf(const StoredNode* list);

// Calls `repeated(first, index)` for every record whose key an earlier one has; `first` is the
// index of the earliest.
template <class Record, class Key, class Repeated>
void forEachRepeated(const std::vector<Record>& records, const Key& key, const Repeated& repeated) {
  std::map<decltype(key(records.front())), std::size_t> firstOf;
  for (std::size_t i = 0; i < records.size(); ++i) {
    const auto [first, isNew] = firstOf.try_emplace(key(records[i]), i);
    if (!isNew) repeated(first->second, i);
  }
}

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
// The one way to merge lists: incoming records join a list unless it holds their equal.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <tuple>
#include <vector>

#include "XMPlib.h"
#include "core/toolkit/client.h"

namespace xmpl {

template <class Value>
bool isNaN(const Value& value) {
  if constexpr (std::is_floating_point_v<Value>) return std::isnan(value);
  return false;
}

// `identity` gives a record's compared fields as a tuple. A record with a NaN among them equals
// none, not even itself.
template <class Record, class Identity>
bool equalsNone(const Record& record, const Identity& identity) {
  return std::apply([](const auto&... field) { return (isNaN(field) || ...); }, identity(record));
}

// For each record the position of the first that equals it, which may be its own. Sorts by the
// compared fields, so that no input makes it slow.
template <class Record, class Identity>
std::vector<std::size_t> firstEquals(const std::vector<const Record*>& records,
                                     const Identity& identity) {
  std::vector<std::size_t> first(records.size());
  std::iota(first.begin(), first.end(), std::size_t{0});
  std::vector<std::size_t> sorted = first;
  std::erase_if(sorted, [&](std::size_t i) { return equalsNone(*records[i], identity); });
  std::stable_sort(sorted.begin(), sorted.end(), [&](std::size_t a, std::size_t b) {
    return identity(*records[a]) < identity(*records[b]);
  });
  for (std::size_t i = 1; i < sorted.size(); ++i) {
    const bool equal = identity(*records[sorted[i - 1]]) == identity(*records[sorted[i]]);
    if (equal) first[sorted[i]] = first[sorted[i - 1]];
  }
  return first;
}

// Takes the incoming records in their order. One that equals a record of the list, the growing
// list, goes to `match(listed, incoming)` with the first that it equals; any other is appended.
// Answers whether any was.
template <class Record, class Identity, class Match>
bool mergeMissing(std::vector<Record>& list, const std::vector<Record>& incoming,
                  const Identity& identity, const Match& match) {
  std::vector<const Record*> all;
  all.reserve(list.size() + incoming.size());
  for (const Record& record : list) all.push_back(&record);
  for (const Record& record : incoming) all.push_back(&record);
  const std::vector<std::size_t> first = firstEquals(all, identity);

  const std::size_t before = list.size();
  std::vector<std::size_t> place(all.size());  // in the list, of every record that is there
  std::iota(place.begin(), place.end(), std::size_t{0});
  for (std::size_t i = 0; i < incoming.size(); ++i) {
    const std::size_t position = before + i;
    if (first[position] == position) {
      place[position] = list.size();
      list.push_back(incoming[i]);
    } else {
      match(list[place[first[position]]], incoming[i]);
    }
  }
  return list.size() > before;
}

// As above, where a match changes nothing.
template <class Record, class Identity>
bool mergeMissing(std::vector<Record>& list, const std::vector<Record>& incoming,
                  const Identity& identity) {
  return mergeMissing(list, incoming, identity, [](const Record&, const Record&) {});
}

// The body of a Merge, for XMPlib::guarded: what the list's Get reads and the incoming records that
// are not among it go to its Set. What these two answer is not looked at; their error text stays.
template <class Record, class Identity, class... Match>
auto merging(XMPlib& xmp, bool (XMPlib::*get)(std::vector<Record>&) const,
             bool (XMPlib::*set)(const std::vector<Record>&), const std::vector<Record>& incoming,
             const Identity& identity, const Match&... match) {
  return [&, get, set](const Metadata&) {
    std::vector<Record> merged;
    (xmp.*get)(merged);
    if (mergeMissing(merged, incoming, identity, match...)) (xmp.*set)(merged);
    return true;
  };
}

}  // namespace xmpl

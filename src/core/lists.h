// SPDX-License-Identifier: Apache-2.0
// The one way to read and write a list of records: an array of structures.
//
// What one item holds is said by its fields: where reading and writing are the same, by one chain
//   [](const auto& item, auto& record) { return item.text("...", record.field) && ...; }
// for an ItemReader and an ItemWriter alike; where they are not, by two functions side by side.
#pragma once

#include <utility>
#include <vector>

#include "core/items.h"

namespace xmpl {

struct List {
  PropertyName name;
  ArrayKind kind;
};

// Appends the array's records to `records`, from the first item to the first that `readItem`
// declines; items behind that one are not looked at. Answers whether any was read.
template <class Record, class ReadItem>
bool readItems(const ArrayReader& array, const ReadItem& readItem, std::vector<Record>& records) {
  const std::size_t before = records.size();
  for (std::size_t i = 1;; ++i) {
    Record record;
    if (!readItem(array.item(i), record)) break;
    records.push_back(std::move(record));
  }
  return records.size() > before;
}

template <class Record, class ReadItem>
bool readList(const Metadata& metadata, const List& list, const ReadItem& readItem,
              std::vector<Record>& records) {
  return readItems(ArrayReader(metadata, list.name), readItem, records);
}

template <class Record, class WriteItem>
void writeItems(const ArrayWriter& array, const WriteItem& writeItem,
                const std::vector<Record>& records) {
  for (const Record& record : records) writeItem(array.addItem(), record);
}

// Deletes the stored list and writes `records` in its place; no records leave an empty array.
template <class Record, class WriteItem>
bool writeList(Metadata& metadata, const List& list, const WriteItem& writeItem,
               const std::vector<Record>& records) {
  writeItems(ArrayWriter(metadata, list.name, list.kind), writeItem, records);
  return true;
}

// The bodies of a Get and a Set, for XMPlib::guarded. The records of a Get are emptied at once,
// before the handle is looked at.
template <class Record, class ReadItem>
auto reading(const List& list, const ReadItem& readItem, std::vector<Record>& records) {
  records.clear();
  return [&](const Metadata& metadata) { return readList(metadata, list, readItem, records); };
}

template <class Record, class WriteItem>
auto writing(const List& list, const WriteItem& writeItem, const std::vector<Record>& records) {
  return [&](Metadata& metadata) { return writeList(metadata, list, writeItem, records); };
}

}  // namespace xmpl

// The one way to read and write a list of records: an array of structures.
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

}  // namespace xmpl

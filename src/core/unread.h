// SPDX-License-Identifier: Apache-2.0
// What reading a list leaves out, found by the list's own read and write functions: they run over
// the stored list as its Get and its Set would, and what they do not reach is noted.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "core/lists.h"
#include "xmpl/unread.h"

namespace xmpl {

struct Unread {
  std::vector<XMPlUnreadItems> items;
  std::vector<XMPlUnreadField> fields;
};

// The reading of one stored list.
class ListAudit {
 public:
  ListAudit(std::string path, const XMP_Node* array) : path_(std::move(path)), array_(array) {}
  ListAudit(const Metadata& metadata, PropertyName name)
      : ListAudit(name.path, findProperty(metadata, name)) {}

  const std::string& path() const { return path_; }
  // The list that is the field `field` of an item.
  ListAudit nested(std::size_t item, const char* field) const;

  std::size_t size() const { return array_ == nullptr ? 0 : itemCount(*array_); }
  ArrayReader array() { return ArrayReader(array_, &trace_); }

  // Runs a Get's reading; an error ends it, as it ends the Get.
  template <class Read>
  void read(const Read& read) {
    try {
      read(array());
    } catch (const XMP_Error& error) {
      error_ = messageOf(error);
    } catch (const std::logic_error& error) {  // what GetDgcs throws
      error_ = error.what();
    }
  }

  // Notes what lies behind the `read` items that came out, for `reason`, unless the reading has met
  // a better one.
  void noteItems(std::size_t read, Unread& unread, const char* reason = "") const;

  // Notes what the first items hold and their rewritten form does not. `write` is a Set's writing
  // of the records that were read.
  template <class Write>
  void noteFields(ArrayKind kind, const Write& write, Unread& unread) const {
    const OwnedNode rewritten = detachedArray(kind);
    try {
      write(ArrayWriter(*rewritten));
    } catch (const XMP_Error&) {  // what a Set refuses it does not keep
    }
    noteDropped(*rewritten, unread);
  }

 private:
  void noteDropped(const XMP_Node& rewritten, Unread& unread) const;

  std::string path_;
  const XMP_Node* array_;
  ReadTrace trace_;
  std::string error_;
};

template <class Record, class ReadItem, class WriteItem>
void findUnread(ListAudit audit, ArrayKind kind, const ReadItem& readItem,
                const WriteItem& writeItem, Unread& unread) {
  std::vector<Record> records;
  audit.read([&](const ArrayReader& array) { readItems(array, readItem, records); });
  audit.noteItems(records.size(), unread);
  audit.noteFields(
      kind, [&](const ArrayWriter& array) { writeItems(array, writeItem, records); }, unread);
}

template <class Record, class ReadItem, class WriteItem>
void findUnread(const Metadata& metadata, const List& list, const ReadItem& readItem,
                const WriteItem& writeItem, Unread& unread) {
  findUnread<Record>({metadata, list.name}, list.kind, readItem, writeItem, unread);
}

// Where one chain says both.
template <class Record, class Fields>
void findUnread(const Metadata& metadata, const List& list, const Fields& fields, Unread& unread) {
  findUnread<Record>(metadata, list, fields, fields, unread);
}

// One for each list, beside its reading and writing.
using FindUnread = void(const Metadata& metadata, Unread& unread);
FindUnread findUnreadInks, findUnreadFilmInks, findUnreadInkProperties, findUnreadJobRefs,
    findUnreadDgcs, findUnreadScreens, findUnreadUsedRefs, findUnreadExtRefs, findUnreadCadFiles,
    findUnreadFonts, findUnreadBarcodes, findUnreadLayers, findUnreadPageRanges,
    findUnreadSmartNames, findUnreadRepeats;

}  // namespace xmpl

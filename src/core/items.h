// SPDX-License-Identifier: Apache-2.0
// Arrays and the structures in them, read and written field by field. A field is named in full,
// with its prefix ("vxFont:name").
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>

#include "core/toolkit/tree.h"

namespace xmpl {

// The value of a node that may be absent: each answers whether it is there, and sets `value` only
// then.
bool readText(const XMP_Node* node, std::string& value);
bool readInteger(const XMP_Node* node, std::int32_t& value);
bool readReal(const XMP_Node* node, double& value);
bool readBoolean(const XMP_Node* node, bool& value);

// As readText(), but an absent node leaves an empty text.
bool readTextOrEmpty(const XMP_Node* node, std::string& value);

// What a reading has met, for those who ask what it left out.
struct ReadTrace {
  std::string missing;                       // the first required field that the last item lacks
  std::unordered_set<const XMP_Node*> read;  // the fields that were there
};

class ItemReader;

// An array, or the absence of one: then it has no items.
class ArrayReader {
 public:
  explicit ArrayReader(const XMP_Node* array, ReadTrace* trace = nullptr)
      : array_(array), trace_(trace) {}
  ArrayReader(const Metadata& metadata, PropertyName name)
      : ArrayReader(findProperty(metadata, name)) {}

  bool exists() const { return array_ != nullptr; }
  ItemReader item(std::size_t index) const;  // counts from 1
  ItemReader last() const;
  bool integer(std::size_t index, std::int32_t& value) const {
    return readInteger(node(index), value);
  }
  // Of the item in the default language; an absent one leaves an empty text.
  bool defaultTextOrEmpty(std::string& value) const {
    return readTextOrEmpty(array_ == nullptr ? nullptr : findDefaultText(*array_), value);
  }

 private:
  const XMP_Node* node(std::size_t index) const {
    return array_ == nullptr ? nullptr : findItem(*array_, index);
  }

  const XMP_Node* array_;
  ReadTrace* trace_;
};

// One structure, or the absence of one: then it has no fields. Each read answers whether the field
// exists, and sets `value` only then.
class ItemReader {
 public:
  ItemReader(const XMP_Node* structure, ReadTrace* trace, bool isRequired = true)
      : structure_(structure), trace_(trace), isRequired_(isRequired) {}

  // The same structure; a field that is read through it may be absent.
  ItemReader optional() const { return {structure_, trace_, false}; }

  bool exists(std::string_view field) const { return node(field) != nullptr; }
  bool text(std::string_view field, std::string& value) const {
    return readText(node(field), value);
  }
  bool textOrEmpty(std::string_view field, std::string& value) const {
    return readTextOrEmpty(node(field), value);
  }
  bool integer(std::string_view field, std::int32_t& value) const {
    return readInteger(node(field), value);
  }
  bool real(std::string_view field, double& value) const { return readReal(node(field), value); }
  bool boolean(std::string_view field, bool& value) const {
    return readBoolean(node(field), value);
  }
  // These answer true in any case.
  bool optionalText(std::string_view field, std::string& value) const {
    optional().text(field, value);
    return true;
  }
  bool textUnlessEmpty(std::string_view field, std::string& value) const {
    return optionalText(field, value);
  }

  ArrayReader array(std::string_view field) const { return ArrayReader(node(field), trace_); }

 private:
  const XMP_Node* node(std::string_view field) const {
    const XMP_Node* found = structure_ == nullptr ? nullptr : findField(*structure_, field);
    if (trace_ != nullptr) note(field, found);
    return found;
  }
  void note(std::string_view field, const XMP_Node* found) const;

  const XMP_Node* structure_;
  ReadTrace* trace_;
  bool isRequired_;
};

inline ItemReader ArrayReader::item(std::size_t index) const {
  if (trace_ != nullptr) trace_->missing.clear();
  return {node(index), trace_};
}

inline ItemReader ArrayReader::last() const {
  return item(array_ == nullptr ? 0 : itemCount(*array_));
}

class ItemWriter;

// An array that is being written anew; items go to its end.
class ArrayWriter {
 public:
  explicit ArrayWriter(XMP_Node& array) : array_(array) {}
  ArrayWriter(Metadata& metadata, PropertyName name, ArrayKind kind)
      : ArrayWriter(recreateArray(metadata, name, kind)) {}

  ItemWriter addItem() const;
  void addInteger(std::int32_t value) const;

 private:
  XMP_Node& array_;
};

// A structure that is being written anew; each field is written once. Each write answers true, so
// that one chain of fields can serve reading and writing.
class ItemWriter {
 public:
  explicit ItemWriter(XMP_Node& structure) : structure_(structure) { makeStructure(structure); }

  bool text(const char* field, const std::string& value) const;
  bool integer(const char* field, std::int32_t value) const;
  bool real(const char* field, double value) const;
  bool boolean(const char* field, bool value) const;
  bool optionalText(const char* field, const std::string& value) const {
    return text(field, value);
  }
  bool textUnlessEmpty(const char* field, const std::string& value) const {
    return value.empty() || text(field, value);
  }

  ArrayWriter array(const char* field, ArrayKind kind) const;
  ItemWriter structure(const char* field) const;

 private:
  XMP_Node& structure_;
};

inline ItemWriter ArrayWriter::addItem() const { return ItemWriter(appendItem(array_)); }

}  // namespace xmpl

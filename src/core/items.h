// Arrays and the structures in them, read and written field by field. A field is named in full,
// with its prefix ("vxFont:name").
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/tree.h"

namespace xmpl {

class ItemReader;

// An array, or the absence of one: then it has no items.
class ArrayReader {
 public:
  explicit ArrayReader(const XMP_Node* array) : array_(array) {}
  ArrayReader(const Metadata& metadata, PropertyName name)
      : ArrayReader(findProperty(metadata, name)) {}

  bool exists() const { return array_ != nullptr; }
  ItemReader item(std::size_t index) const;  // counts from 1
  bool integer(std::size_t index, std::int32_t& value) const;

 private:
  const XMP_Node* node(std::size_t index) const {
    return array_ == nullptr ? nullptr : findItem(*array_, index);
  }

  const XMP_Node* array_;
};

// One structure, or the absence of one: then it has no fields. Each read answers whether the field
// exists, and sets `value` only then.
class ItemReader {
 public:
  explicit ItemReader(const XMP_Node* structure) : structure_(structure) {}

  bool exists(std::string_view field) const { return node(field) != nullptr; }
  bool text(std::string_view field, std::string& value) const;
  bool integer(std::string_view field, std::int32_t& value) const;
  bool real(std::string_view field, double& value) const;
  bool boolean(std::string_view field, bool& value) const;
  ArrayReader array(std::string_view field) const { return ArrayReader(node(field)); }

 private:
  const XMP_Node* node(std::string_view field) const {
    return structure_ == nullptr ? nullptr : findField(*structure_, field);
  }

  const XMP_Node* structure_;
};

inline ItemReader ArrayReader::item(std::size_t index) const { return ItemReader(node(index)); }

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

// A structure that is being written anew; each field is written once.
class ItemWriter {
 public:
  explicit ItemWriter(XMP_Node& structure) : structure_(structure) { makeStructure(structure); }

  void text(const char* field, const std::string& value) const;
  void integer(const char* field, std::int32_t value) const;
  void real(const char* field, double value) const;
  void boolean(const char* field, bool value) const;
  ArrayWriter array(const char* field, ArrayKind kind) const;
  ItemWriter structure(const char* field) const;

 private:
  XMP_Node& structure_;
};

inline ItemWriter ArrayWriter::addItem() const { return ItemWriter(appendItem(array_)); }

}  // namespace xmpl

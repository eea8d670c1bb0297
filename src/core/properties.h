// SPDX-License-Identifier: Apache-2.0
// Top-level properties: read by their full name, written by it or by a path below one.
#pragma once

#include <cstdint>
#include <string>

#include "core/items.h"

namespace xmpl {

// Each answers whether the property exists, and sets `value` only then.
class PropertyReader {
 public:
  explicit PropertyReader(const Metadata& metadata) : metadata_(metadata) {}

  bool exists(PropertyName name) const { return node(name) != nullptr; }
  bool text(PropertyName name, std::string& value) const { return readText(node(name), value); }
  bool integer(PropertyName name, std::int32_t& value) const {
    return readInteger(node(name), value);
  }
  bool real(PropertyName name, double& value) const { return readReal(node(name), value); }
  bool boolean(PropertyName name, bool& value) const { return readBoolean(node(name), value); }

  // As text(), but an absent property leaves an empty text.
  bool textOrEmpty(PropertyName name, std::string& value) const {
    return readTextOrEmpty(node(name), value);
  }

  ItemReader structure(PropertyName name) const { return {node(name), nullptr}; }
  ArrayReader array(PropertyName name) const { return ArrayReader(node(name)); }

 private:
  const XMP_Node* node(PropertyName name) const { return findProperty(metadata_, name); }

  const Metadata& metadata_;
};

// Writes of values answer true, as those of an ItemWriter.
class PropertyWriter {
 public:
  explicit PropertyWriter(Metadata& metadata) : metadata_(metadata) {}

  bool text(PropertyPath name, const std::string& value) const;
  bool integer(PropertyPath name, std::int32_t value) const;
  bool real(PropertyPath name, double value) const;
  bool boolean(PropertyPath name, bool value) const;
  void date(PropertyPath name, const XMP_DateTime& value) const;
  void remove(PropertyPath name) const;

  void emptyArray(PropertyPath name, ArrayKind kind) const;
  void emptyStructure(PropertyPath name) const;
  // A language alternative whose one item is `text`, in the default language. What is refused, text
  // or the form of the stored property, changes nothing.
  void defaultLanguage(PropertyName name, const std::string& text) const;

 private:
  Metadata& metadata_;
};

}  // namespace xmpl

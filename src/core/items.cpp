// SPDX-License-Identifier: Apache-2.0
#include "core/items.h"

#include "core/value_text.h"

namespace xmpl {
namespace {

template <class Value, class ValueOf>
bool readIfThere(const XMP_Node* node, Value& value, const ValueOf& valueOf) {
  if (node == nullptr) return false;
  value = valueOf(*node);
  return true;
}

}  // namespace

bool readText(const XMP_Node* node, std::string& value) {
  return readIfThere(node, value, anyText);
}

bool readInteger(const XMP_Node* node, std::int32_t& value) {
  return readIfThere(node, value, [](const XMP_Node& n) { return toInteger(simpleText(n)); });
}

bool readReal(const XMP_Node* node, double& value) {
  return readIfThere(node, value, [](const XMP_Node& n) { return toReal(simpleText(n)); });
}

bool readBoolean(const XMP_Node* node, bool& value) {
  return readIfThere(node, value, [](const XMP_Node& n) { return toBoolean(simpleText(n)); });
}

bool readTextOrEmpty(const XMP_Node* node, std::string& value) {
  const bool found = readText(node, value);
  if (!found) value.clear();
  return found;
}

void ItemReader::note(std::string_view field, const XMP_Node* found) const {
  if (found != nullptr) {
    trace_->read.insert(found);
  } else if (isRequired_ && trace_->missing.empty()) {
    trace_->missing = field;
  }
}

void ArrayWriter::addInteger(std::int32_t value) const {
  setPlainText(appendItem(array_), integerText(value));
}

// A text ends at its first NUL, as everywhere in the toolkit.
bool ItemWriter::text(const char* field, const std::string& value) const {
  setText(appendField(structure_, field), value.c_str());
  return true;
}

bool ItemWriter::integer(const char* field, std::int32_t value) const {
  setPlainText(appendField(structure_, field), integerText(value));
  return true;
}

bool ItemWriter::real(const char* field, double value) const {
  setPlainText(appendField(structure_, field), realText(value));
  return true;
}

bool ItemWriter::boolean(const char* field, bool value) const {
  setPlainText(appendField(structure_, field), booleanText(value));
  return true;
}

ArrayWriter ItemWriter::array(const char* field, ArrayKind kind) const {
  XMP_Node& array = appendField(structure_, field);
  makeArray(array, kind);
  return ArrayWriter(array);
}

ItemWriter ItemWriter::structure(const char* field) const {
  return ItemWriter(appendField(structure_, field));
}

}  // namespace xmpl

#include "core/items.h"

#include "core/value_text.h"

namespace xmpl {

bool readText(const XMP_Node* node, std::string& value) {
  if (node == nullptr) return false;
  value = anyText(*node);
  return true;
}

bool readInteger(const XMP_Node* node, std::int32_t& value) {
  if (node == nullptr) return false;
  value = toInteger(simpleText(*node));
  return true;
}

bool readReal(const XMP_Node* node, double& value) {
  if (node == nullptr) return false;
  value = toReal(simpleText(*node));
  return true;
}

bool readBoolean(const XMP_Node* node, bool& value) {
  if (node == nullptr) return false;
  value = toBoolean(simpleText(*node));
  return true;
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
void ItemWriter::text(const char* field, const std::string& value) const {
  setText(appendField(structure_, field), value.c_str());
}

void ItemWriter::integer(const char* field, std::int32_t value) const {
  setPlainText(appendField(structure_, field), integerText(value));
}

void ItemWriter::real(const char* field, double value) const {
  setPlainText(appendField(structure_, field), realText(value));
}

void ItemWriter::boolean(const char* field, bool value) const {
  setPlainText(appendField(structure_, field), booleanText(value));
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

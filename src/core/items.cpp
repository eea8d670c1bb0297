#include "core/items.h"

#include "core/value_text.h"

namespace xmpl {

bool ArrayReader::integer(std::size_t index, std::int32_t& value) const {
  const XMP_Node* found = node(index);
  if (found == nullptr) return false;
  value = toInteger(simpleText(*found));
  return true;
}

void ItemReader::note(std::string_view field, const XMP_Node* found) const {
  if (found != nullptr) {
    trace_->read.insert(found);
  } else if (isRequired_ && trace_->missing.empty()) {
    trace_->missing = field;
  }
}

bool ItemReader::text(std::string_view field, std::string& value) const {
  const XMP_Node* found = node(field);
  if (found == nullptr) return false;
  value = anyText(*found);
  return true;
}

bool ItemReader::integer(std::string_view field, std::int32_t& value) const {
  const XMP_Node* found = node(field);
  if (found == nullptr) return false;
  value = toInteger(simpleText(*found));
  return true;
}

bool ItemReader::real(std::string_view field, double& value) const {
  const XMP_Node* found = node(field);
  if (found == nullptr) return false;
  value = toReal(simpleText(*found));
  return true;
}

bool ItemReader::boolean(std::string_view field, bool& value) const {
  const XMP_Node* found = node(field);
  if (found == nullptr) return false;
  value = toBoolean(simpleText(*found));
  return true;
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

#include "core/properties.h"

#include "core/toolkit/tree.h"
#include "core/value_text.h"

namespace xmpl {

bool PropertyReader::exists(PropertyName name) const {
  return metadata_.DoesPropertyExist(name.schema, name.path);
}

bool PropertyReader::text(PropertyName name, std::string& value) const {
  return metadata_.GetProperty(name.schema, name.path, &value, nullptr);
}

bool PropertyReader::textOrEmpty(PropertyName name, std::string& value) const {
  const bool found = text(name, value);
  if (!found) value.clear();
  return found;
}

bool PropertyReader::simpleText(PropertyName name, std::string& value) const {
  XMP_OptionBits options = 0;
  if (!metadata_.GetProperty(name.schema, name.path, &value, &options)) return false;
  if (!XMP_PropIsSimple(options)) throw XMP_Error(kXMPErr_BadXPath, "Property must be simple");
  return true;
}

bool PropertyReader::integer(PropertyName name, std::int32_t& value) const {
  std::string text;
  if (!simpleText(name, text)) return false;
  value = toInteger(text);
  return true;
}

bool PropertyReader::real(PropertyName name, double& value) const {
  std::string text;
  if (!simpleText(name, text)) return false;
  value = toReal(text);
  return true;
}

bool PropertyReader::boolean(PropertyName name, bool& value) const {
  std::string text;
  if (!simpleText(name, text)) return false;
  value = toBoolean(text);
  return true;
}

void PropertyWriter::text(PropertyName name, const std::string& value) const {
  refuseOverlong(value.c_str());
  metadata_.SetProperty(name.schema, name.path, value);
}

void PropertyWriter::integer(PropertyName name, std::int32_t value) const {
  metadata_.SetProperty_Int(name.schema, name.path, value);
}

void PropertyWriter::real(PropertyName name, double value) const {
  metadata_.SetProperty(name.schema, name.path, realText(value));
}

void PropertyWriter::boolean(PropertyName name, bool value) const {
  metadata_.SetProperty_Bool(name.schema, name.path, value);
}

void PropertyWriter::date(PropertyName name, const XMP_DateTime& value) const {
  metadata_.SetProperty_Date(name.schema, name.path, value);
}

void PropertyWriter::emptyArray(PropertyName name, ArrayKind kind) const {
  metadata_.SetProperty(name.schema, name.path, nullptr, static_cast<XMP_OptionBits>(kind));
}

void PropertyWriter::emptyStructure(PropertyName name) const {
  metadata_.SetProperty(name.schema, name.path, nullptr, kXMP_PropValueIsStruct);
}

void PropertyWriter::defaultLanguage(PropertyName name, const std::string& text) const {
  refuseBadText(text.c_str());
  metadata_.SetProperty(name.schema, name.path, nullptr, kXMP_PropArrayIsAltText);
  // Text and language in one step: an item without its language, left behind where memory ends,
  // would keep the whole packet from serialising.
  metadata_.SetLocalizedText(name.schema, name.path, "", "x-default", text);
}

void PropertyWriter::remove(PropertyName name) const {
  metadata_.DeleteProperty(name.schema, name.path);
}

}  // namespace xmpl

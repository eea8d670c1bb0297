// SPDX-License-Identifier: Apache-2.0
#include "core/properties.h"

#include "core/toolkit/tree.h"
#include "core/value_text.h"

namespace xmpl {

bool PropertyWriter::text(PropertyPath name, const std::string& value) const {
  refuseOverlong(value.c_str());
  metadata_.SetProperty(name.schema, name.path, value);
  return true;
}

bool PropertyWriter::integer(PropertyPath name, std::int32_t value) const {
  metadata_.SetProperty_Int(name.schema, name.path, value);
  return true;
}

bool PropertyWriter::real(PropertyPath name, double value) const {
  metadata_.SetProperty(name.schema, name.path, realText(value));
  return true;
}

bool PropertyWriter::boolean(PropertyPath name, bool value) const {
  metadata_.SetProperty_Bool(name.schema, name.path, value);
  return true;
}

void PropertyWriter::date(PropertyPath name, const XMP_DateTime& value) const {
  metadata_.SetProperty_Date(name.schema, name.path, value);
}

void PropertyWriter::emptyArray(PropertyPath name, ArrayKind kind) const {
  metadata_.SetProperty(name.schema, name.path, nullptr, static_cast<XMP_OptionBits>(kind));
}

void PropertyWriter::emptyStructure(PropertyPath name) const {
  metadata_.SetProperty(name.schema, name.path, nullptr, kXMP_PropValueIsStruct);
}

void PropertyWriter::defaultLanguage(PropertyName name, const std::string& text) const {
  setDefaultLanguage(metadata_, name, text.c_str());
}

void PropertyWriter::remove(PropertyPath name) const {
  metadata_.DeleteProperty(name.schema, name.path);
}

}  // namespace xmpl

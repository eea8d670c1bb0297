// Top-level properties, by their full name or by a path below one.
#pragma once

#include <cstdint>
#include <string>

#include "core/namespaces.h"
#include "core/toolkit/client.h"

namespace xmpl {

// Each answers whether the property exists, and sets `value` only then.
class PropertyReader {
 public:
  explicit PropertyReader(const Metadata& metadata) : metadata_(metadata) {}

  bool exists(PropertyName name) const;
  bool text(PropertyName name, std::string& value) const;
  bool integer(PropertyName name, std::int32_t& value) const;
  bool real(PropertyName name, double& value) const;
  bool boolean(PropertyName name, bool& value) const;

  // As text(), but an absent property leaves an empty text.
  bool textOrEmpty(PropertyName name, std::string& value) const;

 private:
  bool simpleText(PropertyName name, std::string& value) const;

  const Metadata& metadata_;
};

class PropertyWriter {
 public:
  explicit PropertyWriter(Metadata& metadata) : metadata_(metadata) {}

  void text(PropertyName name, const std::string& value) const;
  void integer(PropertyName name, std::int32_t value) const;
  void real(PropertyName name, double value) const;
  void boolean(PropertyName name, bool value) const;
  void date(PropertyName name, const XMP_DateTime& value) const;
  void remove(PropertyName name) const;

  void emptyArray(PropertyName name, ArrayKind kind) const;
  void emptyStructure(PropertyName name) const;
  // A language alternative whose one item is `text`, in the default language. Bad text changes
  // nothing.
  void defaultLanguage(PropertyName name, const std::string& text) const;

 private:
  Metadata& metadata_;
};

}  // namespace xmpl

// SPDX-License-Identifier: Apache-2.0
// What the fuzz targets share.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "core/toolkit/client.h"
#include "support/kinds.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

inline void expect(bool kept, const char* promise, const std::string& detail = {}) {
  if (kept) return;
  std::fprintf(stderr, "Broken promise: %s\n%s\n", promise, detail.c_str());
  std::abort();
}

// An input, field by field; "|" ends a field. Behind the end all fields are empty.
class Fields {
 public:
  explicit Fields(std::string_view input) : rest_(input) {}

  bool atEnd() const { return rest_.empty(); }
  std::string next() {
    std::string field(rest_.substr(0, rest_.find('|')));
    rest_.remove_prefix(std::min(field.size() + 1, rest_.size()));
    return field;
  }

 private:
  std::string_view rest_;
};

// Fills a value from the input; a list begins with the number of its items.
template <class Value>
void take(Fields& input, Value& value) {
  const auto resize = [&](auto& list) {
    list.resize(std::strtoul(input.next().c_str(), nullptr, 10) % 64);
  };
  visitFields(value, resize, [&]<class Field>(Field& field) {
    const std::string text = input.next();
    if constexpr (std::is_same_v<Field, std::string>) {
      field = text;
    } else if constexpr (std::is_same_v<Field, double>) {
      field = std::strtod(text.c_str(), nullptr);
    } else {
      field = static_cast<Field>(std::strtoll(text.c_str(), nullptr, 10));
    }
  });
}

inline bool succeeds(const XMPlib& xmp, bool result) {
  expect(!result || xmp.ErrStr().empty(), "an operation that met an error fails");
  return result;
}

// Reads every record, then writes each that was found.
inline void rewrite(XMPlib& xmp) {
  std::vector<std::function<void()>> writes;
  forEachKind([&]<class Value>(const Kind<Value>& kind) {
    Value value{};
    if (!succeeds(xmp, kind.get(xmp, value))) return;
    writes.push_back([&xmp, kind, value] { succeeds(xmp, kind.set(xmp, value)); });
  });
  for (const auto& write : writes) write();
}

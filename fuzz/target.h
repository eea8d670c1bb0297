// What the fuzz targets share.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>

#include "core/toolkit/client.h"
#include "support/records.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

inline void expect(bool kept, const char* promise, const std::string& detail = {}) {
  if (kept) return;
  std::fprintf(stderr, "Broken promise: %s\n%s\n", promise, detail.c_str());
  std::abort();
}

// Nothing when the call throws an Error, as it may. Other exceptions end the process.
template <class Error, class Call>
auto attempt(const Call& call) -> std::optional<decltype(call())> {
  try {
    return call();
  } catch (const Error&) {
    return {};
  }
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

// Visits every single value in a value, a record or a list; calls `enter` for a list before.
template <class Value, class Enter, class Visit>
void visitFields(Value& value, const Enter& enter, const Visit& visit) {
  if constexpr (requires { fieldsOf(value); }) {
    std::apply([&](auto&... field) { (visitFields(field, enter, visit), ...); }, fieldsOf(value));
  } else if constexpr (requires { value.emplace_back(); }) {
    enter(value);
    for (auto& item : value) visitFields(item, enter, visit);
  } else {
    visit(value);
  }
}

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

inline bool isRun(const std::string& name) { return strncasecmp(name.c_str(), "files:", 6) == 0; }

// The number of files in all runs.
inline std::int64_t filesIn(const std::vector<XMPlExtRef>& refs) {
  std::int64_t files = 0;
  for (const XMPlExtRef& ref : refs) {
    const std::string& name = ref.instanceID;
    const std::size_t hash = name.rfind('#'), dash = name.find('-', hash);
    if (!isRun(name) || hash == name.npos || dash == name.npos) continue;
    const std::int64_t first = std::atoi(name.substr(hash + 1, dash - hash - 1).c_str());
    files += std::max<std::int64_t>(std::atoi(name.substr(dash + 1).c_str()) - first + 1, 0);
  }
  return files;
}

// Too many to wait for, too few to be refused.
inline bool isSlow(std::int64_t files) { return files > 10'000 && files <= 1'000'000; }

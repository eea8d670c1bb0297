// SPDX-License-Identifier: Apache-2.0
// One property by its path, whatever its kind.
#pragma once

#include "by_hand.h"

#define XMPLIB_BENCH_PRIVATE(path) "http://ns.orvo.example/xmp/" path

namespace bench::by_hand {

inline void read(const Meta& meta, const char* schema, const char* path, std::string& value) {
  meta.GetProperty(schema, path, &value, nullptr);
}
inline void read(const Meta& meta, const char* schema, const char* path, XMP_Int32& value) {
  meta.GetProperty_Int(schema, path, &value, nullptr);
}
inline void read(const Meta& meta, const char* schema, const char* path, double& value) {
  meta.GetProperty_Float(schema, path, &value, nullptr);
}
inline void read(const Meta& meta, const char* schema, const char* path, bool& value) {
  meta.GetProperty_Bool(schema, path, &value, nullptr);
}

}  // namespace bench::by_hand

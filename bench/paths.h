// SPDX-License-Identifier: Apache-2.0
// For those who address fields by path.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace bench {

inline constexpr const char* kDocument = "http://ns.orvo.example/xmp/grinfo/1.0/";
inline constexpr const char* kCoverageList = "http://ns.orvo.example/xmp/inkcovlist/1.0/";
inline constexpr const char* kFontList = "http://ns.orvo.example/xmp/fontlist/1.0/";
inline constexpr const char* kOldFileList = "http://ns.orvo.example/xmp/extfileslist/1.0/";
inline constexpr const char* kFileList = "http://ns.orvo.example/xmp/extfileslist/2.0/";

// The path of a field of an item of an array.
class FieldPath {
 public:
  explicit FieldPath(const char* array) : path_(array), array_(path_.size()) {}

  void toItem(std::int32_t index) {
    path_.resize(array_);
    path_.append(1, '[').append(std::to_string(index)).append("]/");
    item_ = path_.size();
  }

  const char* field(const char* name) {
    path_.resize(item_);
    return path_.append(name).c_str();
  }

 private:
  std::string path_;
  std::size_t array_;
  std::size_t item_ = 0;
};

}  // namespace bench

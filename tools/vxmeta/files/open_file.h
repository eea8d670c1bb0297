// SPDX-License-Identifier: Apache-2.0
// An open file, for writing.
#pragma once

#include <string>
#include <string_view>

namespace vxmeta {

// Closes with its scope.
class OpenFile {
 public:
  // Throws FileError, as all here does.
  OpenFile(const std::string& path, int flags);
  ~OpenFile();
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int fd() const { return fd_; }
  void write(std::string_view bytes) const;
  void writeAllOf(const OpenFile& other) const;
  void sync() const;

 private:
  int fd_;
};

// "cannot be written: ..." with what errno says, and what to do about it.
[[noreturn]] void throwUnwritable();

}  // namespace vxmeta

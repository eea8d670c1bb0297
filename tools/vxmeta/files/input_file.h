// SPDX-License-Identifier: Apache-2.0
// A file that is read, or standard input: opened once, and never changed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace vxmeta {

class InputFile {
 public:
  // `file` is a path, or "-" for standard input. A pipe there is copied to a temporary file, up to
  // kMostFromPipe. Throws FileError for what is no regular file, cannot be read, or is empty.
  explicit InputFile(const std::string& file);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  std::uint64_t size() const { return size_; }
  std::string_view head() const { return head_; }  // the first kHead bytes, or all there are

  // Up to `length` bytes from `offset`: fewer only where the file ends.
  std::string read(std::uint64_t offset, std::size_t length) const;

  std::string path() const;       // a path that opens the same file again
  std::FILE* openStream() const;  // at the beginning; the caller closes it

  static constexpr std::size_t kHead = 4096;
  static constexpr std::uint64_t kMostFromPipe = std::uint64_t{1} << 30;

 private:
  int fd_ = -1;
  std::string name_;
  std::uint64_t size_ = 0;
  std::string head_;
};

}  // namespace vxmeta

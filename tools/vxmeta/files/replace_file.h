// SPDX-License-Identifier: Apache-2.0
// Puts a new file in the place of another, whole or not at all.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>
#include <vector>

#include "files/held_signals.h"

namespace vxmeta {

struct ReplaceOptions {
  bool force = false;   // a file with several hard links too, which is then overwritten in place
  bool backup = false;  // keep the old file as FILE~
};

// Throws FileError where `target` may not be replaced: it is no regular file, is read-only, or has
// several hard links. "-" is standard output, which may.
void requireReplaceable(const std::string& target, const ReplaceOptions& options);

// The new file comes to be in a directory of its own beside the one that it replaces, which goes
// with this, with all in it. The path of a symbolic link is the file that it leads to. A file that
// is replaced hands on its permissions, owner and extended attributes; its time is that of the
// write. A new file has what the process gives to new files. Signals that would end the program
// wait while this lives.
class Replacement {
 public:
  // `target` is a path, or "-" for standard output. Throws FileError where it may not be replaced,
  // and where nothing can be written beside it.
  Replacement(const std::string& target, const ReplaceOptions& options);
  ~Replacement();
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  // Where the caller writes the new file. There is none yet.
  const std::string& path() const { return new_; }

  // Brings the new file to the disk and into its place. Answers what people should know. Throws
  // FileError, and then the target is as it was; but for standard output, and for one that is
  // overwritten in place, where the error then says where its new content is.
  std::vector<std::string> commit();

 private:
  bool isStdout() const { return target_.empty(); }
  bool isOverwritten() const { return old_ && old_->st_nlink > 1; }
  void refuseChanged() const;
  void keepBackup() const;
  void overwrite();

  HeldSignals signals_;  // goes last
  ReplaceOptions options_;
  std::string target_;  // empty: standard output
  std::optional<struct stat> old_;
  std::string directory_;
  std::string new_;
};

// A copy of the file at `from` as a new file at `to`. Throws FileError.
void copyFile(const std::string& from, const std::string& to);

// A new file. Throws FileError.
void writeNewFile(const std::string& path, const std::string& content);

}  // namespace vxmeta

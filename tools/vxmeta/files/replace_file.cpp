// SPDX-License-Identifier: Apache-2.0
#include "files/replace_file.h"

#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string_view>

#include "files/open_file.h"
#include "files/packet_file.h"

namespace vxmeta {
namespace {

namespace fs = std::filesystem;

std::optional<struct stat> statusOf(const std::string& path) {
  struct stat status = {};
  if (::stat(path.c_str(), &status) == 0) return status;
  if (errno != ENOENT) throwUnwritable();
  return std::nullopt;
}

// The file that a path leads to, over all symbolic links.
std::string followed(const std::string& path) {
  std::error_code error;
  const fs::path file = fs::canonical(path, error);
  if (!error) return file;
  if (fs::is_symlink(path, error)) {
    throw FileError("is a symbolic link that leads to no file; mend the link");
  }
  return fs::absolute(path);
}

bool isSame(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
         a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

std::string newDirectoryIn(const fs::path& parent) {
  std::string path = parent / ".vxmeta-XXXXXX";
  if (::mkdtemp(path.data()) == nullptr) throwUnwritable();
  return path;
}

// What can be copied of them: access lists, and what desktops note.
void copyAttributes(const std::string& from, const std::string& to) {
  std::string names(static_cast<std::size_t>(XATTR_LIST_MAX), '\0');
  const ssize_t length = ::listxattr(from.c_str(), names.data(), names.size());
  names.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
  std::string value(static_cast<std::size_t>(XATTR_SIZE_MAX), '\0');
  for (std::size_t at = 0; at < names.size(); at += std::strlen(&names[at]) + 1) {
    const ssize_t size = ::getxattr(from.c_str(), &names[at], value.data(), value.size());
    if (size < 0) continue;
    ::setxattr(to.c_str(), &names[at], value.data(), static_cast<std::size_t>(size), 0);
  }
}

// The owner first: giving a file away takes some permissions from it. A file that cannot keep its
// owner keeps no right to run as that owner.
bool handOn(const struct stat& old, const std::string& from, const std::string& to) {
  const bool isOwned = ::chown(to.c_str(), old.st_uid, old.st_gid) == 0;
  if (!isOwned && ::chown(to.c_str(), static_cast<uid_t>(-1), old.st_gid) != 0) errno = 0;
  copyAttributes(from, to);
  const mode_t most = isOwned ? 07777 : 0777;
  if (::chmod(to.c_str(), old.st_mode & most) != 0) throwUnwritable();
  return isOwned;
}

void refuseUnsafe(const std::string& target, const struct stat& old, bool force) {
  if (S_ISDIR(old.st_mode)) throw FileError("is a directory; name a file in it");
  if (!S_ISREG(old.st_mode)) {
    throw FileError("is a pipe or a device, which is not written; -o - is standard output");
  }
  constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
  if ((old.st_mode & kAnyWrite) == 0 || ::access(target.c_str(), W_OK) != 0) {
    throw FileError("is read-only; make it writable, or name another file with -o");
  }
  if (old.st_nlink > 1 && !force) {
    throw FileError("has " + std::to_string(old.st_nlink) +
                    " hard links, which would part; --force overwrites it in place");
  }
}

void syncPath(const std::string& path) { OpenFile(path, O_RDONLY).sync(); }

void copyToStdout(const std::string& path) {
  std::string piece(std::size_t{1} << 16, '\0');
  std::FILE* file = std::fopen(path.c_str(), "rbe");
  if (file == nullptr) throwUnwritable();
  while (const std::size_t got = std::fread(piece.data(), 1, piece.size(), file)) {
    std::fwrite(piece.data(), 1, got, stdout);
  }
  std::fclose(file);
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) throwUnwritable();
}

// Room for the whole before a byte is overwritten.
void makeRoom(const OpenFile& file, off_t now, off_t then) {
  if (then <= now) return;
  const int error = ::posix_fallocate(file.fd(), now, then - now);
  if (error == 0) return;
  if (::ftruncate(file.fd(), now) != 0) throwUnwritable();
  errno = error;
  throwUnwritable();
}

}  // namespace

void requireReplaceable(const std::string& target, const ReplaceOptions& options) {
  if (target == "-") return;
  const std::string path = followed(target);
  const std::optional<struct stat> old = statusOf(path);
  if (old) refuseUnsafe(path, *old, options.force);
}

Replacement::Replacement(const std::string& target, const ReplaceOptions& options)
    : options_(options) {
  HeldSignals::check();
  if (target == "-") {
    directory_ = newDirectoryIn(fs::temp_directory_path());
    new_ = directory_ + "/output";
    return;
  }
  target_ = followed(target);
  old_ = statusOf(target_);
  if (old_) refuseUnsafe(target_, *old_, options.force);
  directory_ = newDirectoryIn(fs::path(target_).parent_path());
  new_ = fs::path(directory_) / fs::path(target_).filename();
}

Replacement::~Replacement() {
  std::error_code ignored;
  fs::remove_all(directory_, ignored);
}

void Replacement::refuseChanged() const {
  const std::optional<struct stat> now = statusOf(target_);
  const bool isAsBefore = old_ ? now && isSame(*old_, *now) : !now;
  if (isAsBefore) return;
  throw FileError(now ? "was changed by somebody else meanwhile; nothing is written"
                      : "has vanished meanwhile; nothing is written");
}

void Replacement::keepBackup() const {
  const std::string copy = directory_ + "/backup~";
  copyFile(target_, copy);
  handOn(*old_, target_, copy);
  const timespec times[] = {old_->st_atim, old_->st_mtim};
  ::utimensat(AT_FDCWD, copy.c_str(), times, 0);
  syncPath(copy);
  if (::rename(copy.c_str(), (target_ + "~").c_str()) != 0) throwUnwritable();
}

// Of a disk that fails in the midst of it nothing is lost: the new content stays.
void Replacement::overwrite() {
  const off_t length = statusOf(new_).value_or(*old_).st_size;
  const OpenFile from(new_, O_RDONLY);
  const OpenFile to(target_, O_WRONLY);
  makeRoom(to, old_->st_size, length);
  try {
    to.writeAllOf(from);
    if (::ftruncate(to.fd(), length) != 0) throwUnwritable();
    to.sync();
  } catch (const FileError& error) {
    directory_.clear();
    throw FileError(std::string(error.what()) + "; it is half-written, its new content is " + new_);
  }
}

std::vector<std::string> Replacement::commit() {
  std::vector<std::string> notes;
  HeldSignals::check();
  if (isStdout()) return copyToStdout(new_), notes;
  syncPath(new_);
  if (old_ && options_.backup) keepBackup();
  HeldSignals::check();
  refuseChanged();
  if (isOverwritten()) {
    overwrite();
    return {"it has several hard links and was overwritten in place"};
  }
  if (old_ && !handOn(*old_, target_, new_)) notes.emplace_back("it belongs to you now");
  if (::rename(new_.c_str(), target_.c_str()) != 0) throwUnwritable();
  try {
    syncPath(fs::path(target_).parent_path());
  } catch (const FileError&) {
    notes.emplace_back("it is written, but whether a power failure leaves it so is not known");
  }
  return notes;
}

void copyFile(const std::string& from, const std::string& to) {
  const OpenFile source(from, O_RDONLY);
  OpenFile(to, O_WRONLY | O_CREAT | O_EXCL).writeAllOf(source);
}

void writeNewFile(const std::string& path, const std::string& content) {
  OpenFile(path, O_WRONLY | O_CREAT | O_EXCL).write(content);
}

}  // namespace vxmeta

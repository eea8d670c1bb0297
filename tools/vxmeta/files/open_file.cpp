// SPDX-License-Identifier: Apache-2.0
#include "files/open_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "files/packet_file.h"

namespace vxmeta {
namespace {

constexpr std::size_t kPiece = std::size_t{1} << 20;

const char* adviceFor(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return "; make room, or name another place with -o";
    case EACCES:
    case EPERM:
    case EROFS:
      return "; check the permissions, or name another place with -o";
    case ENOENT:
    case ENOTDIR:
      return "; check its directory";
    default:
      return "";
  }
}

// Not at once: what is written to a pipe or a disk may come back in part.
ssize_t writeSome(int fd, std::string_view bytes) {
  ssize_t put = 0;
  do put = ::write(fd, bytes.data(), bytes.size());
  while (put < 0 && errno == EINTR);
  if (put < 0) throwUnwritable();
  return put;
}

}  // namespace

void throwUnwritable() {
  const int error = errno;
  throw FileError("cannot be written: " + std::string(std::strerror(error)) + adviceFor(error));
}

OpenFile::OpenFile(const std::string& path, int flags)
    : fd_(::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, 0666)) {
  if (fd_ < 0) throwUnwritable();
}

OpenFile::~OpenFile() { ::close(fd_); }

void OpenFile::write(std::string_view bytes) const {
  while (!bytes.empty()) bytes.remove_prefix(static_cast<std::size_t>(writeSome(fd_, bytes)));
}

void OpenFile::writeAllOf(const OpenFile& other) const {
  std::string piece(kPiece, '\0');
  for (;;) {
    const ssize_t got = ::read(other.fd_, piece.data(), piece.size());
    if (got < 0 && errno != EINTR) throwUnwritable();
    if (got == 0) return;
    if (got > 0) write(std::string_view(piece).substr(0, static_cast<std::size_t>(got)));
  }
}

void OpenFile::sync() const {
  if (::fsync(fd_) != 0) throwUnwritable();
}

}  // namespace vxmeta

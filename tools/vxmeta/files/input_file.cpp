// SPDX-License-Identifier: Apache-2.0
#include "files/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "files/packet_file.h"

namespace vxmeta {
namespace {

std::string reasonOf(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return "no such file; check its name";
    case EACCES:
    case EPERM:
      return "may not be read; check its permissions";
    default:
      return "cannot be read: " + std::string(std::strerror(error));
  }
}

// Owns a descriptor until it is handed on.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {
    if (fd < 0) throw FileError(reasonOf(errno));
  }
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int get() const { return fd_; }
  int release() { return std::exchange(fd_, -1); }

 private:
  int fd_;
};

struct stat statusOf(int fd) {
  struct stat status = {};
  if (::fstat(fd, &status) != 0) throw FileError(reasonOf(errno));
  return status;
}

ssize_t readSome(int fd, char* into, std::size_t length) {
  ssize_t got = 0;
  do got = ::read(fd, into, length);
  while (got < 0 && errno == EINTR);
  if (got < 0) throw FileError(reasonOf(errno));
  return got;
}

void writeAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t put = ::write(fd, bytes.data(), bytes.size());
    if (put < 0 && errno != EINTR) {
      throw FileError("cannot be copied to a temporary file: " + std::string(std::strerror(errno)));
    }
    if (put > 0) bytes.remove_prefix(static_cast<std::size_t>(put));
  }
}

// A copy of what comes through a pipe, in a file without a name.
int copyOfPipe(int from) {
  std::FILE* file = std::tmpfile();
  if (file == nullptr) throw FileError("needs a temporary file, and there is none to be had");
  Descriptor copy(::fcntl(::fileno(file), F_DUPFD_CLOEXEC, 0));
  std::fclose(file);
  std::string buffer(std::size_t{1} << 16, '\0');
  std::uint64_t total = 0;
  while (const ssize_t got = readSome(from, buffer.data(), buffer.size())) {
    total += static_cast<std::uint64_t>(got);
    if (total > InputFile::kMostFromPipe) {
      throw FileError("more than 1 GiB comes through the pipe; give the file by its name");
    }
    writeAll(copy.get(), std::string_view(buffer).substr(0, static_cast<std::size_t>(got)));
  }
  return copy.release();
}

int openStandardInput() {
  const struct stat status = statusOf(STDIN_FILENO);
  if (S_ISDIR(status.st_mode)) throw FileError("is a directory; name a file in it");
  if (!S_ISREG(status.st_mode)) return copyOfPipe(STDIN_FILENO);
  return Descriptor(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)).release();
}

int openNamed(const std::string& file) {
  // A pipe that nobody writes to would be waited for.
  Descriptor fd(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  const struct stat status = statusOf(fd.get());
  if (S_ISDIR(status.st_mode)) throw FileError("is a directory; name a file in it");
  if (!S_ISREG(status.st_mode)) {
    throw FileError("is a pipe or a device; give what it holds on standard input, as -");
  }
  return fd.release();
}

}  // namespace

InputFile::InputFile(const std::string& file)
    : fd_(file == "-" ? openStandardInput() : openNamed(file)), name_(file) {
  try {
    size_ = static_cast<std::uint64_t>(statusOf(fd_).st_size);
    head_ = read(0, kHead);
    if (head_.empty()) throw FileError("is empty; there is nothing to read");
  } catch (...) {
    ::close(fd_);
    throw;
  }
}

InputFile::~InputFile() { ::close(fd_); }

std::string InputFile::read(std::uint64_t offset, std::size_t length) const {
  std::string bytes(length, '\0');
  std::size_t have = 0;
  while (have < length) {
    const ssize_t got =
        ::pread(fd_, bytes.data() + have, length - have, static_cast<off_t>(offset + have));
    if (got == 0) break;
    if (got < 0 && errno != EINTR) throw FileError(reasonOf(errno));
    if (got > 0) have += static_cast<std::size_t>(got);
  }
  bytes.resize(have);
  return bytes;
}

std::string InputFile::path() const {
  return name_ == "-" ? "/dev/fd/" + std::to_string(fd_) : name_;
}

std::FILE* InputFile::openStream() const {
  Descriptor fd(::fcntl(fd_, F_DUPFD_CLOEXEC, 0));
  if (::lseek(fd.get(), 0, SEEK_SET) < 0) throw FileError(reasonOf(errno));
  std::FILE* stream = ::fdopen(fd.get(), "rb");
  if (stream == nullptr) throw FileError(reasonOf(errno));
  fd.release();
  return stream;
}

}  // namespace vxmeta

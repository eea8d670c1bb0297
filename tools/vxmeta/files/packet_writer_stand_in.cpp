// Packet text put back into its file: the wrapper is kept, and the length where that is enough.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "files/file_kind.h"
#include "files/input_file.h"
#include "files/packet_wrapper.h"
#include "files/packet_writer.h"

namespace vxmeta {
namespace {

[[noreturn]] void throwCannot(const std::string& what) {
  throw FileError("cannot " + what + ": " + std::strerror(errno));
}

// A file beside the target, gone unless it takes its place.
class Replacement {
 public:
  explicit Replacement(const std::string& target) : target_(target), name_(target + ".XXXXXX") {
    fd_ = ::mkstemp(name_.data());
    if (fd_ < 0) throwCannot("write beside it");
  }
  ~Replacement() {
    if (fd_ >= 0) ::close(fd_);
    if (!name_.empty()) ::unlink(name_.c_str());
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  void write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t count = ::write(fd_, bytes.data(), bytes.size());
      if (count < 0 && errno != EINTR) throwCannot("write");
      bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
  }

  void take(mode_t mode) {
    if (::fchmod(fd_, mode) != 0 || ::fsync(fd_) != 0) throwCannot("write");
    if (::rename(name_.c_str(), target_.c_str()) != 0) throwCannot("replace it");
    name_.clear();
  }

 private:
  std::string target_;
  std::string name_;
  int fd_ = -1;
};

mode_t modeOf(const std::string& file) {
  struct stat facts {};
  return ::stat(file.c_str(), &facts) == 0 ? facts.st_mode & 07777U : 0644U;
}

void replace(const std::string& file, const std::string& target, const std::string& text,
             bool backup) {
  Replacement replacement(target);
  replacement.write(text);
  if (backup && std::filesystem::exists(target)) {
    std::filesystem::copy_file(target, target + "~",
                               std::filesystem::copy_options::overwrite_existing);
  }
  replacement.take(modeOf(file));
}

std::string withWrapper(const std::string& old, const std::string& xml) {
  const PacketFacts facts = packetFacts(old);
  if (facts.encoding != Encoding::utf8) throw FileError("is not UTF-8: it cannot be written");
  if (!facts.hasWrapper) return xml;
  const std::size_t bodyAt = old.find("?>", old.find("<?xpacket begin")) + 2;
  const std::size_t endAt = old.rfind("<?xpacket end=");
  const std::size_t room = endAt - bodyAt;
  const std::size_t padding = room > xml.size() + 1 ? room - xml.size() - 1 : facts.padding;
  return old.substr(0, bodyAt) + '\n' + xml + std::string(padding, ' ') + old.substr(endAt);
}

}  // namespace

Written writePacketText(const std::string& file, const std::string& packet,
                        const WriteOptions& options) {
  const InputFile opened(file);
  if (fileKind(opened.head()).family != FileKind::packet) {
    throw FileError("is no packet text: it cannot be written");
  }
  if (options.out == "-") {
    std::fwrite(packet.data(), 1, packet.size(), stdout);
    return {};
  }
  const std::string target =
      options.out.empty() ? std::filesystem::canonical(file).string() : options.out;
  replace(file, target, packet, options.backup);
  return {"replaced", {}};
}

Written writePacket(const std::string& file, const XMPlib& xmp, const WriteOptions& options) {
  const std::string& xml = xmp.GetXML();
  if (xml.empty()) throw FileError("the metadata cannot be written: " + xmp.ErrStr());
  return writePacketText(file, withWrapper(readPacket(file, options.read).text, xml), options);
}

}  // namespace vxmeta

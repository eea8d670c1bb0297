// SPDX-License-Identifier: Apache-2.0
// Files of any kind, read as the tool reads them: either what is in them or an error in words.
#include <unistd.h>

#include <string>

#include "checks/finding.h"
#include "files/file_kind.h"
#include "files/input_file.h"
#include "files/packet_file.h"
#include "target.h"

namespace {

// A file of the process's own without a name in any folder.
class UnnamedFile {
 public:
  explicit UnnamedFile(std::string_view content) : file_(std::tmpfile()) {
    expect(file_ != nullptr, "a temporary file can be made");
    std::fwrite(content.data(), 1, content.size(), file_);
    std::fflush(file_);
  }
  ~UnnamedFile() { std::fclose(file_); }
  UnnamedFile(const UnnamedFile&) = delete;
  UnnamedFile& operator=(const UnnamedFile&) = delete;

  std::string path() const { return "/proc/self/fd/" + std::to_string(fileno(file_)); }

 private:
  std::FILE* file_;
};

template <class Read>
void tryTo(const Read& read) {
  try {
    read();
  } catch (const vxmeta::FileError& error) {
    expect(error.what()[0] != '\0', "a refusal says why");
  }
}

// Every check of the packet and of the file around it.
void checkAll(const vxmeta::InputFile& file) {
  const vxmeta::FilePacket packet = vxmeta::readPacket(file, {});
  XMPlib xmp;
  xmp.SetXML(packet.text);
  vxmeta::Subject subject = {xmp, vxmeta::packetFacts(packet.text), {}};
  const bool isPdf = vxmeta::fileKind(file.head()).family == vxmeta::FileKind::pdf;
  if (isPdf) subject.pdf = vxmeta::readPdfFacts(file, "");
  for (const vxmeta::Check& check : vxmeta::allChecks()) {
    for (const vxmeta::Finding& finding : vxmeta::run(check, subject)) {
      expect(!finding.message.empty() && !finding.hint.empty(), "a finding says what to do");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const UnnamedFile file(textOf(data, size));
  tryTo([&] { checkAll(vxmeta::InputFile(file.path())); });
  tryTo([&] { vxmeta::listPackets(file.path(), {}); });
  vxmeta::ReadOptions scan;
  scan.scan = true;
  tryTo([&] { vxmeta::readPacket(file.path(), scan); });
  return 0;
}

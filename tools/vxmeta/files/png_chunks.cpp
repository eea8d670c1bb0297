// SPDX-License-Identifier: Apache-2.0
#include "files/png_chunks.h"

#include <fcntl.h>

#include <algorithm>

#include "files/open_file.h"
#include "files/packet_file.h"

namespace vxmeta {
namespace {

constexpr std::size_t kSignature = 8;
constexpr std::size_t kPiece = std::size_t{1} << 20;

std::uint64_t lengthIn(const std::string& head) {
  std::uint64_t length = 0;
  for (std::size_t i = 0; i < 4; ++i) length = length << 8 | static_cast<unsigned char>(head[i]);
  return length;
}

void copyPart(const InputFile& file, std::uint64_t from, std::uint64_t end, const OpenFile& to) {
  while (from < end) {
    const auto length = static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, end - from));
    const std::string bytes = file.read(from, length);
    if (bytes.empty()) throw FileError("is a truncated PNG file; get it anew");
    to.write(bytes);
    from += bytes.size();
  }
}

}  // namespace

void copyPngWithoutPacket(const InputFile& file, const std::string& to) {
  const std::string packet = std::string("iTXtXML:com.adobe.xmp") + '\0';
  const OpenFile copy(to, O_WRONLY | O_CREAT | O_EXCL);
  copyPart(file, 0, kSignature, copy);
  for (std::uint64_t at = kSignature; at < file.size();) {
    const std::string head = file.read(at, 4 + packet.size());
    if (head.size() < 8) return copyPart(file, at, file.size(), copy);
    const std::uint64_t end = at + 12 + lengthIn(head);  // length, type, data, check sum
    if (head.compare(4, packet.size(), packet) != 0) copyPart(file, at, end, copy);
    at = end;
  }
}

}  // namespace vxmeta

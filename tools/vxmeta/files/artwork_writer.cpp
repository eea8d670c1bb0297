// SPDX-License-Identifier: Apache-2.0
#include "files/artwork_writer.h"

#include <exempi/xmp.h>
#include <exempi/xmperrors.h>

#include "files/artwork.h"
#include "files/canonical.h"
#include "files/exempi_call.h"
#include "files/packet_text.h"
#include "files/png_chunks.h"
#include "files/replace_file.h"

namespace vxmeta {
namespace {

[[noreturn]] void throwUnwritten(const FileKind& kind, const char* what) {
  throw FileError(std::string("the packet cannot be put into this ") + kind.name + " file: " +
                  what + " (error " + std::to_string(xmp_get_error()) + "); nothing is written");
}

// Copies that exempi makes are beside the file, in the directory that goes.
void put(const std::string& path, const FileKind& kind, const std::string& packet) {
  const ExempiCall call;
  XmpFilePtr file = xmp_files_open_new(path.c_str(), XMP_OPEN_FORUPDATE);
  if (file == nullptr) throwUnwritten(kind, "it is damaged or truncated");
  const bool isTaken = xmp_files_can_put_xmp_cstr(file, packet.data(), packet.size()) &&
                       xmp_files_put_xmp_cstr(file, packet.data(), packet.size());
  const int error = xmp_get_error();
  const bool isClosed = xmp_files_close(file, isTaken ? XMP_CLOSE_SAFEUPDATE : XMP_CLOSE_NOOPTION);
  xmp_files_free(file);
  if (!isTaken && error == 0) throwUnwritten(kind, "it has no room for it");
  if (!isTaken || !isClosed) throwUnwritten(kind, "the write failed");
}

void requireWritten(const std::string& path, const FileKind& kind, const std::string& packet) {
  const std::string found = readArtwork(InputFile(path), kind).text;
  if (canonicalText(found) == canonicalText(packet)) return;
  throw FileError(std::string("this ") + kind.name +
                  " file would not hold the packet as it is; nothing is written");
}

// A JPEG has one segment for it; the rest of a longer packet would go where few programs look.
void requireFits(const FileKind& kind, const std::string& packet) {
  constexpr std::size_t kMostInJpeg = 65502;
  if (std::string_view(kind.name) != "JPEG") return;
  if (packet.size() <= kMostInJpeg || atLength(packet, kMostInJpeg)) return;
  throw FileError("the packet is over 64 KB, more than a JPEG holds in one piece; use TIFF or PSD");
}

// exempi writes a shorter packet of a PNG over the old one, whose end then stays behind it.
void copyFor(const InputFile& file, const FileKind& kind, const std::string& to) {
  if (std::string_view(kind.name) == "PNG") return copyPngWithoutPacket(file, to);
  copyFile(file.path(), to);
}

}  // namespace

Written writeArtwork(const InputFile& file, const FileKind& kind, const std::string& packet,
                     const std::string& to) {
  requireFits(kind, packet);
  copyFor(file, kind, to);
  put(to, kind, packet);
  requireWritten(to, kind, packet);
  return {std::string("written into the ") + kind.name, {}};
}

}  // namespace vxmeta

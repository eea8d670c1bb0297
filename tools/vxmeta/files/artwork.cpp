// SPDX-License-Identifier: Apache-2.0
#include "files/artwork.h"

#include <exempi/xmp.h>
#include <exempi/xmperrors.h>

#include <memory>
#include <string_view>

#include "files/exempi_call.h"
#include "files/scan.h"

namespace vxmeta {
namespace {

struct CloseFile {
  void operator()(XmpFilePtr file) const {
    xmp_files_close(file, XMP_CLOSE_NOOPTION);
    xmp_files_free(file);
  }
};
using File = std::unique_ptr<_XmpFile, CloseFile>;

struct FreeText {
  void operator()(XmpStringPtr text) const { xmp_string_free(text); }
};
using Text = std::unique_ptr<_XmpString, FreeText>;

[[noreturn]] void throwUnreadable(const FileKind& kind) {
  throw FileError(std::string("is a damaged or truncated ") + kind.name +
                  " file; get it anew from where it was made");
}

std::string rawPacket(const InputFile& file, const FileKind& kind) {
  const ExempiCall call;
  constexpr int kOptions = XMP_OPEN_READ | XMP_OPEN_ONLYXMP;
  const File opened(
      xmp_files_open_new(file.path().c_str(), static_cast<XmpOpenFileOptions>(kOptions)));
  if (!opened) throwUnreadable(kind);
  const Text text(xmp_string_new());
  if (!xmp_files_get_xmp_xmpstring(opened.get(), text.get(), nullptr)) {
    if (xmp_get_error() != 0) throwUnreadable(kind);
    return {};
  }
  return {xmp_string_cstr(text.get()), xmp_string_len(text.get())};
}

// A JPEG holds 64 KB of packet in one piece; the rest, which this property announces, does not
// come along.
bool isCutOff(std::string_view packet) {
  constexpr std::string_view kRest = ":HasExtendedXMP";
  const std::size_t at = packet.find(kRest);
  if (at == std::string_view::npos) return false;
  const std::size_t next = packet.find_first_not_of(" \t\r\n", at + kRest.size());
  return next != std::string_view::npos && (packet[next] == '=' || packet[next] == '>');
}

// exempi makes a packet of an EPS that has none, out of its comments.
bool isMadeUp(const InputFile& file, const FileKind& kind) {
  return std::string_view(kind.name) == "EPS" && scanForPackets(file).empty();
}

}  // namespace

FilePacket readArtwork(const InputFile& file, const FileKind& kind) {
  FilePacket packet;
  packet.text = rawPacket(file, kind);
  packet.source = kind.name;
  if (packet.text.empty() || isMadeUp(file, kind)) {
    throw NoPacketError(std::string("no metadata packet is found in this ") + kind.name +
                        " file: it has none, or is truncated");
  }
  if (isCutOff(packet.text)) {
    throw FileError(
        "its packet is over 64 KB and would be cut off: the rest lies in extended segments of the "
        "JPEG; have it written as TIFF or PSD");
  }
  return packet;
}

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
#include "files/packet_file.h"

#include "files/artwork.h"
#include "files/file_kind.h"
#include "files/input_file.h"
#include "files/pdf.h"
#include "files/scan.h"

namespace vxmeta {
namespace {

std::string bounded(const InputFile& file, std::uint64_t offset, std::uint64_t length) {
  if (length > kMostPacketBytes) {
    throw FileError("its packet is over 256 MiB, more than a packet may hold");
  }
  return file.read(offset, static_cast<std::size_t>(length));
}

std::string scannedSource(const Extent& packet) {
  return "scan, byte " + std::to_string(packet.offset);
}

// One of what a scan finds: the only one, or the one that is asked for, counted from 1.
FilePacket readScanned(const InputFile& file, std::optional<int> number) {
  const std::vector<Extent> packets = scanForPackets(file);
  if (packets.empty()) throw NoPacketError("no metadata packet is found in its bytes");
  if (!number && packets.size() > 1) {
    throw FileError("holds " + std::to_string(packets.size()) +
                    " packets, and which is the document's cannot be told; `vxmeta extract --scan "
                    "--list` shows them, --object N takes one");
  }
  const std::size_t index = static_cast<std::size_t>(number.value_or(1)) - 1;
  if (index >= packets.size()) {
    throw FileError("holds no packet of this number; `vxmeta extract --scan --list` shows them");
  }
  const Extent& packet = packets[index];
  return {bounded(file, packet.offset, packet.length), scannedSource(packet), {}};
}

[[noreturn]] void throwUnknown() {
  throw FileError(
      "is no XMP packet, PDF, TIFF, JPEG, PSD, EPS, INDD, GIF or PNG; --scan looks for a packet in "
      "its bytes");
}

void refuseObject(const ReadOptions& options) {
  if (options.object) throw FileError("has no numbered objects; --object is for PDFs and --scan");
}

// The document's own packet among those that a scan finds: a placed image's have other bytes.
std::vector<ListedPacket> listArtwork(const InputFile& file, const FileKind& kind) {
  const std::string own = readArtwork(file, kind).text;
  std::vector<ListedPacket> packets = {{kind.name, own.size(), true, "document"}};
  bool isOwnPassed = false;
  for (const Extent& found : scanForPackets(file)) {
    const bool isOwn = !isOwnPassed && own.find(bounded(file, found.offset, found.length)) == 0;
    isOwnPassed = isOwnPassed || isOwn;
    if (isOwn) continue;
    packets.push_back(
        {scannedSource(found), static_cast<std::size_t>(found.length), false, "something placed"});
  }
  return packets;
}

std::vector<ListedPacket> listScanned(const InputFile& file) {
  std::vector<ListedPacket> packets;
  for (const Extent& found : scanForPackets(file)) {
    packets.push_back(
        {scannedSource(found), static_cast<std::size_t>(found.length), false, "unknown"});
  }
  if (packets.size() == 1) packets[0].isDocuments = true;
  return packets;
}

}  // namespace

FilePacket readPacket(const InputFile& file, const ReadOptions& options) {
  const FileKind kind = fileKind(file.head());
  if (kind.family == FileKind::pdf) return readPdf(file, options);
  if (kind.family == FileKind::unknown) {
    return options.scan ? readScanned(file, options.object) : (throwUnknown(), FilePacket());
  }
  refuseObject(options);
  if (kind.family == FileKind::artwork) return readArtwork(file, kind);
  return {bounded(file, 0, file.size()), "packet", {}};
}

FilePacket readPacket(const std::string& file, const ReadOptions& options) {
  return readPacket(InputFile(file), options);
}

PacketList listPackets(const std::string& file, const ReadOptions& options) {
  const InputFile opened(file);
  const FileKind kind = fileKind(opened.head());
  if (kind.family == FileKind::pdf) return listPdf(opened, options);
  if (kind.family == FileKind::artwork) return {listArtwork(opened, kind), {}};
  if (kind.family == FileKind::packet) {
    return {{{"packet", static_cast<std::size_t>(opened.size()), true, "document"}}, {}};
  }
  if (!options.scan) throwUnknown();
  return {listScanned(opened), {}};
}

}  // namespace vxmeta

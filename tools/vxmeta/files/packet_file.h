// SPDX-License-Identifier: Apache-2.0
// Read the packets of a file. What kind of file it is, its content says, not its name.
#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace vxmeta {

class InputFile;

// The most that the library takes as a packet: 256 MiB.
constexpr std::size_t kMostPacketBytes = std::size_t{256} << 20;

// Why a file or its packet cannot be had, and what to do, in one line that does not name the file.
class FileError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// One that has no metadata at all.
class NoPacketError : public FileError {
 public:
  using FileError::FileError;
  NoPacketError(const std::string& why, std::vector<std::string> mended)
      : FileError(why), warnings(std::move(mended)) {}

  std::vector<std::string> warnings;  // what had to be mended to look for it
};

struct ReadOptions {
  std::string password;  // of an encrypted PDF
  bool scan = false;     // look for a packet in the bytes of a file of an unknown kind
  // Another object of a PDF than the catalogue's metadata; where the bytes are scanned, the packet
  // of this number, from 1, in the order of the file.
  std::optional<int> object;
};

// A packet as it lies in its file, decompressed and decrypted, and nothing else done to it.
struct FilePacket {
  std::string text;                   // wrapper included, where there is one
  std::string source;                 // "packet", "pdf object 12", "TIFF" ...
  std::vector<std::string> warnings;  // what had to be mended to read it
};

// The document's own packet: never that of something placed in it. `file` is a path, or "-" for
// standard input.
FilePacket readPacket(const std::string& file, const ReadOptions& options);
FilePacket readPacket(const InputFile& file, const ReadOptions& options);

struct ListedPacket {
  std::string source;
  std::size_t bytes = 0;
  bool isDocuments = false;  // the one that readPacket answers
  std::string owner;         // what it belongs to: "document", "page 3", "image", "font" ...
};

struct PacketList {
  std::vector<ListedPacket> packets;
  std::vector<std::string> warnings;  // what had to be mended to find them
};

// All packets of the file.
PacketList listPackets(const std::string& file, const ReadOptions& options);

}  // namespace vxmeta

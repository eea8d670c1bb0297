// Reads packet text alone, until the readers of files are there. Goes then.
#include <fstream>
#include <iostream>
#include <iterator>

#include "commands/commands.h"
#include "files/packet_file.h"

namespace vxmeta {
namespace {

std::string textOf(std::istream& in) { return {std::istreambuf_iterator<char>(in), {}}; }

std::string bytesOf(const std::string& file) {
  if (file == "-") return textOf(std::cin);
  std::ifstream in(file, std::ios::binary);
  if (!in) throw FileError("cannot be opened; look at its name and permissions");
  return textOf(in);
}

}  // namespace

FilePacket readPacket(const std::string& file, const ReadOptions&) {
  FilePacket packet{bytesOf(file), "packet", {}};
  if (packet.text.find("rdf:RDF") == std::string::npos &&
      packet.text.find('\0') == std::string::npos)
    throw NoPacketError("has no XMP packet; nothing to read");
  return packet;
}

std::vector<ListedPacket> listPackets(const std::string&, const ReadOptions&) { return {}; }

void addExtract(CLI::App&, Run&) {}

}  // namespace vxmeta

// SPDX-License-Identifier: Apache-2.0
#include "files/packet_wrapper.h"
#include "model/read_document.h"

namespace vxmeta {
namespace {

std::string inCapitals(std::string text) {
  for (char& c : text) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return text;
}

}  // namespace

PacketInfo packetInfo(const FilePacket& packet) {
  const PacketFacts facts = packetFacts(packet.text);
  PacketInfo info;
  info.source = packet.source;
  const std::string declared = declaredEncoding(packet.text);
  const bool isDeclared = facts.encoding == Encoding::utf8 && !declared.empty();
  info.encoding = isDeclared ? inCapitals(declared) : nameOf(facts.encoding);
  info.bytes = static_cast<std::int64_t>(facts.bytes);
  info.padding = static_cast<std::int64_t>(facts.padding);
  info.writable = facts.writable || !facts.hasWrapper;
  return info;
}

}  // namespace vxmeta

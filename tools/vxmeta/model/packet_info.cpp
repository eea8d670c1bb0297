// SPDX-License-Identifier: Apache-2.0
#include "files/packet_wrapper.h"
#include "model/read_document.h"

namespace vxmeta {

PacketInfo packetInfo(const FilePacket& packet) {
  const PacketFacts facts = packetFacts(packet.text);
  PacketInfo info;
  info.source = packet.source;
  info.encoding = nameOf(facts.encoding);
  info.bytes = static_cast<std::int64_t>(facts.bytes);
  info.padding = static_cast<std::int64_t>(facts.padding);
  info.writable = facts.writable || !facts.hasWrapper;
  return info;
}

}  // namespace vxmeta

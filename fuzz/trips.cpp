// SPDX-License-Identifier: Apache-2.0
// Packets, loaded, saved and loaded again: all is kept, but for what docs/limits.md says is not.
#include "trips.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string packet = packetOf(textOf(data, size));
  XMPlib xmp;
  xmp.SetXML(packet);
  const bool isRead = xmp.ErrStr().empty() && !packet.empty();
  const std::string text = saved(xmp);
  if (isRead) expectWordsKept(packet, text);
  checkTrips(text);
  return 0;
}

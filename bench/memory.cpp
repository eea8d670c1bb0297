// SPDX-License-Identifier: Apache-2.0
#include "memory.h"

#include <sys/resource.h>

#include <iostream>

#include "sides.h"

namespace bench {
namespace {

// Made of a small packet, whose items come again and again: making it takes little more than it.
std::string largePacket() {
  constexpr std::size_t kBytes = 50'000'000;
  const std::string packet = packetOf(fonts(1000));
  const std::size_t begin = packet.find("<rdf:li");
  const std::size_t end = packet.rfind("</rdf:li>") + std::string_view("</rdf:li>").size();
  std::string large;
  large.reserve(kBytes + packet.size());
  large.append(packet, 0, begin);
  while (large.size() < kBytes) large.append(packet, begin, end - begin);
  return large.append(packet, end);
}

// Of the whole process, the text included.
std::size_t peakBytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

}  // namespace

int printPeak(std::string_view side) {
  const std::string text = largePacket();
  if (side == "ours") {
    XMPlib().SetXML(text);
  } else if (side == "by_hand") {
    parsed(text);
  } else if (side != "text") {
    std::cerr << "no side " << side << '\n';
    return 1;
  }
  const std::size_t bytes = side == "text" ? text.size() : peakBytes();
  std::cout << "memory/" << side << "/1 " << bytes << '\n';
  return 0;
}

}  // namespace bench

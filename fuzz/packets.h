// SPDX-License-Identifier: Apache-2.0
// Packets as inputs, and what is saved and loaded again.
#pragma once

#include "support/random_packets.h"
#include "target.h"

// Numbers for the grammar of packets, each from as few bytes as it needs; 0 behind the end.
inline Numbers numbersOf(std::string_view input) {
  return [input](unsigned limit) mutable {
    unsigned number = 0;
    for (unsigned reach = 1; reach < limit && !input.empty(); reach *= 256) {
      number = number * 256 + static_cast<unsigned char>(input.front());
      input.remove_prefix(1);
    }
    return number % limit;
  };
}

// An input that begins with "|" is what a packet holds, without what every packet begins with; one
// that begins with "*" is a way through the grammar. Any other is a packet.
inline std::string packetOf(std::string_view input) {
  if (input.starts_with('|')) return packet(std::string(input.substr(1)));
  if (input.starts_with('*')) return RandomPackets(numbersOf(input.substr(1))).next();
  return std::string(input);
}

// An input's sections, at most four. "====" on a line of its own stands between them.
inline std::vector<std::string_view> sectionsOf(std::string_view input) {
  constexpr std::string_view kBetween = "\n====\n";
  std::vector<std::string_view> sections;
  while (sections.size() < 4) {
    const std::size_t end = input.find(kBetween);
    sections.push_back(input.substr(0, end));
    if (end == input.npos) break;
    input.remove_prefix(end + kBetween.size());
  }
  return sections;
}

inline std::string saved(const XMPlib& xmp) {
  std::string text = xmp.GetXMLPacket(false, 1);
  expect(xmp.ErrStr().empty(), "what is in a handle can be saved", xmp.ErrStr());
  return text;
}

// Loads what the library has saved.
struct Reloaded : XMPlib {
  explicit Reloaded(const std::string& text) {
    SetXML(text);
    expect(ErrStr().empty(), "a saved packet can be loaded", ErrStr() + '\n' + text);
  }
};

// The number of files in all runs of a handle's references.
inline std::int64_t filesOf(const XMPlib& xmp) {
  std::vector<XMPlExtRef> refs;
  xmp.GetExtRefs(refs, true);
  return filesIn(refs);
}

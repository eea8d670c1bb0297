// SPDX-License-Identifier: Apache-2.0
// Packets, merged. "====" on a line of its own stands between them; the first byte holds the flags.
#include "packets.h"

namespace {

std::vector<std::string> packetsOf(std::string_view input) {
  std::vector<std::string> packets;
  for (const std::string_view section : sectionsOf(input)) packets.push_back(packetOf(section));
  return packets;
}

std::int64_t filesOf(const std::string& packet) {
  XMPlib xmp;
  xmp.SetXML(packet);
  return filesOf(xmp);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const bool flag = data[0] % 2 != 0;
  const int mode = data[0] / 2 % 4;
  const std::vector<std::string> packets = packetsOf(textOf(data + 1, size - 1));

  XMPlib lists;
  std::int64_t files = 0;
  for (const std::string& packet : packets) {
    if (isSlow(files += filesOf(packet))) return 0;
    const auto merged = attempt<std::logic_error>([&] { return lists.MergeXML(packet, flag); });
    expect(merged.value_or(true), "MergeXML answers true");
  }

  XMPlib films;
  films.SetXML(packets.back());
  const std::string before = saved(films);
  const auto merge = [&] { return films.MergeXML(packets, mode, flag); };
  const auto merged = attempt<XMP_Error>([&] { return attempt<std::length_error>(merge); });
  const bool isMerged = merged && *merged;
  expect(!isMerged || **merged, "MergeXML answers true");
  expect(isMerged || saved(films) == before, "an error of the packets leaves the handle alone");
  attempt<XMP_Error>([&] { return films.MergeNonOrvo(&lists); });

  for (const XMPlib* xmp : {&lists, &films}) {
    Reloaded reloaded(saved(*xmp));
    rewrite(reloaded);
  }
  return 0;
}

// Packets, merged. "====" on a line of its own stands between them; the first byte holds the flags.
#include <array>

#include "kinds.h"

namespace {

std::vector<std::string> packetsOf(std::string_view input) {
  constexpr std::string_view kBetween = "\n====\n";
  std::vector<std::string> packets;
  while (packets.size() < 4) {
    const std::size_t end = input.find(kBetween);
    packets.push_back(packetOf(input.substr(0, end)));
    if (end == input.npos) break;
    input.remove_prefix(end + kBetween.size());
  }
  return packets;
}

// How long a list of the handle is after a merge: each record of the packet joins unless the
// growing list holds its equal.
template <class Record>
std::size_t joined(bool (XMPlib::*get)(std::vector<Record>&) const, const XMPlib& xmp,
                   const XMPlib& packet) {
  std::vector<Record> list, incoming;
  (xmp.*get)(list);
  if (!(packet.*get)(incoming)) return list.size();
  for (const Record& record : incoming) {
    if (std::find(list.begin(), list.end(), record) == list.end()) list.push_back(record);
  }
  return list.size();
}

std::array<std::size_t, 5> allJoined(const XMPlib& xmp, const XMPlib& packet) {
  return {joined(&XMPlib::GetInks, xmp, packet), joined(&XMPlib::GetFonts, xmp, packet),
          joined(&XMPlib::GetCadFiles, xmp, packet), joined(&XMPlib::GetBarcodes, xmp, packet),
          joined(&XMPlib::GetLayers, xmp, packet)};
}

void mergeLists(XMPlib& xmp, const std::string& text, bool flag) {
  XMPlib packet;
  packet.SetXML(text);
  std::vector<XMPlExtRef> refs, more;
  xmp.GetExtRefs(refs, true);
  packet.GetExtRefs(more, true);
  if (isSlow(filesIn(refs) + filesIn(more))) return;
  const auto wanted = allJoined(xmp, packet);
  const auto merged = attempt<std::logic_error>([&] { return xmp.MergeXML(text, flag); });
  if (!merged) return;
  expect(*merged, "MergeXML answers true");
  expect(allJoined(xmp, XMPlib()) == wanted, "a merge adds what a list does not hold");
}

void mergeFilms(XMPlib& xmp, const std::vector<std::string>& packets, int mode, bool flag) {
  const std::string before = saved(xmp);
  const auto merge = [&] { return xmp.MergeXML(packets, mode, flag); };
  const auto merged = attempt<XMP_Error>([&] { return attempt<std::length_error>(merge); });
  const bool isMerged = merged && *merged;
  expect(!isMerged || **merged, "MergeXML answers true");
  expect(isMerged || saved(xmp) == before, "an error of the packets leaves the handle alone");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::vector<std::string> packets = packetsOf(textOf(data + 1, size - 1));
  const bool flag = data[0] % 2 != 0;
  XMPlib lists, films;
  lists.SetXML(packets.front());
  films.SetXML(packets.back());
  for (const std::string& packet : packets) mergeLists(lists, packet, flag);
  mergeFilms(films, packets, data[0] / 2 % 4, flag);
  attempt<XMP_Error>([&] { return films.MergeNonOrvo(&lists); });
  for (XMPlib* xmp : {&lists, &films}) {
    Reloaded reloaded(saved(*xmp));
    rewrite(reloaded);
  }
  return 0;
}

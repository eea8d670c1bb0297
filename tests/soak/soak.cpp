// SPDX-License-Identifier: Apache-2.0
// soak [ROUNDS]: loads, changes and saves a packet over and over in one process. Memory that grows
// after the first tenth of the rounds is a leak: then it fails.
#include <XMPlib.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

long residentKilobytes() {
  std::ifstream statm("/proc/self/statm");
  long total = 0, resident = 0;
  statm >> total >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

// A small packet, so that a million rounds take minutes.
std::string sample() {
  XMPlib xmp;
  std::vector<XMPlInk> inks(2);
  inks[0].name = "Leaf green, from the house colours";
  inks[0].coverageValid = true;
  xmp.SetInks(inks, true);
  xmp.SetExtRefs({{"file:/jobs/leaf_000.tif", "", 0, "image", 1},
                  {"file:/jobs/leaf_001.tif", "", 0, "image", 1}});
  return xmp.GetXMLPacket(false, 0);
}

// The packet after a round of typed changes.
std::string changed(const std::string& packet, long round) {
  XMPlib xmp;
  xmp.SetXML(packet);
  std::vector<XMPlInk> inks;
  xmp.GetInks(inks);
  if (!inks.empty()) inks.front().pct = static_cast<double>(round % 100);
  xmp.SetInks(inks, true);
  std::vector<XMPlExtRef> refs;
  xmp.GetExtRefs(refs);
  xmp.SetExtRefs(refs);
  XMPlib copy(xmp);
  copy.SetNrPages(static_cast<int>(round % 1000));
  if (round % 10 == 0) copy.MergeXML(packet, true);
  return xmp.GetXMLPacket(false, 0);
}

}  // namespace

int main(int argc, char** argv) {
  const long rounds = argc > 1 ? std::atol(argv[1]) : 1'000'000;
  const std::string original = sample();
  std::string packet = original;
  long settled = 0;
  for (long round = 0; round < rounds; ++round) {
    packet = changed(round % 100 == 0 ? original : packet, round);
    if (round == rounds / 10) settled = residentKilobytes();
  }
  const long grown = residentKilobytes() - settled;
  std::cout << rounds << " rounds; " << settled << " KB, grown by " << grown << " KB\n";
  constexpr long kNoise = 1024;
  return grown > kNoise ? 1 : 0;
}

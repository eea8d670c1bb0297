// SPDX-License-Identifier: Apache-2.0
// What packets cost that are made to cost.
#include <gtest/gtest.h>

#include <ctime>

#include "XMPlib.h"
#include "support/costly_packets.h"

namespace {

// Of the processor: what else the machine does makes little difference.
template <class Operation>
double secondsFor(const Operation& operation, const std::string& text) {
  double least = 1e9;
  for (int i = 0; i < 3; ++i) {
    XMPlib xmp;
    const std::clock_t begin = std::clock();
    operation(xmp, text);
    least = std::min(least, static_cast<double>(std::clock() - begin));
  }
  return least / CLOCKS_PER_SEC;
}

void load(XMPlib& xmp, const std::string& text) { xmp.SetXML(text); }

}  // namespace

// So many that moving what stands behind each would show.
TEST(Cost, OfRepairedLanguagesIsInStepWithTheirNumber) {
  constexpr std::size_t kBytes = 4'000'000;
  const std::string title = "<dc:title><rdf:Bag>" +
                            repeated("<rdf:li/><rdf:li>a</rdf:li>", kBytes) +
                            "</rdf:Bag></dc:title>";
  EXPECT_LT(secondsFor(load, described(title)) / secondsFor(load, plainList(kBytes)), 15);
}

// What is out of all proportion; the benchmark counts instructions, and has a tighter goal.
TEST(Cost, OfOddPacketsIsInStepWithTheText) {
  constexpr std::size_t kBytes = 300'000;
  const auto merge = [](XMPlib& xmp, const std::string& text) {
    XMPlib other;
    other.SetXML(text);
    xmp.MergeNonOrvo(&other);
  };
  const double plain = secondsFor(load, plainList(kBytes));
  const double plainMerge = secondsFor(merge, plainList(kBytes));
  for (const CostlyPacket& packet : costlyPackets(kBytes)) {
    EXPECT_LT(secondsFor(load, packet.text) / plain, 100) << packet.name;
    EXPECT_LT(secondsFor(merge, packet.text) / plainMerge, 100) << packet.name;
  }
}

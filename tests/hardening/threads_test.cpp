// SPDX-License-Identifier: Apache-2.0
// What handles promise to several threads; a program of its own, for the thread sanitizer.
#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <thread>
#include <vector>

#include "support/bare_packets.h"
#include "support/packets.h"
#include "support/slots.h"

namespace {

constexpr const char* kInk = "name type frequency angle=2.5 r g b attribute";

// `work(thread)` on several threads that begin together.
void onManyThreads(const std::function<void(int)>& work) {
  constexpr int kThreads = 8;
  std::latch start(kThreads);
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&start, &work, t] {
      start.arrive_and_wait();
      work(t);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace

TEST(Threads, StartsTheToolkitOnceForManyThreads) {
  onManyThreads([](int thread) {
    XMPlib xmp;
    EXPECT_TRUE(xmp.SetNrPages(thread));
    EXPECT_EQ(stored(xmp), elements("vxGr:", "nrpages=" + std::to_string(thread)));
  });
}

TEST(Threads, LivesAndDiesOnManyThreadsAtOnce) {
  const std::size_t used = slotsInUse();
  XMPlib shared;
  onManyThreads([&shared](int thread) {
    const std::string inks = list("vxGr:inks", "Seq", {elements("vxInk:", kInk)});
    for (int i = 0; i < 50; ++i) {
      const std::string uri = "http://threads.example/" + std::to_string(i);  // new to all of them
      Loaded own(inks + "<t:p xmlns:t='" + uri + "'>1</t:p>");
      XMPlib copy(own), sharing(shared), other;
      std::vector<XMPlInk> read;
      EXPECT_TRUE(copy.SetNrPages(thread) && own.GetInks(read));
      EXPECT_EQ(read.at(0).angle, 2.5);
      EXPECT_TRUE(other.MergeXML(copy.GetXML(), true) && other.MergeNonOrvo(&own));
      EXPECT_NE(other.GetXML().find(uri), std::string::npos);
      own.SetXML(copy.GetXML());
      EXPECT_EQ(pagesOf(own), thread);
    }
  });
  EXPECT_EQ(slotsInUse(), used + 1);
}

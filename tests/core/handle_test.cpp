#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <memory>
#include <thread>
#include <vector>

#include "core/namespaces.h"
#include "core/registry.h"
#include "support/packets.h"

using xmpl::MetaRegistry;

namespace {

std::size_t slotsInUse() {
  const MetaRegistry& registry = MetaRegistry::instance();
  std::size_t used = 0;
  for (std::size_t slot = 0; slot < registry.size(); ++slot) {
    const auto number = static_cast<std::int32_t>(slot);
    const bool isUsed = registry.holders(number) > 0;
    EXPECT_EQ(registry.metadata(number) != nullptr, isUsed);  // a free slot holds no object
    if (isUsed) ++used;
  }
  return used;
}

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

TEST(Handle, ReusesTheLowestFreeSlot) {
  const MetaRegistry& registry = MetaRegistry::instance();
  auto a = std::make_unique<XMPlib>();
  auto b = std::make_unique<XMPlib>();
  auto c = std::make_unique<XMPlib>();
  const std::size_t slots = registry.size();
  b.reset();
  XMPlib d;
  EXPECT_EQ(registry.size(), slots);
  XMPlib e;
  EXPECT_EQ(registry.size(), slots + 1);
}

TEST(Handle, RecreatedAsSoleHolderKeepsItsSlot) {
  XMPlib a;
  const std::size_t used = slotsInUse();
  const std::size_t slots = MetaRegistry::instance().size();
  EXPECT_FALSE(a.SetSmartID("\xff"));
  a.CreateXAP();
  EXPECT_EQ(a.ErrStr(), "");
  EXPECT_EQ(slotsInUse(), used);
  EXPECT_EQ(MetaRegistry::instance().size(), slots);
}

TEST(Handle, CopiesShareOneObjectUntilOneLoadsAPacket) {
  auto a = std::make_unique<XMPlib>();
  const std::size_t used = slotsInUse();
  XMPlib copy(*a);
  EXPECT_EQ(slotsInUse(), used);
  EXPECT_TRUE(a->SetNrPages(3));
  int pages = 0;
  EXPECT_TRUE(copy.GetNrPages(pages));
  EXPECT_EQ(pages, 3);

  XMPlib third(copy);
  third.SetXML(packet("<vxGr:nrpages>9</vxGr:nrpages>"));
  EXPECT_TRUE(copy.GetNrPages(pages));
  EXPECT_EQ(pages, 3);

  a.reset();
  EXPECT_TRUE(copy.GetNrPages(pages));
  EXPECT_EQ(pages, 3);
}

TEST(Handle, CopyStartsWithoutErrorText) {
  Loaded a("<vxGr:nrpages>many</vxGr:nrpages>");
  int pages = 0;
  a.GetNrPages(pages);
  EXPECT_EQ(a.ErrStr(), "Invalid integer string");
  EXPECT_EQ(XMPlib(a).ErrStr(), "");
}

TEST(Handle, WithoutMetadataRefusesAndRecovers) {
  const std::size_t used = slotsInUse();
  {
    Empty empty;
    EXPECT_EQ(slotsInUse(), used);
    EXPECT_FALSE(empty.SetNrPages(1));
    EXPECT_EQ(empty.ErrStr(), "Illegal XAP");
    empty.CreateXAP();
    EXPECT_NE(empty.GetXML(), "");
    empty.RemoveXAP();
    EXPECT_EQ(empty.GetXML(), "");
    EXPECT_EQ(empty.ErrStr(), "");
    empty.DumpXAP();
    EXPECT_FALSE(XMPlib(empty).SetNrPages(1));
    empty.RemoveXAP();
    empty.CreateXAP();
    EXPECT_TRUE(empty.SetNrPages(1));
  }
  EXPECT_EQ(slotsInUse(), used);
}

// In a process of its own, as ctest runs it, this test makes the first handles.
TEST(Handle, MovesWithItsMetadataAndTexts) {
  const std::size_t before = slotsInUse();
  const auto load = [](const std::string& text) {
    XMPlib xmp;
    xmp.SetXML(text);
    return xmp;
  };
  EXPECT_NE(load("<a").ErrStr(), "");  // a function's result still tells of its error
  XMPlib first = load(packet("<vxGr:nrpages>3</vxGr:nrpages>"));
  XMPlib copy(first);
  XMPlib second(std::move(first));
  EXPECT_FALSE(
      first.SetNrPages(4));  // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
  EXPECT_EQ(first.ErrStr(), "Illegal XAP");  // NOLINT(clang-analyzer-cplusplus.Move)
  EXPECT_TRUE(second.SetNrPages(5));
  int pages = 0;
  EXPECT_TRUE(copy.GetNrPages(pages));  // shares with the new place
  EXPECT_EQ(pages, 5);
  XMPlib& itself = second;
  second = std::move(itself);
  EXPECT_TRUE(second.GetNrPages(pages));
  second = XMPlib();
  EXPECT_FALSE(second.GetNrPages(pages));
  EXPECT_TRUE(copy.GetNrPages(pages));
  first = std::move(copy);
  EXPECT_TRUE(first.GetNrPages(pages));
  EXPECT_EQ(slotsInUse(), before + 2);
}

TEST(Handle, StandsInVectors) {
  const std::size_t before = slotsInUse();
  {
    std::vector<XMPlib> handles;
    for (int i = 0; i < 20; ++i) {
      handles.emplace_back();
      EXPECT_TRUE(handles.back().SetNrPages(i));
    }
    handles.erase(handles.begin());
    for (int i = 0; i < 19; ++i) {
      int pages = 0;
      EXPECT_TRUE(handles[static_cast<std::size_t>(i)].GetNrPages(pages));
      EXPECT_EQ(pages, i + 1);
    }
  }
  EXPECT_EQ(slotsInUse(), before);
}

TEST(Handle, ClonesAreIndependent) {
  Loaded xmp(
      "<vxGr:nrpages>3</vxGr:nrpages><dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">T"
      "</rdf:li></rdf:Alt></dc:title>");
  XMPlib clone = xmp.CloneXAP();
  EXPECT_EQ(stored(clone), stored(xmp));
  EXPECT_TRUE(clone.SetNrPages(4));
  int pages = 0;
  EXPECT_TRUE(xmp.GetNrPages(pages));
  EXPECT_EQ(pages, 3);
  xmp.RemoveXAP();
  EXPECT_TRUE(clone.GetNrPages(pages));
  EXPECT_EQ(pages, 4);
  EXPECT_FALSE(xmp.CloneXAP().GetNrPages(pages));  // of nothing: nothing
}

TEST(Handle, StartsTheToolkitOnceForManyThreads) {
  onManyThreads([](int thread) {
    XMPlib xmp;
    EXPECT_TRUE(xmp.SetNrPages(thread));
    EXPECT_EQ(stored(xmp), elements("vxGr:", "nrpages=" + std::to_string(thread)));
  });
}

TEST(Handle, LivesAndDiesOnManyThreadsAtOnce) {
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
      int pages = -1;
      own.SetXML(copy.GetXML());
      EXPECT_TRUE(own.GetNrPages(pages));
      EXPECT_EQ(pages, thread);
    }
  });
  EXPECT_EQ(slotsInUse(), used + 1);
}

TEST(Namespaces, HaveThePrefixesOfTheTable) {
  XMPlib xmp;
  for (const xmpl::Namespace& row : xmpl::kNamespaces) {
    std::string prefix;
    ASSERT_TRUE(xmpl::Metadata::GetNamespacePrefix(row.uri, &prefix)) << row.uri;
    EXPECT_EQ(prefix, std::string(row.prefix) + ":");
  }
}

TEST(Namespaces, OfAPacketGiveWayToTheTable) {
  XMPlib xmp;
  xmp.SetXML(
      "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>"
      "<rdf:Description rdf:about='' xmlns:other='http://ns.orvo.example/xmp/grinfo/1.0/'"
      " xmlns:vxGr='http://foreign.example/' other:nrpages='4' vxGr:nrpages='5'/></rdf:RDF>");
  int pages = 0;
  EXPECT_TRUE(xmp.GetNrPages(pages));
  EXPECT_EQ(pages, 4);
  EXPECT_NE(stored(xmp).find("<vxGr:nrpages>4<"), std::string::npos);
}

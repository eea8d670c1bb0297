// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "core/namespaces.h"
#include "support/bare_packets.h"
#include "support/packets.h"
#include "support/slots.h"

using xmpl::MetaRegistry;

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
  EXPECT_EQ(pagesOf(copy), 3);

  XMPlib third(copy);
  third.SetXML(packet("<vxGr:nrpages>9</vxGr:nrpages>"));
  EXPECT_EQ(pagesOf(copy), 3);
  a.reset();
  EXPECT_EQ(pagesOf(copy), 3);
}

TEST(Handle, CopyStartsWithoutErrorText) {
  Loaded a("<vxGr:nrpages>many</vxGr:nrpages>");
  EXPECT_EQ(pagesOf(a), -1);
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
  EXPECT_NE(XMPlib(FromText("<a")).ErrStr(), "");  // it still tells of its error
  XMPlib first = Loaded("<vxGr:nrpages>3</vxGr:nrpages>");
  XMPlib copy(first);
  XMPlib second(std::move(first));
  EXPECT_FALSE(
      first.SetNrPages(4));  // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
  EXPECT_EQ(first.ErrStr(), "Illegal XAP");  // NOLINT(clang-analyzer-cplusplus.Move)
  EXPECT_TRUE(second.SetNrPages(5));
  EXPECT_EQ(pagesOf(copy), 5);  // shares with the new place
  XMPlib& itself = second;
  second = std::move(itself);
  EXPECT_EQ(pagesOf(second), 5);
  second = XMPlib();
  EXPECT_EQ(pagesOf(second), -1);
  first = std::move(copy);
  EXPECT_EQ(pagesOf(first), 5);
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
    for (const XMPlib& handle : handles) EXPECT_EQ(pagesOf(handle), 1 + (&handle - handles.data()));
  }
  EXPECT_EQ(slotsInUse(), before);
}

TEST(Handle, ClonesAreIndependent) {
  Loaded xmp("<vxGr:nrpages>3</vxGr:nrpages>" + alternative("dc:title", {{"x-default", "T"}}));
  XMPlib clone = xmp.CloneXAP();
  EXPECT_EQ(stored(clone), stored(xmp));
  EXPECT_TRUE(clone.SetNrPages(4));
  EXPECT_EQ(pagesOf(xmp), 3);
  xmp.RemoveXAP();
  EXPECT_EQ(pagesOf(clone), 4);
  EXPECT_EQ(pagesOf(xmp.CloneXAP()), -1);  // of nothing: nothing
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
  const FromText xmp(described(
      "<other:nrpages xmlns:other='http://ns.orvo.example/xmp/grinfo/1.0/'>4"
      "</other:nrpages><vxGr:nrpages xmlns:vxGr='http://foreign.example/'>5</vxGr:nrpages>"));
  EXPECT_EQ(pagesOf(xmp), 4);
  EXPECT_NE(stored(xmp).find("<vxGr:nrpages>4<"), std::string::npos);
}

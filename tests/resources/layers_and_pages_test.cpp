// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "support/packets.h"

namespace {

const std::string kRange = "<vxPag:start>1</vxPag:start><vxPag:end>4</vxPag:end>";
std::string inks(const std::string& items) {
  return "<vxPag:inks><rdf:Seq>" + items + "</rdf:Seq></vxPag:inks>";
}

}  // namespace

TEST(Layers, AreAnOrderedArray) {
  const auto layers = [](const Items& items) { return list("vxLayL:layers", "Seq", items); };
  XMPlib xmp;
  std::vector<XMPlLay> read;
  const std::string both = layers({elements("vxLay:", "name=B printable=True locked=False"),
                                   elements("vxLay:", "name=A printable=False locked=True")});
  EXPECT_TRUE(xmp.SetLayers({{"B", true, false}, {"A", false, true}}));
  EXPECT_EQ(stored(xmp), both);
  EXPECT_TRUE(xmp.GetLayers(read) && xmp.SetLayers({}) && xmp.SetLayers(read));
  EXPECT_EQ(stored(xmp), both);
  const auto readLayers = [&](const XMPlib& other) { return other.GetLayers(read), read; };
  EXPECT_EQ(optionalFields("vxLay:", "name printable=True locked=True", layers, readLayers), "");
}

TEST(PageRanges, HoldOrderedInksAndEndAtAnIncompleteOneOrAnError) {
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetPagRanges({{1, 4, {2, -1}}, {1, 4, {}}}));
  EXPECT_EQ(stored(xmp), list("vxPagL:pagelist", "Seq",
                              {kRange + inks("<rdf:li>2</rdf:li><rdf:li>-1</rdf:li>"),
                               kRange + "<vxPag:inks><rdf:Seq/></vxPag:inks>"}));
  const std::string first = kRange + inks("<rdf:li>9</rdf:li><rdf:li>3</rdf:li>");
  const std::string rows[][2] = {
      {"<vxPag:start>5</vxPag:start>", ""},
      {"<vxPag:end>5</vxPag:end>" + inks("<rdf:li>x</rdf:li>"), ""},
      {kRange + inks("<rdf:li>1</rdf:li><rdf:li>x</rdf:li>"), "Invalid integer string"},
      {kRange + inks("<rdf:li/>"), "Empty convert-from string"},
      {kRange + "<vxPag:inks>1</vxPag:inks>", "Indexing applied to non-array"},
  };
  for (const auto& row : rows) {
    Loaded other(list("vxPagL:pagelist", "Seq", {first, kRange, row[0], kRange}));
    std::vector<XMPlPagRange> read;
    EXPECT_EQ(other.GetPagRanges(read), row[1].empty());
    EXPECT_EQ(other.ErrStr(), row[1]);
    ASSERT_EQ(read.size(), 2U);
    EXPECT_EQ(read[0].start * 10 + read[0].end, 14);
    EXPECT_TRUE(read[0].inks == (std::vector<std::int32_t>{9, 3}) && read[1].inks.empty());
    EXPECT_FALSE(Loaded(list("vxPagL:pagelist", "Seq", {row[0], kRange})).GetPagRanges(read));
  }
}

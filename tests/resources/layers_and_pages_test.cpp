#include <gtest/gtest.h>

#include "support/packets.h"

namespace {

const std::string kLocked = "<vxLay:locked>True</vxLay:locked>";
const std::string kFree = "<vxLay:locked>False</vxLay:locked>";
std::string layer(const std::string& name, const std::string& printable, const std::string& rest) {
  return fields("vxLay:", {{"name", name}, {"printable", printable}}) + rest;
}

const std::string kRange = "<vxPag:start>1</vxPag:start><vxPag:end>4</vxPag:end>";
std::string inks(const std::string& items) {
  return "<vxPag:inks><rdf:Seq>" + items + "</rdf:Seq></vxPag:inks>";
}

}  // namespace

TEST(Layers, AreAnOrderedArray) {
  const std::string one = layer("B", "True", kFree);
  const std::string both = list("vxLayL:layers", "Seq", {one, layer("A", "False", kLocked)});
  XMPlib xmp;
  std::vector<XMPlLay> read;
  EXPECT_TRUE(xmp.SetLayers({{"B", true, false}, {"A", false, true}}));
  EXPECT_EQ(stored(xmp), both);
  EXPECT_TRUE(xmp.GetLayers(read) && xmp.SetLayers({}) && xmp.SetLayers(read));
  EXPECT_EQ(stored(xmp), both);
  for (const std::string& incomplete : {layer("A", "True", ""), "<vxLay:name/>" + kFree,
                                        "<vxLay:printable>True</vxLay:printable>" + kFree}) {
    EXPECT_TRUE(Loaded(list("vxLayL:layers", "Seq", {one, incomplete, one})).GetLayers(read));
    EXPECT_EQ(read.size(), 1U) << incomplete;
  }
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

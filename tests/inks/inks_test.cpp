// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "support/records.h"

namespace {

const char* const kFields =
    "name type book vxname frequency angle dotshape r g b attribute printingmethod";
const std::string kInk = elements("vxInk:", kFields);
const std::string kMask = "<vxInk:omask>True</vxInk:omask>";
const std::string kCover = elements("vxInkCov:", "pct=6 mm2=7");

std::string inks(const Items& items, const Items& coverage = {}) {
  return list("vxGr:inks", "Seq", items) + list("vxInkCovL:coverage", "Seq", coverage);
}
// kInk with another text in one field.
std::string ink(const std::string& field, const std::string& text) {
  return elements("vxInk:", swapped(kFields, field, field + "=" + text));
}
std::vector<XMPlInk> readFrom(const XMPlib& xmp) {
  std::vector<XMPlInk> inks(9);
  const bool found = xmp.GetInks(inks);
  EXPECT_EQ(found, xmp.ErrStr().empty());
  return inks;
}
std::string names(const std::vector<XMPlInk>& inks) {
  std::string all;
  for (const XMPlInk& ink : inks) all += ink.name;
  return all;
}
XMPlInk named(const char* name) {
  XMPlInk ink = readFrom(Loaded(inks({kInk}))).at(0);
  ink.name = name;
  return ink;
}

}  // namespace

TEST(InkRecords, AreEqualWhateverTheirColourAndCoverage) {
  EXPECT_EQ(ignoredFields<XMPlInkBasic>(), "r g b");
  EXPECT_EQ(ignoredFields<XMPlInk>(), "r g b coverageValid pct mm2");
  EXPECT_EQ(ignoredFields<XMPlInkProperty>(), "");
  const auto merge = [](const XMPlInk& a, const XMPlInk& b) {
    XMPlib xmp;
    EXPECT_TRUE(xmp.MergeInks({a, b}, true));
    return readFrom(xmp).size() == 1;
  };
  EXPECT_EQ(ignoredFields<XMPlInk>(merge), "r g b coverageValid pct mm2");
  XMPlInk ink;
  ink.angle = std::nan("");
  EXPECT_FALSE(ink == ink || merge(ink, ink));
}

TEST(Inks, AreStoredWithTheirCoverageBeside) {
  const std::string text = inks({kInk, kInk}, {kCover, kCover});
  XMPlib xmp;
  std::vector<XMPlInk> read = readFrom(Loaded(text));
  ASSERT_EQ(names(read), "11");
  EXPECT_EQ(fieldsOf(read[1]),
            std::tuple("1", "2", "3", "4", 8, 9, 10, "11", "12", 5, 6, "7", true, 6, 7));
  EXPECT_TRUE(xmp.SetInks(read, true));
  EXPECT_EQ(stored(xmp), text);
  EXPECT_TRUE(xmp.SetInks({}, true) && xmp.GetInks(read) && read.empty());
  EXPECT_EQ(stored(xmp), stored(Loaded(inks({}))));
  EXPECT_FALSE(XMPlib().GetInks(read));
}

TEST(Inks, EndBeforeTheFirstThatIsNotComplete) {
  const auto wrap = [](const Items& items) { return inks(items); };
  EXPECT_EQ(optionalFields("vxInk:", kFields, wrap, readFrom),
            "book vxname dotshape printingmethod");
  // Nothing behind the gap is read.
  EXPECT_EQ(names(readFrom(Loaded(inks({kInk, elements("vxInk:", "name angle=x")})))), "1");
}

TEST(Inks, OfAnOpaqueMaskAreStoredAsNormalWithAFlag) {
  Loaded xmp(inks({kInk + kMask, ink("name", "B") + elements("vxInk:", "omask=False"),
                   ink("attribute", "omask"), ink("name", "D")},
                  {"", "", "", kCover}));
  std::vector<XMPlInk> read;
  EXPECT_TRUE(xmp.GetInks(read, true));
  ASSERT_EQ(names(read), "BD");
  EXPECT_TRUE(!read[0].coverageValid && read[1].coverageValid);
  read = readFrom(xmp);
  ASSERT_EQ(names(read), "1B1D");
  EXPECT_EQ(read[0].attribute + read[1].attribute, "omask11");
  EXPECT_TRUE(xmp.SetInks({read[0]}, false));
  EXPECT_EQ(stored(xmp).find("<vxInk:book>"), std::string::npos);
  EXPECT_NE(stored(xmp).find(elements("vxInk:", "attribute=normal") + kMask), std::string::npos);
}

TEST(Inks, HaveNoCoverageWhereItCannotBeRead) {
  for (const char* wrong : {"pct=x", "mm2=7", "pct=6", "pct=6 mm2=x"}) {
    const std::string half = elements("vxInkCov:", wrong);
    const std::vector<XMPlInk> read = readFrom(Loaded(inks({kInk, kInk}, {half, kCover})));
    ASSERT_EQ(names(read), "11") << wrong;
    EXPECT_TRUE(!read[0].coverageValid && read[1].coverageValid) << wrong;
    EXPECT_EQ(read[0].pct, half.find('6') == std::string::npos ? 0 : 6) << wrong;
  }
}

TEST(InkMerge, AppendsWhatIsNewAndDropsAllCoverage) {
  Loaded xmp(inks({kInk, kInk + kMask}, {kCover, kCover}));
  const std::string before = stored(xmp);
  std::vector<XMPlInk> read = readFrom(xmp);
  read[0].r = read[1].pct = 99;
  EXPECT_TRUE(xmp.MergeInks({}, false) && xmp.MergeInks(read, false));
  EXPECT_EQ(stored(xmp), before);
  EXPECT_TRUE(xmp.MergeInks({named("C"), read[0], named("C")}, true));
  EXPECT_EQ(names(readFrom(xmp)) + readFrom(xmp)[0].book, "11C3");
  EXPECT_EQ(stored(xmp).find("<vxInkCov:"), std::string::npos);
  EXPECT_TRUE(xmp.MergeInks({named("D")}, false));
  EXPECT_EQ(stored(xmp).find("<vxInk:vxname>"), std::string::npos);
}

TEST(InkMerge, GoesOnWithWhatCouldBeRead) {
  Loaded xmp(inks({kInk, ink("r", "x"), kInk}));
  const std::pair<const char*, const char*> rows[] = {
      {"1", "Invalid float string"}, {"D", ""}, {"\xff", "Invalid UTF-8 sequence length"}};
  for (const auto& [name, error] : rows) {
    EXPECT_TRUE(xmp.MergeInks({named(name)}, true));
    EXPECT_EQ(xmp.ErrStr(), error);  // that of the write, if there was one
  }
  EXPECT_EQ(names(readFrom(xmp)), "1D");
}

TEST(InkProperties, LeaveOutEmptyTexts) {
  const auto wrap = [](const Items& items) { return list("vxGr:inkproperties", "Seq", items); };
  const std::string whole = elements("vxInk:", "name book type printingmethod");
  XMPlib xmp;
  std::vector<XMPlInkProperty> read;
  EXPECT_FALSE(xmp.GetInkProperties(read));
  EXPECT_TRUE(xmp.SetInkProperties({{"1", "2", "3", "4"}, {"", "", "", ""}}));
  EXPECT_EQ(stored(xmp), wrap({whole, "<vxInk:name/>"}));
  xmp.SetXML(packet(wrap({"<vxInk:name/>", "<vxInk:type/>", whole})));
  EXPECT_TRUE(xmp.GetInkProperties(read));
  EXPECT_TRUE((read == std::vector<XMPlInkProperty>{{"", "", "", "unknown"}}));
  EXPECT_TRUE(xmp.SetInkProperties({}) && xmp.GetInkProperties(read) && read.empty());
}

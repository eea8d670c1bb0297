// SPDX-License-Identifier: Apache-2.0
// What a Get leaves out, and that it can be asked: the operations that tell of it must never
// disagree with the Gets.
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "support/kinds.h"
#include "support/read_counts.h"

namespace {

using Rows = std::vector<XMPlUnreadItems>;

Rows unreadItems(const XMPlib& xmp, bool filmInks = false) {
  Rows rows;
  const bool found = xmp.GetUnreadItems(rows, filmInks);
  EXPECT_EQ(found, !rows.empty());
  return rows;
}

// The rows as lines.
std::string itemsText(const XMPlib& xmp, bool filmInks = false) {
  std::string text;
  for (const XMPlUnreadItems& row : unreadItems(xmp, filmInks)) {
    text += row.list + ": " + std::to_string(row.read) + " of " + std::to_string(row.stored) +
            ", " + row.reason + "\n";
  }
  return text;
}

std::string fieldsText(const XMPlib& xmp) {
  std::vector<XMPlUnreadField> rows;
  const bool found = xmp.GetUnreadFields(rows);
  EXPECT_EQ(found, !rows.empty());
  std::string text;
  for (const XMPlUnreadField& row : rows) {
    text += row.list + "[" + std::to_string(row.item) + "] " + row.field + "\n";
  }
  return text;
}

const std::string kWholeFont = elements("vxFont:", "name type location fontfile protection=True");
const std::string kFontWithoutType = elements("vxFont:", "name location fontfile protection=True");

}  // namespace

TEST(Unread, NamesTheListTheCountsAndTheMissingField) {
  Loaded xmp(list("vxFontL:fonts", "Bag", {kWholeFont, kFontWithoutType, kWholeFont}));
  EXPECT_EQ(itemsText(xmp), "vxFontL:fonts: 1 of 3, vxFont:type\n");
  EXPECT_EQ(fieldsText(xmp), "");
  std::vector<XMPlFont> fonts;
  EXPECT_TRUE(xmp.GetFonts(fonts));
  EXPECT_TRUE(xmp.SetFonts(fonts));  // this is what it warns of: two fonts are gone
  EXPECT_EQ(itemsText(xmp), "");
}

TEST(Unread, NamesTheErrorThatStoppedAGet) {
  const std::string bad = elements("vxFont:", "name type location fontfile protection=perhaps");
  EXPECT_EQ(itemsText(Loaded(list("vxFontL:fonts", "Bag", {kWholeFont, bad}))),
            "vxFontL:fonts: 1 of 2, Invalid Boolean string\n");
  EXPECT_EQ(itemsText(Loaded(list("vxDGCL:dgcs", "Bag", {elements("vxDGC:", "name values=1")}))),
            "vxDGCL:dgcs: 0 of 1, DGC values: no blank behind the last number\n");
}

TEST(Unread, ATextInPlaceOfAList) {
  for (const std::string path :
       {"vxGr:inks", "vxInkCovL:coverage", "vxGr:inkproperties", "vxDigFilmRefs:files",
        "vxDGCL:dgcs", "vxUsedFL:files", "vxScreenC:screenContainer", "vxScreenL:screens",
        "vxSrLayout:repeats", "vxPagL:pagelist", "vxBarcL:barcodes", "vxFontL:fonts",
        "vxCadL:files", "vxExtFL2:files", "vxExtFL:files", "vxLayL:layers",
        "vxSmNameL:smartnames"}) {
    EXPECT_EQ(itemsText(Loaded("<" + path + ">none</" + path + ">")),
              path + ": 0 of 0, Indexing applied to non-array\n");
  }
}

TEST(Unread, OptionalFieldsAreNoGap) {
  const Loaded xmp(
      list("vxGr:inkproperties", "Seq", {elements("vxInk:", "name")}) +
      list("vxUsedFL:files", "Seq", {elements("vxUsedF:", "instanceID renditionClass")}) +
      list("vxBarcL:barcodes", "Bag", {elements("vxBarc:", "Type")}));
  EXPECT_EQ(itemsText(xmp) + fieldsText(xmp), "");
  // The optional field before the gap is not what stopped the reading.
  EXPECT_EQ(itemsText(Loaded(list("vxExtFL2:files", "Bag",
                                  {elements("vxExtF:", "instanceID renditionClass pagenr")}))),
            "vxExtFL2:files: 0 of 1, vxExtF:count\n");
}

TEST(Unread, LooksAtInksOfOneKind) {
  const Loaded film(
      list("vxGr:inks", "Seq", {elements("vxInk:", "name type r g b attribute opacity")}));
  EXPECT_EQ(itemsText(film), "vxGr:inks: 0 of 1, vxInk:frequency\n");
  EXPECT_EQ(itemsText(film, true), "");
  const std::string ink = elements("vxInk:", "name type frequency angle r g b attribute");
  const Loaded document(list("vxGr:inks", "Seq", {ink, ink}) +
                        list("vxInkCovL:coverage", "Seq",
                             {elements("vxInkCov:", "pct mm2"), elements("vxInkCov:", "pct"), ""}));
  EXPECT_EQ(itemsText(document), "vxInkCovL:coverage: 2 of 3, no such ink\n");
  EXPECT_EQ(fieldsText(document), "vxInkCovL:coverage[2] vxInkCov:pct\n");
  EXPECT_EQ(itemsText(document, true), "vxGr:inks: 0 of 2, vxInk:opacity\n");
}

TEST(Unread, LooksIntoScreenGroups) {
  const std::string screen =
      elements("vxScreen:",
               "singlepressDGC autoplateDGCreq autoplateDGCLW autoplateDGCCT autopressDGCreq "
               "autopressDGCLW autopressDGCCT gamma usedrefs frequency");
  const auto group = [](const Items& screens) { return list("vxScreenL:screens", "Bag", screens); };
  const Loaded gap(list("vxScreenC:screenContainer", "Seq",
                        {group({screen, "", screen}), group({}), group({screen})}));
  EXPECT_EQ(itemsText(gap),
            "vxScreenC:screenContainer: 1 of 3, vxScreen:autoplateDGCreq\n"
            "vxScreenC:screenContainer[1]/vxScreenL:screens: 1 of 3, vxScreen:singlepressDGC\n");
  // A screening that is not whole is dropped.
  EXPECT_EQ(fieldsText(gap),
            "vxScreenC:screenContainer[1] vxScreenL:screens[1]/vxScreen:frequency\n");
}

TEST(Unread, FieldsThatNoRecordCovers) {
  const Loaded xmp(
      list("vxLayL:layers", "Seq",
           {elements("vxLay:", "name printable=True locked=False") + "<vxInk:note>n</vxInk:note>",
            "<vxLay:name xml:lang='de'>L</vxLay:name>" +
                elements("vxLay:", "printable=True locked=False")}) +
      list("vxSmNameL:smartnames", "Bag",
           {"<vxSmName:name><rdf:Bag><rdf:li>deep</rdf:li></rdf:Bag></vxSmName:name>" +
            elements("vxSmName:", "value")}) +
      list("vxSrLayout:repeats", "Bag",
           {elements("vxSRRep:",
                     "type=die name stationname vnr front frontpage back backpage count")}) +
      list("vxBarcL:barcodes", "Bag",
           {elements("vxBarc:", "Type SymbolType= Magnification Ratio")}));
  EXPECT_EQ(itemsText(xmp), "");
  EXPECT_EQ(fieldsText(xmp),
            "vxBarcL:barcodes[1] vxBarc:Ratio\n"
            "vxLayL:layers[1] vxInk:note\n"
            "vxLayL:layers[2] vxLay:name/?xml:lang\n"
            "vxSmNameL:smartnames[1] vxSmName:name\n"
            "vxSrLayout:repeats[1] vxSRRep:vnr\n");
}

// What a Get takes for another value is dropped by a Set; another spelling of one is not.
TEST(Unread, TextsThatAreReadAsSomethingElse) {
  const std::string ink = "name type frequency=0x10 angle=45.0 r=1e0 g b ";
  const Loaded xmp(list("vxGr:inks", "Seq",
                        {elements("vxInk:", ink + "attribute=opaque omask=True"),
                         elements("vxInk:", ink + "attribute=normal omask=true")}) +
                   list("vxDGCL:dgcs", "Bag",
                        {"<vxDGC:name>a</vxDGC:name><vxDGC:values>0 fifty 100 </vxDGC:values>",
                         "<vxDGC:name>b</vxDGC:name><vxDGC:values>0 50 1e2 </vxDGC:values>"}));
  EXPECT_EQ(itemsText(xmp), "");
  EXPECT_EQ(fieldsText(xmp), "vxGr:inks[1] vxInk:attribute\nvxDGCL:dgcs[1] vxDGC:values\n");
}

TEST(Unread, HandleWithoutMetadata) {
  const Empty xmp;
  Rows items(1);
  std::vector<XMPlUnreadField> fields(1);
  EXPECT_FALSE(xmp.GetUnreadItems(items) || xmp.GetUnreadFields(fields));
  EXPECT_TRUE(items.empty() && fields.empty());
}

namespace {

// Three records in every list.
std::string wholePacket(bool filmInks) {
  XMPlib xmp;
  forEachKind([&]<class Value>(const Kind<Value>& kind) {
    constexpr bool isFilms = std::is_same_v<Value, std::vector<XMPlInkDigFilm>>;
    constexpr bool isInks = isFilms || std::is_same_v<Value, std::vector<XMPlInk>>;
    if (!kind.keepsAll || (isInks && isFilms != filmInks)) return;
    auto value = filled<Value>();
    if constexpr (requires { value.emplace_back(); }) value.resize(3, value[0]);
    kind.set(xmp, value);
  });
  XMPlScreen screen;
  screen.hasScreening = true;
  xmp.SetScreenContainer({{screen, {}, screen}, {screen}, {{}, {}}});
  xmp.SetRepeats({{"die"}, {"grid"}, {"other"}});
  return xmp.GetXML();
}

std::string strangeField(int number) {
  return "<s:field" + std::to_string(number) + " xmlns:s='http://s.example/'/>";
}

// Fields taken out, values made unreadable, strange fields put in: a line is a field.
std::string damaged(const std::string& whole, std::mt19937& random) {
  std::istringstream lines(whole);
  std::string text;
  int strange = 0;
  const auto oneIn = 20 + random() % 300;
  for (std::string line; std::getline(lines, line);) {
    const std::size_t open = line.find('>'), close = line.find("</");
    const bool isField = line.find("<vx") != line.npos && line.find('/') != line.npos;
    const auto damage = isField && random() % oneIn == 0 ? random() % 3 : 3;
    if (damage == 0) continue;
    if (damage == 1 && close != line.npos) line.replace(open + 1, close - open - 1, "?");
    if (damage == 2) line += strangeField(++strange);
    text += line + "\n";
  }
  return text;
}

}  // namespace

TEST(Unread, NeverDisagreesWithTheGets) {
  std::mt19937 random(1);
  std::size_t damagedLists = 0;
  for (int round = 0; round < 600; ++round) {
    const bool filmInks = round % 2 == 1;
    static const std::string kWhole[] = {wholePacket(false), wholePacket(true)};
    FromText xmp(damaged(kWhole[filmInks], random));
    ASSERT_EQ(xmp.ErrStr(), "");
    const ReadCounts counts(xmp, filmInks);
    ASSERT_EQ(counts.disagreement(), "");
    std::set<std::string> unread;
    for (const XMPlUnreadItems& row : unreadItems(xmp, filmInks)) {
      ASSERT_TRUE(unread.insert(row.list).second) << row.list;
    }
    damagedLists += unread.size();
    for (const auto& [list, read] : counts.all()) {
      if (read == 3 || list.find("screen") != list.npos || list == "vxDigFilmRefs:files") continue;
      ASSERT_TRUE(unread.contains(list)) << list << " reads " << read;
    }
  }
  EXPECT_GT(damagedLists, 400U);
}

// What is said to be dropped is, and nothing else: a Get and Set leaves nothing more to say.
TEST(Unread, NothingIsLeftAfterAGetAndSet) {
  std::mt19937 random(2);
  static const std::string kWhole = wholePacket(false);
  for (int round = 0; round < 200; ++round) {
    FromText xmp(damaged(kWhole, random));
    std::vector<XMPlFont> fonts;
    std::vector<XMPlInk> inks;
    std::vector<std::vector<XMPlScreen>> groups;
    xmp.GetFonts(fonts);
    xmp.GetInks(inks);
    xmp.GetScreenContainer(groups);
    const bool loses = (itemsText(xmp) + fieldsText(xmp)).find("vxFontL:") != std::string::npos;
    const std::string before = stored(xmp);
    xmp.SetFonts(fonts);
    EXPECT_EQ(stored(xmp).size() < before.size(), loses);
    xmp.SetInks(inks, true);
    xmp.SetScreenContainer(groups);
    const std::string rest = itemsText(xmp) + fieldsText(xmp);
    for (const char* list : {"vxFontL:", "vxGr:inks", "vxInkCovL:", "vxScreenC:"}) {
      EXPECT_EQ(rest.find(list), std::string::npos) << rest;
    }
  }
}

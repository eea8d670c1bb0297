// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <regex>

#include "core/toolkit/client.h"
#include "support/packets.h"

namespace {

std::mt19937 dice(1);

template <class T>
T pick(std::initializer_list<T> from) {
  return from.begin()[dice() % from.size()];
}
const char* text() { return pick({"A", "B"}); }
bool flag() { return pick({true, false}); }
double real() { return pick({0.0, -0.0, 2.5, std::nan("")}); }

XMPlExtRef anyFile() {
  const char* const name = pick({"A", "p_001.t", "file:p_002.t"});
  return {name, text(), pick({-1, 0}), pick({"image", ""}), pick({-1, 1, 2})};
}
XMPlFont anyFont() { return {text(), "t", flag(), text(), text()}; }
XMPlLay anyLayer() { return {pick({"A", "B", "C", "D"}), flag(), flag()}; }
XMPlBarcode anyBarcode() {
  return {text(), "", "", "", 0, real(), flag(), flag(), 1, flag(), real(), 1, real()};
}
XMPlInk anyInk() {
  const XMPlInkBasic basic{text(), "", "b", "", real(), 0, 0, pick({"omask", "a"}), "m"};
  return {basic, real(), real(), "d", flag(), 1, 2};
}

// Merging random lists, by themselves or in a packet, does what comparing each with each does.
template <class Record, class... Flag>
void mergesLikeAPlainLoop(Record (*any)(), bool (XMPlib::*get)(std::vector<Record>&) const,
                          bool (XMPlib::*set)(const std::vector<Record>&, Flag...),
                          bool (XMPlib::*merge)(const std::vector<Record>&, Flag...),
                          Flag... flags) {
  const auto store = [&](std::vector<Record>& list, XMPlib& xmp) {
    (xmp.*set)(list, flags...);
    xmp.SetXML(std::regex_replace(xmp.GetXML(), std::regex("9999999999"), "nan"));
    (xmp.*get)(list);
  };
  for (std::size_t round = 0; round < 300; ++round) {
    XMPlib xmp, source, expected;
    const std::size_t most = round % 50 == 0 ? 100 : 10;  // also beyond what is sorted by insertion
    std::vector<Record> list(dice() % most), merged(dice() % most);
    std::generate(list.begin(), list.end(), any);
    std::generate(merged.begin(), merged.end(), any);
    store(list, xmp);
    if (round % 4 == 0) store(merged, source);
    const std::size_t size = list.size();
    for (const Record& one : merged) {
      const auto found = std::find(list.begin(), list.end(), one);
      if (found == list.end()) {
        list.push_back(one);
      } else if constexpr (requires { found->count; }) {
        found->count = one.count == -1 || found->count == -1 ? -1 : found->count + one.count;
      }
    }
    if constexpr (requires { list[0].coverageValid; }) {
      for (Record& one : list) one.coverageValid = false;
    }
    (expected.*set)(list, flags...);
    const std::string after = list.size() > size ? stored(expected) : stored(xmp);
    EXPECT_TRUE(round % 4 == 0 ? xmp.MergeXML(source.GetXML(), true)
                               : (xmp.*merge)(merged, flags...));
    EXPECT_EQ(stored(xmp), after);
  }
}

std::string foreign(const std::string& inside) {
  return "<ex:a xmlns:ex=\"http://ns.example/\"" + inside + "</ex:a>";
}

// The properties of a handle with `mine` after those of `other` came in.
std::string foreignMerged(const std::string& mine, const std::string& other, bool expected) {
  Loaded xmp(mine);
  const Loaded source(other);
  xmp.SetColorSpace({"wrong", "", ""});
  EXPECT_EQ(xmp.MergeNonOrvo(&source), expected) << other;
  EXPECT_EQ(xmp.ErrStr(), "Illegal value for profile location");
  return stored(xmp);
}

}  // namespace

TEST(Merging, AddsWhatIsNotYetThere) {
  using X = XMPlib;
  mergesLikeAPlainLoop<XMPlExtRef>(anyFile, &X::GetExtRefs, &X::SetExtRefs, &X::MergeExtRefs);
  mergesLikeAPlainLoop<XMPlExtRef>(anyFile, &X::GetCadFiles, &X::SetCadFiles, &X::MergeCadFiles);
  mergesLikeAPlainLoop<XMPlFont>(anyFont, &X::GetFonts, &X::SetFonts, &X::MergeFonts);
  mergesLikeAPlainLoop<XMPlBarcode>(anyBarcode, &X::GetBarcodes, &X::SetBarcodes,
                                    &X::MergeBarcodes);
  mergesLikeAPlainLoop<XMPlLay>(anyLayer, &X::GetLayers, &X::SetLayers, &X::MergeLayers);
  mergesLikeAPlainLoop<XMPlInk, bool>(anyInk, &X::GetInks, &X::SetInks, &X::MergeInks, true);
}

TEST(MergedPacket, AddsItsListsInOrderAndLeavesTheErrorTextOfTheLastMergeThatRan) {
  const std::string barcode = elements("vxBarc:", "Type=A");
  const std::string barcodes = list("vxBarcL:barcodes", "Bag", {barcode});
  Loaded xmp(list("vxBarcL:barcodes", "Bag", {barcode, barcode + "<vxBarc:Ratio/>"}));
  for (const std::string& text : {packet(barcodes), packet(""), std::string("<no packet")}) {
    EXPECT_TRUE(xmp.MergeXML(text, true));
    EXPECT_EQ(xmp.ErrStr(), "Empty convert-from string");
  }
  XMPlib source;
  XMPlInk ink;
  ink.book = "book";
  EXPECT_TRUE(source.SetInks({ink}, true) && source.SetLayers({{"L", true, true}}));
  EXPECT_TRUE(xmp.MergeXML(packet(stored(source) + barcodes), false));
  EXPECT_EQ(xmp.ErrStr(), "");
  EXPECT_NE(stored(xmp).find("<vxLay:name>L<"), std::string::npos);
  EXPECT_EQ(stored(xmp).find("vxInk:book"), std::string::npos);
  Empty empty;
  EXPECT_TRUE(empty.MergeXML(packet(barcodes), true));
  EXPECT_EQ(empty.ErrStr(), "Illegal XAP");

  XMPlib part;  // a run that cannot be read ends the merge
  EXPECT_TRUE(source.SetExtRefs({{"files:", "", 0, "", 1}}, true));
  EXPECT_THROW(part.MergeXML(source.GetXML(), true), std::logic_error);
  EXPECT_NE(stored(part).find("vxInk:book"), std::string::npos);
  EXPECT_EQ(stored(part).find("vxLay:name"), std::string::npos);
}

TEST(ForeignMetadata, IsCopiedWithItsFormAndQualifiersUnlessTheLibraryOwnsIt) {
  const std::string others =
      foreign(
          " rdf:parseType=\"Resource\"><rdf:value><rdf:Bag><rdf:li>1</rdf:li></rdf:Bag>"
          "</rdf:value><ex:q rdf:parseType=\"Resource\"><ex:f>2</ex:f></ex:q>") +
      alternative("dc:title", {{"x-default", "t"}, {"de", "u"}, {"fr", "v"}}) +
      elements("pdf:", "Keywords ProducerX") + elements("pdfxid:", "GTS_PDFXVersion");
  EXPECT_EQ(foreignMerged("", others, true), stored(Loaded(others)));
  EXPECT_EQ(foreignMerged("", foreign(" rdf:resource=\"u:v\">"), true), "<ex:a>u:v</ex:a>");
  const std::string owned =
      elements("",
               "vxGr:nrpages xmp:CreatorTool stVer:version xmpMM:DocumentID dc:format "
               "dc:formats pdf:Producer pdf:Version pdf:Trapped=True") +
      alternative("dc:description", {{"x-default", "d"}});
  EXPECT_EQ(foreignMerged("", owned, false), "");
  EXPECT_EQ(foreignMerged("", owned + foreign(">text"), true), "<ex:a>text</ex:a>");
}

TEST(ForeignMetadata, NeverOverwritesAndFillsGaps) {
  const auto bag = [](const std::string& items) {
    return foreign("><rdf:Bag><rdf:li>" + items + "</rdf:li></rdf:Bag>");
  };
  const std::string mine = bag("mine"), two = bag("1</rdf:li><rdf:li>2");
  EXPECT_EQ(foreignMerged(mine, foreign(">text"), true), stored(Loaded(mine)));
  EXPECT_EQ(foreignMerged(mine, two, true), stored(Loaded(bag("mine</rdf:li><rdf:li>2"))));
  Loaded text(foreign(">text"));
  const Loaded array(mine);
  EXPECT_THROW(text.MergeNonOrvo(&array), XMP_Error);
  EXPECT_TRUE(text.MergeNonOrvo(&text));
  EXPECT_EQ(stored(text), "<ex:a>text</ex:a>");
  Empty empty;
  EXPECT_FALSE(empty.MergeNonOrvo(&array) || text.MergeNonOrvo(&empty));
}

TEST(NonPDFCompatible, AreIllustratorDocuments) {
  const auto answer = [](const std::string& format) {
    return Loaded("<dc:format>" + format + "</dc:format>").IsNonPDFCompatible();
  };
  EXPECT_TRUE(answer("application/vnd.adobe.illustrator"));
  EXPECT_FALSE(answer("application/pdf") || answer("application/vnd.adobe.illustrator2") ||
               answer("Application/vnd.adobe.illustrator") || XMPlib().IsNonPDFCompatible());
  const Empty empty;
  EXPECT_FALSE(empty.IsNonPDFCompatible());
  EXPECT_EQ(empty.ErrStr(), "Illegal XAP");
}

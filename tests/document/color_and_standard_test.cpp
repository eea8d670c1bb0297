// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "support/packets.h"

namespace {

const std::string kTitle = alternative("dc:title", {{"x-default", "T"}});

}  // namespace

TEST(ColorSpace, TheDescriptionAloneDecidesTheResult) {
  XMPlColorSpace read;
  read.colorprofname = "old";
  EXPECT_FALSE(Empty().GetColorSpace(read));
  EXPECT_EQ(read.colorprofloc + read.colorprofname, "Untagged");
  EXPECT_FALSE(Loaded(elements("vxGr:", "colorprofloc colorprofname")).GetColorSpace(read));
  EXPECT_EQ(read.colorprofloc + read.colorprofname, "12");
  EXPECT_TRUE(Loaded(elements("vxGr:", "colorprofdesc")).GetColorSpace(read));
  EXPECT_EQ(read.colorprofloc + read.colorprofdesc, "Untagged1");
}

TEST(ColorSpace, OnlyTheFourLocationsAreWritten) {
  XMPlib xmp;
  for (const char* wrong : {"", "untagged", "VXEmbedded "}) {
    EXPECT_FALSE(xmp.SetColorSpace({wrong, "", ""}));
    EXPECT_EQ(xmp.ErrStr(), "Illegal value for profile location");
    EXPECT_EQ(stored(xmp), "");
  }
  for (const std::string right : {"Untagged", "PDFOutputIntent", "VXEmbedded", "VXDatabase"}) {
    EXPECT_TRUE(xmp.SetColorSpace({right, "", "3"}));
    EXPECT_EQ(stored(xmp),
              elements("vxGr:", "colorprofloc=" + right + " colorprofname= colorprofdesc"));
  }
}

TEST(PDFData, EveryFieldIsWrittenOrDeleted) {
  const std::string version = elements("pdfxid:", "GTS_PDFXVersion=X");
  Loaded xmp(alternative("dc:title", {{"x-default", "old"}, {"de", "alt"}, {"fr", "vieux"}}));
  EXPECT_TRUE(xmp.SetPDFData({"P", "T", "X", true, true}));
  EXPECT_EQ(stored(xmp), kTitle + elements("pdf:", "Producer=P Trapped=True") + version);
  EXPECT_TRUE(xmp.SetPDFData({"", "T", "X", true, false}));
  EXPECT_EQ(stored(xmp), kTitle + version);
  EXPECT_TRUE(xmp.SetPDFData(XMPlPDFData()));
  EXPECT_EQ(stored(xmp), "");
}

TEST(PDFData, TheFirstToolkitErrorEndsTheCall) {
  const std::string old = kTitle + elements("pdf:", "Trapped=True");
  Loaded xmp(old);
  EXPECT_FALSE(xmp.SetPDFData({"", "\xff", "X"}));
  EXPECT_EQ(stored(xmp), old + elements("pdfxid:", "GTS_PDFXVersion=X"));
}

TEST(PDFData, AnArrayBecomesTheTitleAndAnythingElseStays) {
  Loaded array("<dc:title><rdf:Bag><rdf:li>a</rdf:li><rdf:li>b</rdf:li></rdf:Bag></dc:title>");
  EXPECT_TRUE(array.SetPDFData({"", "T", ""}));
  EXPECT_EQ(stored(array), kTitle);

  const std::string old = "<dc:title rdf:parseType=\"Resource\"><dc:type>a</dc:type></dc:title>";
  Loaded structure(old);
  EXPECT_FALSE(structure.SetPDFData({"P", "T", "", true, true}));
  EXPECT_EQ(structure.ErrStr(), "Requested and existing composite form mismatch");
  EXPECT_EQ(stored(structure), old + elements("pdf:", "Producer=P"));

  XMPlib number;
  number.SetProperty_Float("http://purl.org/dc/elements/1.1/", "title", 5);
  EXPECT_FALSE(number.SetPDFData({"", "T", ""}));
  EXPECT_EQ(number.ErrStr(), "Composite nodes can't have values");
  EXPECT_EQ(stored(number), elements("dc:", "title=5"));
}

TEST(MMData, EveryFieldIsWrittenOrDeleted) {
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetMMData({"1", "2", "3", "4"}));
  EXPECT_EQ(stored(xmp), elements("xmpMM:", "DocumentID VersionID DerivedFrom RenditionClass"));
  EXPECT_TRUE(xmp.SetMMData({"1", "", "2", "3"}));
  EXPECT_EQ(stored(xmp), elements("xmpMM:", "DocumentID DerivedFrom RenditionClass"));
  EXPECT_TRUE(xmp.SetMMData(XMPlMMData()));
  EXPECT_EQ(stored(xmp), "");
}

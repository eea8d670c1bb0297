#include <gtest/gtest.h>

#include "support/packets.h"

TEST(ColorSpace, TheDescriptionAloneDecidesTheResult) {
  XMPlColorSpace read;
  read.colorprofname = "old";
  EXPECT_FALSE(Empty().GetColorSpace(read));
  EXPECT_EQ(read.colorprofloc + read.colorprofname, "Untagged");
  EXPECT_FALSE(Loaded(fields("vxGr:", {{"colorprofloc", "anywhere"}, {"colorprofname", "n"}}))
                   .GetColorSpace(read));
  EXPECT_EQ(read.colorprofloc, "anywhere");
  EXPECT_EQ(read.colorprofname, "n");
  EXPECT_TRUE(Loaded("<vxGr:colorprofdesc>d</vxGr:colorprofdesc>").GetColorSpace(read));
  EXPECT_EQ(read.colorprofloc, "Untagged");
  EXPECT_EQ(read.colorprofdesc, "d");
}

TEST(ColorSpace, OnlyTheFourLocationsAreWritten) {
  XMPlib xmp;
  XMPlColorSpace colours;
  for (const char* wrong : {"", "untagged", "VXEmbedded "}) {
    colours.colorprofloc = wrong;
    EXPECT_FALSE(xmp.SetColorSpace(colours));
    EXPECT_EQ(xmp.ErrStr(), "Illegal value for profile location");
    EXPECT_EQ(stored(xmp), "");
  }
  for (const char* right : {"Untagged", "PDFOutputIntent", "VXEmbedded", "VXDatabase"}) {
    colours.colorprofloc = right;
    EXPECT_TRUE(xmp.SetColorSpace(colours));
    EXPECT_EQ(
        stored(xmp),
        fields("vxGr:", {{"colorprofloc", right}, {"colorprofname", ""}, {"colorprofdesc", ""}}));
  }
  Empty empty;
  colours.colorprofloc = "";
  EXPECT_FALSE(empty.SetColorSpace(colours));
  EXPECT_EQ(empty.ErrStr(), "Illegal XAP");
}

TEST(PDFData, EveryFieldIsWrittenOrDeleted) {
  const std::string title =
      "<dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">T</rdf:li></rdf:Alt></dc:title>";
  Loaded xmp(
      "<dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">old</rdf:li><rdf:li xml:lang=\"de\">alt"
      "</rdf:li><rdf:li xml:lang=\"fr\">vieux</rdf:li></rdf:Alt></dc:title>");
  XMPlPDFData data;
  data.producer = "P";
  data.title = "T";
  data.pdfxVersion = "X";
  data.trapped = data.trappedValid = true;
  EXPECT_TRUE(xmp.SetPDFData(data));
  EXPECT_EQ(stored(xmp), title +
                             "<pdf:Producer>P</pdf:Producer><pdf:Trapped>True</pdf:Trapped>"
                             "<pdfxid:GTS_PDFXVersion>X</pdfxid:GTS_PDFXVersion>");
  data.trappedValid = false;
  data.producer = "";
  EXPECT_TRUE(xmp.SetPDFData(data));
  EXPECT_EQ(stored(xmp), title + "<pdfxid:GTS_PDFXVersion>X</pdfxid:GTS_PDFXVersion>");
  EXPECT_TRUE(xmp.SetPDFData(XMPlPDFData()));
  EXPECT_EQ(stored(xmp), "");
}

TEST(PDFData, TheFirstToolkitErrorEndsTheCall) {
  Loaded xmp("<pdf:Trapped>True</pdf:Trapped>");
  XMPlPDFData data;
  data.pdfxVersion = "X";
  data.title = "\xff";
  EXPECT_FALSE(xmp.SetPDFData(data));
  EXPECT_EQ(stored(xmp),
            "<pdf:Trapped>True</pdf:Trapped>"
            "<pdfxid:GTS_PDFXVersion>X</pdfxid:GTS_PDFXVersion>");
}

TEST(MMData, EveryFieldIsWrittenOrDeleted) {
  XMPlib xmp;
  XMPlMMData data;
  data.documentID = "d";
  data.versionID = "v";
  data.derivedFrom = "f";
  data.renditionClass = "r";
  EXPECT_TRUE(xmp.SetMMData(data));
  EXPECT_EQ(stored(xmp), fields("xmpMM:", {{"DocumentID", "d"},
                                           {"VersionID", "v"},
                                           {"DerivedFrom", "f"},
                                           {"RenditionClass", "r"}}));
  data.versionID = "";
  EXPECT_TRUE(xmp.SetMMData(data));
  EXPECT_EQ(stored(xmp),
            fields("xmpMM:", {{"DocumentID", "d"}, {"DerivedFrom", "f"}, {"RenditionClass", "r"}}));
  EXPECT_TRUE(xmp.SetMMData(XMPlMMData()));
  EXPECT_EQ(stored(xmp), "");
}

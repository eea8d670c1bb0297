#include <gtest/gtest.h>

#include <regex>

#include "core/toolkit.h"
#include "support/packets.h"

namespace {

std::string description(const std::vector<std::pair<std::string, std::string>>& texts) {
  std::string items;
  for (const auto& [language, text] : texts) {
    items += "<rdf:li xml:lang=\"" + language + "\">" + text + "</rdf:li>";
  }
  return "<dc:description><rdf:Alt>" + items + "</rdf:Alt></dc:description>";
}

}  // namespace

TEST(DocumentData, IsStoredInTheStandardSchema) {
  XMPlib xmp;
  XMPlDocData data;
  data.baseURL = "b";
  data.createDate = "some day";  // stored as it is, date or not
  data.modifyDate = "2";
  data.metadataDate = "3";
  data.creatorTool = "t";
  data.description = "d";
  EXPECT_TRUE(xmp.SetDocumentData(data));
  EXPECT_EQ(stored(xmp),
            "<xmp:BaseURL>b</xmp:BaseURL><xmp:CreateDate>some day</xmp:CreateDate>"
            "<xmp:CreatorTool>t</xmp:CreatorTool><xmp:MetadataDate>3</xmp:MetadataDate>"
            "<xmp:ModifyDate>2</xmp:ModifyDate>" +
                description({{"x-default", "d"}}));
  XMPlDocData read;
  EXPECT_TRUE(xmp.GetDocumentData(read));
  EXPECT_EQ(read.baseURL + read.createDate + read.modifyDate + read.metadataDate +
                read.creatorTool + read.description,
            "bsome day23td");
}

TEST(DocumentData, ANewDescriptionReplacesAllLanguages) {
  Loaded xmp(description({{"x-default", "old"}, {"de", "alt"}, {"fr", "vieux"}}));
  XMPlDocData data;
  EXPECT_TRUE(xmp.GetDocumentData(data));
  EXPECT_EQ(data.description, "old");
  data.description = "new";
  EXPECT_TRUE(xmp.SetDocumentData(data));
  EXPECT_EQ(stored(xmp), description({{"x-default", "new"}}));
  data.description = "";
  EXPECT_TRUE(xmp.SetDocumentData(data));
  EXPECT_EQ(stored(xmp), description({{"x-default", "new"}}));
  data.description = " ";
  EXPECT_TRUE(xmp.SetDocumentData(data));
  EXPECT_EQ(stored(xmp), "");
}

TEST(DocumentData, ADescriptionWithoutDefaultLanguageIsNotFound) {
  Loaded xmp(description({{"de", "a"}, {"fr", "b"}}));
  XMPlDocData data;
  data.description = data.baseURL = "old";
  EXPECT_FALSE(xmp.GetDocumentData(data));
  EXPECT_EQ(data.description + data.baseURL, "");
}

TEST(DocumentData, NowIsOneMomentForAllDatesOfACall) {
  XMPlib xmp;
  XMPlDocData data;
  data.createDate = data.modifyDate = data.metadataDate = "now";
  data.creatorTool = "now";  // no date
  EXPECT_TRUE(xmp.SetDocumentData(data));
  EXPECT_TRUE(xmp.GetDocumentData(data));
  EXPECT_TRUE(std::regex_match(
      data.createDate, std::regex(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d(\.\d+)?(Z|[+-]\d\d:\d\d))")))
      << data.createDate;
  EXPECT_EQ(data.modifyDate, data.createDate);
  EXPECT_EQ(data.metadataDate, data.createDate);
  EXPECT_EQ(data.creatorTool, "now");
}

TEST(DocumentData, WrittenBeforeAToolkitErrorStays) {
  XMPlib xmp;
  XMPlDocData data;
  data.baseURL = "b";
  data.description = "\xff";
  data.modifyDate = "2";
  EXPECT_FALSE(xmp.SetDocumentData(data));
  EXPECT_EQ(xmp.ErrStr(), "Invalid UTF-8 sequence length");
  EXPECT_EQ(stored(xmp), "<xmp:BaseURL>b</xmp:BaseURL>");
}

TEST(DocumentVersion, GetNeverFillsTheComments) {
  XMPlib xmp;
  XMPlDocVersion version;
  version.comments = "c";
  version.modifyDate = "d";
  version.modifier = "m";
  EXPECT_TRUE(xmp.SetDocumentVersion(version));
  EXPECT_EQ(stored(xmp),
            "<stVer:comments>c</stVer:comments><stVer:modifyDate>d</stVer:modifyDate>"
            "<stVer:modifier>m</stVer:modifier>");
  XMPlDocVersion read;
  read.comments = "mine";
  read.version = "old";
  EXPECT_TRUE(xmp.GetDocumentVersion(read));
  EXPECT_EQ(read.comments, "mine");
  EXPECT_EQ(read.version, "");
  EXPECT_EQ(read.modifyDate + read.modifier, "dm");

  version.comments = " ";
  version.modifyDate = "now";
  version.modifier = "";
  version.version = "v";
  EXPECT_TRUE(xmp.SetDocumentVersion(version));
  EXPECT_TRUE(xmp.GetDocumentVersion(read));
  EXPECT_EQ(read.version, "v");
  EXPECT_EQ(read.modifier, "m");
  EXPECT_EQ(read.modifyDate.find("20"), 0U);
  EXPECT_EQ(stored(xmp).find("comments"), std::string::npos);
}

TEST(FilmVersion, WithoutANumberIsLeftAlone) {
  Loaded xmp("<vxDigFilm:structure>Composite</vxDigFilm:structure>");
  XMPlDigFilmVersion version;
  version.type = "mine";
  EXPECT_FALSE(xmp.GetDigitalFilmVersionDetailed(version));
  EXPECT_EQ(version.version, 100);
  EXPECT_EQ(version.structure + version.type, "mine");
  EXPECT_TRUE(xmp.SetDigitalFilmVersion(7));
  EXPECT_TRUE(xmp.GetDigitalFilmVersionDetailed(version));
  EXPECT_EQ(version.version, 7);
  EXPECT_EQ(version.structure + version.type, "Composite");
}

TEST(FilmVersion, IsWrittenWholeAlsoWhenEmpty) {
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetDigitalFilmVersionDetailed(XMPlDigFilmVersion()));
  EXPECT_EQ(stored(xmp),
            "<vxDigFilm:version>100</vxDigFilm:version><vxDigFilm:structure/><vxDigFilm:type/>");
}

TEST(FilmVersion, LetsToolkitErrorsPass) {
  Loaded xmp("<vxDigFilm:version>new</vxDigFilm:version>");
  XMPlDigFilmVersion version;
  EXPECT_THROW(xmp.GetDigitalFilmVersionDetailed(version), XMP_Error);
  EXPECT_EQ(xmp.ErrStr(), "");
  version.structure = "\xff";
  EXPECT_FALSE(xmp.SetDigitalFilmVersionDetailed(version));
  EXPECT_EQ(xmp.ErrStr(), "Invalid UTF-8 sequence length");
  EXPECT_FALSE(Empty().GetDigitalFilmVersionDetailed(version));
}

TEST(BaseDocument, IsAStructureOfTwoTexts) {
  XMPlib xmp;
  XMPlExtRef base;
  EXPECT_FALSE(xmp.GetBaseDoc(base));
  EXPECT_TRUE(xmp.SetBaseDoc(base));
  EXPECT_EQ(stored(xmp),
            "<vxPrF:DerivedFrom rdf:parseType=\"Resource\"><stRef:instanceID/>"
            "<stRef:renditionClass/></vxPrF:DerivedFrom>");
  base.instanceID = base.renditionClass = "old";
  EXPECT_TRUE(xmp.GetBaseDoc(base));
  EXPECT_EQ(base.instanceID + base.renditionClass, "");
}

TEST(BaseDocument, HalfFoundIsHalfFilled) {
  Loaded xmp(
      "<vxPrF:DerivedFrom rdf:parseType=\"Resource\"><stRef:instanceID>i</stRef:instanceID>"
      "</vxPrF:DerivedFrom>");
  XMPlExtRef base;
  base.renditionClass = "old";
  EXPECT_FALSE(xmp.GetBaseDoc(base));
  EXPECT_EQ(base.instanceID, "i");
  EXPECT_EQ(base.renditionClass, "old");
}

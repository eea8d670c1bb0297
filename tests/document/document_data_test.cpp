// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <regex>

#include "core/toolkit/client.h"
#include "support/records.h"

namespace {

std::string description(const Texts& texts) { return alternative("dc:description", texts); }

XMPlDocData described(const std::string& text) { return {"", "", "", "", "", text}; }

std::string derivedFrom(const std::string& names) {
  return "<vxPrF:DerivedFrom rdf:parseType=\"Resource\">" + elements("stRef:", names) +
         "</vxPrF:DerivedFrom>";
}

}  // namespace

TEST(DocumentData, IsStoredInTheStandardSchema) {
  XMPlib xmp;
  // A date is stored as it is, date or not.
  EXPECT_TRUE(xmp.SetDocumentData({"b", "someday", "2", "3", "t", "d"}));
  EXPECT_EQ(
      stored(xmp),
      elements("xmp:", "BaseURL=b CreateDate=someday CreatorTool=t MetadataDate=3 ModifyDate=2") +
          description({{"x-default", "d"}}));
  XMPlDocData read;
  EXPECT_TRUE(xmp.GetDocumentData(read));
  EXPECT_EQ(fieldsOf(read), std::tuple("b", "someday", "2", "3", "t", "d"));
}

TEST(DocumentData, ANewDescriptionReplacesAllLanguages) {
  Loaded xmp(description({{"x-default", "old"}, {"de", "alt"}, {"fr", "vieux"}}));
  for (const char* text : {"new", ""}) {
    EXPECT_TRUE(xmp.SetDocumentData(described(text)));
    EXPECT_EQ(stored(xmp), description({{"x-default", "new"}}));
  }
  EXPECT_TRUE(xmp.SetDocumentData(described(" ")));
  EXPECT_EQ(stored(xmp), "");
}

TEST(DocumentData, ADescriptionWithoutDefaultLanguageIsNotFound) {
  XMPlDocData read{"old", "", "", "", "", "old"};
  EXPECT_FALSE(Loaded(description({{"de", "a"}, {"fr", "b"}})).GetDocumentData(read));
  EXPECT_EQ(read.description + read.baseURL, "");
}

TEST(DocumentData, NowIsOneMomentForAllDatesOfACall) {
  XMPlib xmp;
  XMPlDocData read;
  EXPECT_TRUE(xmp.SetDocumentData({"", "now", "now", "now", "now", ""}));
  EXPECT_TRUE(xmp.GetDocumentData(read));
  // The toolkit leaves out seconds that are 0.
  const std::regex date(R"(\d{4}-\d\d-\d\dT\d\d:\d\d(:\d\d(\.\d+)?)?(Z|[+-]\d\d:\d\d))");
  EXPECT_TRUE(std::regex_match(read.createDate, date)) << read.createDate;
  EXPECT_EQ(read.modifyDate, read.createDate);
  EXPECT_EQ(read.metadataDate, read.createDate);
  EXPECT_EQ(read.creatorTool, "now");  // no date
}

TEST(DocumentData, WrittenBeforeAToolkitErrorStaysAndTheOldDescriptionToo) {
  const std::string old = description({{"x-default", "old"}});
  for (const std::string& before : {std::string(), old}) {
    Loaded xmp(before);
    EXPECT_FALSE(xmp.SetDocumentData({"b", "", "2", "", "", "\xff"}));
    EXPECT_EQ(xmp.ErrStr(), "Invalid UTF-8 sequence length");
    EXPECT_EQ(stored(xmp), before + "<xmp:BaseURL>b</xmp:BaseURL>");
  }
}

TEST(DocumentVersion, GetNeverFillsTheComments) {
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetDocumentVersion({"1", "2", "3", ""}));
  EXPECT_EQ(stored(xmp), elements("stVer:", "comments modifyDate modifier"));
  XMPlDocVersion read{"mine", "", "", "old"};
  EXPECT_TRUE(xmp.GetDocumentVersion(read));
  EXPECT_EQ(fieldsOf(read), std::tuple("mine", "2", "3", ""));

  EXPECT_TRUE(xmp.SetDocumentVersion({" ", "now", "", "v"}));
  EXPECT_TRUE(xmp.GetDocumentVersion(read));
  EXPECT_EQ(read.modifier + read.version, "3v");
  EXPECT_EQ(read.modifyDate.find("20"), 0U);
  EXPECT_EQ(stored(xmp).find("comments"), std::string::npos);
}

TEST(FilmVersion, WithoutANumberIsLeftAlone) {
  Loaded xmp("<vxDigFilm:structure>Composite</vxDigFilm:structure>");
  XMPlDigFilmVersion version{100, "", "mine"};
  EXPECT_FALSE(xmp.GetDigitalFilmVersionDetailed(version));
  EXPECT_EQ(fieldsOf(version), std::tuple(100, "", "mine"));
  EXPECT_TRUE(xmp.SetDigitalFilmVersion(7));
  EXPECT_TRUE(xmp.GetDigitalFilmVersionDetailed(version));
  EXPECT_EQ(fieldsOf(version), std::tuple(7, "Composite", ""));
  EXPECT_TRUE(xmp.SetDigitalFilmVersionDetailed(XMPlDigFilmVersion()));
  EXPECT_TRUE(xmp.GetDigitalFilmVersionDetailed(version));
  EXPECT_EQ(fieldsOf(version), std::tuple(100, "", ""));
}

TEST(FilmVersion, LetsToolkitErrorsPass) {
  Loaded xmp("<vxDigFilm:version>new</vxDigFilm:version>");
  XMPlDigFilmVersion version;
  EXPECT_THROW(xmp.GetDigitalFilmVersionDetailed(version), XMP_Error);
}

TEST(BaseDocument, IsAStructureOfTwoTexts) {
  XMPlib xmp;
  XMPlExtRef base;
  EXPECT_FALSE(xmp.GetBaseDoc(base));
  EXPECT_TRUE(xmp.SetBaseDoc(base));
  EXPECT_EQ(stored(xmp), derivedFrom("instanceID= renditionClass="));
  base.instanceID = base.renditionClass = "old";
  EXPECT_TRUE(xmp.GetBaseDoc(base));
  EXPECT_EQ(base.instanceID + base.renditionClass, "");
  base.renditionClass = "old";
  EXPECT_FALSE(Loaded(derivedFrom("instanceID=i")).GetBaseDoc(base));  // half found, half filled
  EXPECT_EQ(base.instanceID + base.renditionClass, "iold");
}

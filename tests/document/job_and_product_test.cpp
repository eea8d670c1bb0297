// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "support/records.h"

namespace {

std::string jobs(const Items& items) { return list("xmpBJ:JobRef", "Bag", items); }
std::string own(const std::string& names) { return elements("vxJob:", names); }
std::string ref(const std::string& names) { return elements("stLoc:", names); }

}  // namespace

TEST(JobData, IsAJobReferenceAndPropertiesOfItsOwn) {
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetJobData({"n", "i", "u", "d", "o", "s"}));
  EXPECT_EQ(stored(xmp),
            jobs({ref("name=n id=i url=u")}) + own("orderid=o suborderid=s description=d"));
  XMPlJobData read;
  EXPECT_TRUE(xmp.GetJobData(read));
  EXPECT_EQ(fieldsOf(read), std::tuple("n", "i", "u", "d", "o", "s"));
}

TEST(JobData, FieldsAreLeftDeletedOrReplacedOneByOne) {
  Loaded xmp(jobs({ref("name=n id=i")}) + own("orderid=o suborderid=s"));
  EXPECT_TRUE(xmp.SetJobData({"", " ", " u", "", " ", "  "}));
  EXPECT_EQ(stored(xmp), jobs({ref("name=n") + "<stLoc:url> u</stLoc:url>"}) +
                             "<vxJob:suborderid>  </vxJob:suborderid>");
}

TEST(JobData, ReadsTheLastReferenceAndWritesTheFirst) {
  Loaded xmp(jobs({ref("name=first"), ref("name=last")}));
  EXPECT_TRUE(xmp.SetJobData({"new", "", "", "", "", ""}));
  XMPlJobData read{"old", "old", "old", "old", "old", "old"};
  EXPECT_TRUE(xmp.GetJobData(read));
  EXPECT_EQ(fieldsOf(read), std::tuple("last", "", "", "", "", ""));
  EXPECT_EQ(stored(xmp), jobs({ref("name=new"), ref("name=last")}));
}

TEST(JobData, AnEmptyRecordStillCreatesAReference) {
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetJobData(XMPlJobData()));
  EXPECT_EQ(stored(xmp), stored(Loaded(jobs({""}))));
  XMPlJobData read;
  EXPECT_FALSE(xmp.GetJobData(read));
  EXPECT_EQ(xmp.ErrStr(), "");
}

TEST(JobData, KeepsWhatWasWrittenOrReadBeforeAnError) {
  XMPlib xmp;
  EXPECT_FALSE(xmp.SetJobData({"n", "\xff", "u", "d", "o", "s"}));
  EXPECT_EQ(xmp.ErrStr(), "Invalid UTF-8 sequence length");
  EXPECT_EQ(stored(xmp), jobs({ref("name=n id=")}));
  Loaded odd("<xmpBJ:JobRef>text</xmpBJ:JobRef>" + own("orderid=o"));
  XMPlJobData read{"old", "", "", "", "old", ""};
  EXPECT_FALSE(odd.GetJobData(read));
  EXPECT_EQ(odd.ErrStr(), "Indexing applied to non-array");
  EXPECT_EQ(read.orderid, "old");
}

TEST(ProductData, OneFieldIsEnough) {
  XMPlProdData read;
  read.id = read.prodpartid = "old";
  EXPECT_TRUE(Loaded("<vxProd:partid>p</vxProd:partid>").GetProdData(read));
  EXPECT_EQ(fieldsOf(read), std::tuple("", "", "", "", "p", "", ""));
  EXPECT_FALSE(XMPlib().GetProdData(read));
}

TEST(ProductData, FieldsAreLeftDeletedOrReplacedOneByOne) {
  Loaded xmp(elements("vxProd:", "id prodname"));
  const std::string names = "id prodid proddescription partid prodpartname prodpartid";
  EXPECT_TRUE(xmp.SetProdData({"", " ", "2", "3", "4", "5", "6"}));
  EXPECT_EQ(stored(xmp), elements("vxProd:", names));
  XMPlProdData read;
  EXPECT_TRUE(xmp.GetProdData(read));
  EXPECT_EQ(fieldsOf(read), std::tuple("1", "", "2", "3", "4", "5", "6"));
  EXPECT_FALSE(xmp.SetProdData({"", "", "", "\xff", "", "", "8"}));
  EXPECT_NE(stored(xmp).find("<vxProd:prodpartid>6<"), std::string::npos);
}

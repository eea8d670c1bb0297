#include <gtest/gtest.h>

#include "support/packets.h"

namespace {

const std::string kBagOf = "<xmpBJ:JobRef><rdf:Bag><rdf:li rdf:parseType=\"Resource\">";
const std::string kEndOfBag = "</rdf:li></rdf:Bag></xmpBJ:JobRef>";

XMPlJobData job(const char* name, const char* id, const char* url, const char* description,
                const char* orderid, const char* suborderid) {
  XMPlJobData data;
  data.name = name;
  data.id = id;
  data.url = url;
  data.description = description;
  data.orderid = orderid;
  data.suborderid = suborderid;
  return data;
}

}  // namespace

TEST(JobData, IsAJobReferenceAndPropertiesOfItsOwn) {
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetJobData(job("n", "i", "u", "d", "o", "s")));
  EXPECT_EQ(stored(xmp), kBagOf +
                             "<stLoc:name>n</stLoc:name><stLoc:id>i</stLoc:id>"
                             "<stLoc:url>u</stLoc:url>" +
                             kEndOfBag +
                             "<vxJob:orderid>o</vxJob:orderid><vxJob:suborderid>s"
                             "</vxJob:suborderid><vxJob:description>d</vxJob:description>");
  XMPlJobData read;
  EXPECT_TRUE(xmp.GetJobData(read));
  EXPECT_EQ(read.name + read.id + read.url + read.description + read.orderid + read.suborderid,
            "niudos");
}

TEST(JobData, FieldsAreLeftDeletedOrReplacedOneByOne) {
  Loaded xmp(kBagOf + "<stLoc:name>n</stLoc:name><stLoc:id>i</stLoc:id>" + kEndOfBag +
             "<vxJob:orderid>o</vxJob:orderid><vxJob:suborderid>s</vxJob:suborderid>");
  EXPECT_TRUE(xmp.SetJobData(job("", " ", " u", "", " ", "  ")));
  EXPECT_EQ(stored(xmp), kBagOf + "<stLoc:name>n</stLoc:name><stLoc:url> u</stLoc:url>" +
                             kEndOfBag + "<vxJob:suborderid>  </vxJob:suborderid>");
}

TEST(JobData, ReadsTheLastReferenceAndWritesTheFirst) {
  Loaded xmp(list("xmpBJ:JobRef", "Bag",
                  {"<stLoc:name>first</stLoc:name>", "<stLoc:name>last</stLoc:name>"}));
  EXPECT_TRUE(xmp.SetJobData(job("new", "", "", "", "", "")));
  XMPlJobData read = job("old", "old", "old", "old", "old", "old");
  EXPECT_TRUE(xmp.GetJobData(read));
  EXPECT_EQ(read.name, "last");
  EXPECT_EQ(read.id + read.suborderid, "");
  EXPECT_NE(stored(xmp).find("<stLoc:name>new</stLoc:name>"), std::string::npos);
}

TEST(JobData, AnEmptyRecordStillCreatesAReference) {
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetJobData(XMPlJobData()));
  EXPECT_EQ(stored(xmp),
            "<xmpBJ:JobRef><rdf:Bag><rdf:li rdf:parseType=\"Resource\"/></rdf:Bag></xmpBJ:JobRef>");
  XMPlJobData read;
  EXPECT_FALSE(xmp.GetJobData(read));
  EXPECT_EQ(xmp.ErrStr(), "");
}

TEST(JobData, WrittenBeforeAToolkitErrorStays) {
  XMPlib xmp;
  EXPECT_FALSE(xmp.SetJobData(job("n", "\xff", "u", "d", "o", "s")));
  EXPECT_EQ(xmp.ErrStr(), "Invalid UTF-8 sequence length");
  EXPECT_EQ(stored(xmp), kBagOf + "<stLoc:name>n</stLoc:name><stLoc:id/>" + kEndOfBag);
}

TEST(JobData, OfTheWrongShapeKeepsWhatWasReadBefore) {
  Loaded xmp("<xmpBJ:JobRef>text</xmpBJ:JobRef><vxJob:orderid>o</vxJob:orderid>");
  XMPlJobData read = job("old", "", "", "", "old", "");
  EXPECT_FALSE(xmp.GetJobData(read));
  EXPECT_EQ(xmp.ErrStr(), "Indexing applied to non-array");
  EXPECT_EQ(read.orderid, "old");
}

TEST(ProductData, OneFieldIsEnough) {
  Loaded xmp("<vxProd:partid>p</vxProd:partid>");
  XMPlProdData read;
  read.id = read.prodpartid = "old";
  EXPECT_TRUE(xmp.GetProdData(read));
  EXPECT_EQ(read.partid, "p");
  EXPECT_EQ(read.id + read.prodpartid, "");
  EXPECT_FALSE(XMPlib().GetProdData(read));
}

TEST(ProductData, FieldsAreLeftDeletedOrReplacedOneByOne) {
  Loaded xmp("<vxProd:id>1</vxProd:id><vxProd:prodname>2</vxProd:prodname>");
  XMPlProdData product;
  product.prodname = " ";
  product.prodid = "3";
  product.proddescription = "4";
  product.partid = "5";
  product.prodpartname = "6";
  product.prodpartid = "7";
  EXPECT_TRUE(xmp.SetProdData(product));
  EXPECT_EQ(stored(xmp),
            "<vxProd:id>1</vxProd:id><vxProd:prodid>3</vxProd:prodid>"
            "<vxProd:proddescription>4</vxProd:proddescription><vxProd:partid>5</vxProd:partid>"
            "<vxProd:prodpartname>6</vxProd:prodpartname><vxProd:prodpartid>7</vxProd:prodpartid>");
  product.proddescription = "\xff";
  product.prodpartid = "8";
  EXPECT_FALSE(xmp.SetProdData(product));
  EXPECT_NE(stored(xmp).find("<vxProd:prodpartid>7<"), std::string::npos);
}

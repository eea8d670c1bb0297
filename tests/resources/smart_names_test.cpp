#include <gtest/gtest.h>

#include "support/packets.h"

TEST(SmartNames, AreAnUnorderedArrayOfStructures) {
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetSmartNames({{"B", "2"}, {"A", ""}}));
  EXPECT_EQ(stored(xmp), list("vxSmNameL:smartnames", "Bag",
                              {"<vxSmName:name>B</vxSmName:name><vxSmName:value>2</vxSmName:value>",
                               "<vxSmName:name>A</vxSmName:name><vxSmName:value/>"}));
  std::vector<XMPlSmartName> names;
  EXPECT_TRUE(xmp.GetSmartNames(names));
  ASSERT_EQ(names.size(), 2U);
  EXPECT_EQ(names[1].name, "A");
  EXPECT_EQ(names[1].value, "");

  EXPECT_TRUE(xmp.SetSmartNames({}));
  EXPECT_EQ(stored(xmp), "<vxSmNameL:smartnames><rdf:Bag/></vxSmNameL:smartnames>");
  EXPECT_FALSE(xmp.GetSmartNames(names));
  EXPECT_TRUE(names.empty());
}

TEST(SmartNames, AnIncompleteItemEndsTheList) {
  Loaded xmp(list("vxSmNameL:smartnames", "Bag",
                  {"<vxSmName:name>A</vxSmName:name><vxSmName:value>1</vxSmName:value>",
                   "<vxSmName:name>B</vxSmName:name>",
                   "<vxSmName:name>C</vxSmName:name><vxSmName:value>3</vxSmName:value>"}));
  std::vector<XMPlSmartName> names;
  EXPECT_TRUE(xmp.GetSmartNames(names));
  ASSERT_EQ(names.size(), 1U);
  EXPECT_EQ(names[0].value, "1");
}

TEST(SmartNames, OfTheWrongShapeAreTheToolkitsError) {
  Loaded simple("<vxSmNameL:smartnames>text</vxSmNameL:smartnames>");
  std::vector<XMPlSmartName> names{{"old", ""}};
  EXPECT_FALSE(simple.GetSmartNames(names));
  EXPECT_EQ(simple.ErrStr(), "Indexing applied to non-array");
  EXPECT_TRUE(names.empty());
  EXPECT_TRUE(simple.SetSmartNames({}));  // replaces whatever is there
  EXPECT_EQ(stored(simple), "<vxSmNameL:smartnames><rdf:Bag/></vxSmNameL:smartnames>");
  Loaded texts(
      "<vxSmNameL:smartnames><rdf:Bag><rdf:li>text</rdf:li></rdf:Bag></vxSmNameL:smartnames>");
  EXPECT_FALSE(texts.GetSmartNames(names));
  EXPECT_EQ(texts.ErrStr(), "Named children only allowed for schemas and structs");
}

TEST(SmartNames, WrittenBeforeAToolkitErrorStay) {
  XMPlib xmp;
  EXPECT_FALSE(xmp.SetSmartNames({{"A", "1"}, {"B", "\xc3"}, {"C", "3"}}));
  EXPECT_EQ(xmp.ErrStr(), "Invalid UTF-8 data byte");
  EXPECT_EQ(stored(xmp), list("vxSmNameL:smartnames", "Bag",
                              {"<vxSmName:name>A</vxSmName:name><vxSmName:value>1</vxSmName:value>",
                               "<vxSmName:name>B</vxSmName:name><vxSmName:value/>"}));
}

TEST(SmartNames, AreEqualByName) {
  EXPECT_TRUE((XMPlSmartName{"A", "1"} == XMPlSmartName{"A", "2"}));
  EXPECT_FALSE((XMPlSmartName{"A", "1"} == XMPlSmartName{"a", "1"}));
}

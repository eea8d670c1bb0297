// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "support/packets.h"

namespace {

std::string smartNames(const Items& items) { return list("vxSmNameL:smartnames", "Bag", items); }

}  // namespace

TEST(SmartNames, AreAnUnorderedArrayOfStructures) {
  const auto item = [](const std::string& names) { return elements("vxSmName:", names); };
  XMPlib xmp;
  std::vector<XMPlSmartName> read;
  EXPECT_TRUE(xmp.SetSmartNames({{"B", "2"}, {"A", ""}}));
  EXPECT_EQ(stored(xmp), smartNames({item("name=B value=2"), item("name=A value=")}));
  EXPECT_TRUE(xmp.GetSmartNames(read));
  ASSERT_EQ(read.size(), 2U);
  EXPECT_EQ(read[0].name + read[0].value + read[1].name + read[1].value, "B2A");
  EXPECT_FALSE(xmp.SetSmartNames({{"A", "1"}, {"B", "\xc3"}, {"C", "3"}}));
  EXPECT_EQ(xmp.ErrStr(), "Invalid UTF-8 data byte");
  EXPECT_EQ(stored(xmp), smartNames({item("name=A value=1"), item("name=B value=")}));
  EXPECT_TRUE(xmp.SetSmartNames({}));
  EXPECT_EQ(stored(xmp), "<vxSmNameL:smartnames><rdf:Bag/></vxSmNameL:smartnames>");
  EXPECT_FALSE(xmp.GetSmartNames(read) || !read.empty());
  const auto readNames = [&](const XMPlib& other) { return other.GetSmartNames(read), read; };
  EXPECT_EQ(optionalFields("vxSmName:", "name value", smartNames, readNames), "");
}

TEST(SmartNames, OfTheWrongShapeAreTheToolkitsError) {
  const std::pair<const char*, const char*> rows[] = {
      {"text", "Indexing applied to non-array"},
      {"<rdf:Bag><rdf:li>text</rdf:li></rdf:Bag>",
       "Named children only allowed for schemas and structs"}};
  for (const auto& [content, error] : rows) {
    Loaded xmp("<vxSmNameL:smartnames>" + std::string(content) + "</vxSmNameL:smartnames>");
    std::vector<XMPlSmartName> read{{"old", ""}};
    EXPECT_FALSE(xmp.GetSmartNames(read) || !read.empty());
    EXPECT_EQ(xmp.ErrStr(), error);
    EXPECT_TRUE(xmp.SetSmartNames({{"A", ""}}) && xmp.GetSmartNames(read));  // replaces all
  }
}

TEST(SmartNames, AreEqualByName) {
  EXPECT_TRUE((XMPlSmartName{"A", "1"} == XMPlSmartName{"A", "2"}));
  EXPECT_FALSE((XMPlSmartName{"A", "1"} == XMPlSmartName{"a", "1"}));
}

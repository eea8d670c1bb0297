// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "support/packets.h"

TEST(Packets, MalformedTextShowsInTheErrorTextAlone) {
  Loaded xmp("<vxGr:nrpages>3</vxGr:nrpages>");
  const std::pair<const char*, const char*> kMalformed[] = {
      {"<a", "line 1, column 1: unclosed token"},
      {"plain", "line 1, column 1: syntax error"},
      {"<a>\n <c/>\n</b>", "line 3, column 3: mismatched tag"},
      {"<a/>\n<b/>", "line 2, column 1: junk after document element"},
  };
  for (const auto& [text, where] : kMalformed) {
    EXPECT_TRUE(xmp.SetXML(text));
    EXPECT_EQ(xmp.ErrStr(), std::string("XML parsing failure at ") + where) << text;
    EXPECT_EQ(stored(xmp), "");
    EXPECT_EQ(xmp.ErrStr(), "");
  }
  EXPECT_TRUE(xmp.SetXML(packet("<vxGr:nrpages>1</vxGr:nrpages><vxGr:nrpages>2</vxGr:nrpages>")));
  EXPECT_EQ(xmp.ErrStr(), "Duplicate property or field node");
  EXPECT_TRUE(xmp.SetXML("<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>"));
  EXPECT_EQ(xmp.ErrStr(), "Packet refused at line 1, column 13: DOCTYPE is not allowed");
  EXPECT_TRUE(xmp.SetNrPages(3) && xmp.SetXML(""));  // empty metadata
  EXPECT_EQ(xmp.ErrStr() + stored(xmp), "");
}

TEST(Packets, ComeOutBareOrWrappedAndPadded) {
  Loaded xmp("<vxGr:nrpages>3</vxGr:nrpages>");
  EXPECT_EQ(xmp.GetXML().find("<x:xmpmeta"), 0U);
  const std::string small = xmp.GetXMLPacket(true, 100);
  EXPECT_EQ(xmp.GetXMLPacket(false, 100), small);
  EXPECT_EQ(small.find("<?xpacket begin="), 0U);
  EXPECT_NE(small.find("<?xpacket end=\"w\"?>"), std::string::npos);
  const std::string& buffer = xmp.GetXML();
  xmp.GetXMLPacket(true, 1);
  EXPECT_EQ(&buffer, &xmp.GetXML());
}

TEST(Packets, GrowByExactlyThePadding) {
  const Loaded xmp("<vxGr:nrpages>3</vxGr:nrpages>");
  const std::size_t bare = xmp.GetXMLPacket(false, 1).size() - 1;
  for (const int padding : {1, 2, 100, 101, 102, 103, 5000}) {
    EXPECT_EQ(xmp.GetXMLPacket(false, padding).size(), bare + static_cast<std::size_t>(padding));
  }
  EXPECT_EQ(xmp.GetXMLPacket(false, 0), std::string(xmp.GetXMLPacket(false, 2048)));
  for (const int refused : {-1, -2147483647, 1 << 28}) {
    EXPECT_EQ(xmp.GetXMLPacket(false, refused), "");
    EXPECT_EQ(xmp.ErrStr(), "Outrageously large padding size");
  }
}

TEST(Packets, KeepWhatNoOperationManages) {
  const std::string foreign =
      "<vxImp:name>sheet</vxImp:name>" +
      list("vxImp:surfaces", "Seq", {elements("vxSurf:", "side=front")}) +
      "<vxDynCont:source>a&amp;b</vxDynCont:source>" +
      alternative("dc:title", {{"x-default", "T"}, {"de", "D"}, {"fr", "F"}});
  Loaded first(foreign);
  ASSERT_EQ(stored(first), foreign);
  EXPECT_TRUE(first.SetNrPages(2));
  EXPECT_TRUE(first.SetSmartNames({{"n", "v"}}));
  FromText second(first.GetXMLPacket(false, 0));
  EXPECT_TRUE(second.SetNrPages(3));
  EXPECT_EQ(stored(second).find(foreign), 0U) << stored(second);
}

TEST(Packets, DumpPrintsEveryNode) {
  Loaded xmp("<vxGr:nrpages>3</vxGr:nrpages>" +
             list("vxSmNameL:smartnames", "Bag", {"<vxSmName:name>A</vxSmName:name>"}));
  testing::internal::CaptureStdout();
  xmp.DumpXAP();
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "http://ns.orvo.example/xmp/grinfo/1.0/  = \"\", 0x80000000\n"
            "http://ns.orvo.example/xmp/grinfo/1.0/ vxGr:nrpages = \"3\", 0x0\n"
            "http://ns.orvo.example/xmp/smnamelist/1.0/  = \"\", 0x80000000\n"
            "http://ns.orvo.example/xmp/smnamelist/1.0/ vxSmNameL:smartnames = \"\", 0x200\n"
            "http://ns.orvo.example/xmp/smnamelist/1.0/ vxSmNameL:smartnames[1] = \"\", 0x100\n"
            "http://ns.orvo.example/xmp/smnamelist/1.0/ vxSmNameL:smartnames[1]/vxSmName:name"
            " = \"A\", 0x0\n");
}

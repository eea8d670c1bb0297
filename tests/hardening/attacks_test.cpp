// Packets and calls that once crashed the library, spoilt other documents, left metadata that could
// not be saved, or took time and memory out of all proportion.
#include <gtest/gtest.h>

#include "core/toolkit/client.h"
#include "support/costly_packets.h"
#include "support/packets.h"

namespace {

std::string wide(const std::u16string& text) {
  std::string bytes = "\xff\xfe";
  for (const char16_t c : text) {
    bytes += static_cast<char>(c & 0xFF);
    bytes += static_cast<char>(c >> 8);
  }
  return bytes;
}

std::u16string widened(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

// What is in the handle can be saved, and says the same when it is loaded again.
void expectToSurviveATrip(const XMPlib& xmp) {
  const std::string saved = xmp.GetXMLPacket(false, 1);
  EXPECT_EQ(xmp.ErrStr(), "");
  XMPlib again;
  again.SetXML(saved);
  EXPECT_EQ(again.ErrStr(), "") << saved;
  EXPECT_EQ(again.GetXMLPacket(false, 1), saved);
}

}  // namespace

TEST(Attacks, AboutIsSavedEscaped) {
  for (const char* about : {"'http://x/?a=1&amp;b=2'", "'\"&gt;&lt;dc:format>x&lt;/dc:format>'",
                            "\"it's &#10; &#9;\""}) {
    XMPlib xmp;
    xmp.SetXML(described("<atk:p>1</atk:p>", std::string("rdf:about=") + about));
    EXPECT_EQ(xmp.ErrStr(), "");
    expectToSurviveATrip(xmp);
    EXPECT_TRUE(stored(xmp).ends_with("<atk:p>1</atk:p>")) << stored(xmp);
  }
}

TEST(Attacks, ARefusedPacketLeavesNothing) {
  const char* const kContents[] = {
      "<atk:p>1</atk:p><atk:p>2</atk:p>",
      "<atk:p "
      "rdf:parseType='Resource'><rdf:value>v</rdf:value><atk:q>1</atk:q><atk:q>2</atk:q></atk:p>",
      "<atk:p xml:lang='de' rdf:parseType='Resource'><rdf:value "
      "xml:lang='en'>v</rdf:value></atk:p>",
      "<atk:p rdf:parseType='Resource'><rdf:value atk:q='1' "
      "rdf:value='v'/><atk:q>2</atk:q></atk:p>",
      "<atk:s rdf:parseType='Resource'><atk:p>1</atk:p>mixed</atk:s>",
      "<atk:p>1</atk:p><atk:q rdf:parseType='Literal'>x</atk:q>",
  };
  for (const char* content : kContents) {
    XMPlib xmp;
    EXPECT_TRUE(xmp.SetNrPages(1));
    xmp.SetXML(described(content));
    EXPECT_NE(xmp.ErrStr(), "") << content;
    EXPECT_EQ(stored(xmp), "") << content;
    EXPECT_TRUE(xmp.SetNrPages(2));
    expectToSurviveATrip(xmp);
  }
}

TEST(Attacks, NamesOutsideAsciiComeBackFromUtf16) {
  std::u16string text = widened(described("<1:p xmlns:1='http://attack.example/?2'>3</1:p>"));
  for (char16_t& c : text) {
    if (c == u'1' && (&c)[1] == u':') c = u'\u4e00';
    if (c == u'1' && (&c)[1] == u'=') c = u'\u4e00';
    if (c == u'2' && (&c)[1] == u'\'') c = u'\u00e9';
  }
  XMPlib xmp;
  xmp.SetXML(wide(text));
  EXPECT_EQ(xmp.ErrStr(), "");
  EXPECT_EQ(stored(xmp), "<\u4e00:p>3</\u4e00:p>");
  expectToSurviveATrip(xmp);
}

TEST(Attacks, NothingUnderAnAliasIsLost) {
  const std::string alternative =
      "<rdf:Alt><rdf:li xml:lang=\"x-default\">A barn</rdf:li><rdf:li xml:lang=\"de\">Scheune"
      "</rdf:li><rdf:li xml:lang=\"fr\">Grange</rdf:li></rdf:Alt>";
  for (const char* odd : {"", "<atk:odd rdf:ID='i'/>"}) {  // by either reader
    XMPlib photo;
    photo.SetXML(
        described("<tiff:ImageDescription>" + alternative + "</tiff:ImageDescription>" + odd));
    EXPECT_NE(stored(photo).find("<dc:description>" + alternative), std::string::npos);
    expectToSurviveATrip(photo);
    XMPlDocData data;
    EXPECT_TRUE(photo.GetDocumentData(data));
    EXPECT_EQ(data.description, "A barn");

    XMPlib structured;
    structured.SetXML(described(
        "<pdf:Title rdf:parseType='Resource'><atk:f>kept</atk:f></pdf:Title>" + std::string(odd)));
    expectToSurviveATrip(structured);
    EXPECT_NE(stored(structured).find("<atk:f>kept</atk:f>"), std::string::npos);
  }
}

TEST(Attacks, SetsLeaveWhatCanBeSaved) {
  Loaded xmp("<vxGr:nrpages>3</vxGr:nrpages>");
  const char* const ns = "http://ns.orvo.example/xmp/grinfo/1.0/";
  const std::string before = stored(xmp);
  const std::string longName(257, 'n');
  for (const std::string name :
       {"a\u200c", "\U00010000", "\ufffd", "list[1]/vxGr:\u200c", longName.c_str()}) {
    EXPECT_THROW(xmp.SetProperty_Float(ns, name.c_str(), 1), XMP_Error) << name;
    EXPECT_EQ(stored(xmp), before) << name;
  }
  std::string deep = "d";
  for (int i = 0; i < 140; ++i) deep += "/vxGr:d";
  EXPECT_THROW(xmp.SetProperty_Float(ns, deep.c_str(), 1), XMP_Error);
  EXPECT_EQ(stored(xmp), before);
  XMPlib listed;  // has a property of RDF's own namespace
  listed.SetXML(described("<rdf:_1>1</rdf:_1>"));
  for (const char* syntax : {"li", "value", "about", "Description"}) {
    const char* const kRdf = "http://www.w3.org/1999/02/22-rdf-syntax-ns#";
    EXPECT_THROW(listed.SetProperty_Float(kRdf, syntax, 1), XMP_Error) << syntax;
  }
  expectToSurviveATrip(listed);
  xmp.SetProperty_Float(ns, "\u00e9t\u00e9", 1.5);  // a name
  xmp.SetProperty_Float(ns, "s/vxInk:f", 2);
  expectToSurviveATrip(xmp);
  int written = 0;
  try {
    for (; written < 3000; ++written) {
      xmp.SetProperty_Float(ns, ("p" + std::to_string(written)).c_str(), written);
    }
  } catch (const XMP_Error&) {
  }
  EXPECT_EQ(written, 2046);  // with the two above, as many as a packet may hold
  expectToSurviveATrip(xmp);
}

// A path of a million steps once overran the stack; what no load gives back was written all the
// same.
TEST(Attacks, RealsAreSetWhereTheyCanBeReadAgainAlone) {
  XMPlib xmp;
  const std::string authors =
      numbered(2048, [](const std::string& i) { return "<dc:p" + i + "/>"; });
  xmp.SetXML(described("<atk:p/>" + authors + "<pdf:Keywords>k</pdf:Keywords>"));
  ASSERT_EQ(xmp.ErrStr(), "");
  const std::string before = stored(xmp);
  const char* const kAttack = "http://attack.example/";
  for (const char* lost : {"p/?rdf:nodeID", "p/?rdf:resource", "p/?rdf:ID", "p/?xml:lang/?atk:q"}) {
    EXPECT_THROW(xmp.SetProperty_Float(kAttack, lost, 1), XMP_Error) << lost;
  }
  EXPECT_THROW(xmp.SetProperty_Float("http://ns.adobe.com/pdf/1.3/", "Author", 1), XMP_Error);
  const std::string deep = "d" + repeated("/atk:d", 6'000'000);
  EXPECT_THROW(xmp.SetProperty_Float(kAttack, deep.c_str(), 1), XMP_Error);
  EXPECT_EQ(stored(xmp), before);
  xmp.SetProperty_Float(kAttack, "p/?atk:q", 1);
  expectToSurviveATrip(xmp);
}

TEST(Attacks, OwnFieldsInStructuresOfOthersDoNotCount) {
  const std::string others =
      numbered(2048, [](const std::string& i) { return "<atk:p" + i + "/>"; });
  const auto structure = [&](const char* name) {
    return std::string("<") + name + " rdf:parseType='Resource'>" + others + "</" + name + ">";
  };
  XMPlib xmp;
  xmp.SetXML(packet("<xmpBJ:JobRef xmlns:atk='http://attack.example/'><rdf:Bag>" +
                    structure("rdf:li") + "</rdf:Bag></xmpBJ:JobRef>"));
  ASSERT_EQ(xmp.ErrStr(), "");
  XMPlJobData job;
  job.name = job.id = job.url = "x";
  EXPECT_TRUE(xmp.SetJobData(job));
  expectToSurviveATrip(xmp);
}

TEST(Attacks, WhatIsLoadedCanBeSavedWhicheverWayItTook) {
  const std::string full = numbered(2048, [](const std::string& i) { return "<dc:p" + i + "/>"; });
  const std::string kRefused[] = {
      full + "<pdf:Author>W</pdf:Author>",
      full +
          "<xmpDM:copyright xmlns:xmpDM='http://ns.adobe.com/xmp/1.0/DynamicMedia/'>c"
          "</xmpDM:copyright>",
      "<dc:creator rdf:parseType='Resource'/><pdf:Author>W</pdf:Author>",
  };
  for (const std::string& content : kRefused) {
    for (const char* way : {"", "<atk:odd rdf:ID='i'/>"}) {
      XMPlib xmp;
      xmp.SetXML(described(way + content));
      EXPECT_NE(xmp.ErrStr().find("Packet refused"), std::string::npos) << way << xmp.ErrStr();
      EXPECT_EQ(stored(xmp), "");
    }
  }
  for (const char* fine : {"<n:p xmlns:n='u:&#127;'>1</n:p><m:p xmlns:m='u: '>2&#127;</m:p>"}) {
    XMPlib xmp;
    xmp.SetXML(described(fine));
    ASSERT_EQ(xmp.ErrStr(), "");
    expectToSurviveATrip(xmp);
    EXPECT_NE(stored(xmp).find("2&#127;"), std::string::npos);
  }
}

// What cannot be moved into dc:rights once grew at every load, or was lost.
TEST(Attacks, OddCopyrightsStay) {
  const char* const kRights[] = {"", "<dc:rights rdf:parseType='Resource'/>",
                                 "<dc:rights><rdf:Bag/></dc:rights>"};
  const char* const kCopyrights[] = {">WORD</xmpDM:copyright>",
                                     "><rdf:Bag><rdf:li>WORD</rdf:li></rdf:Bag></xmpDM:copyright>",
                                     " rdf:value='x' atk:q='WORD'/>"};
  for (const char* rights : kRights) {
    for (const char* copyright : kCopyrights) {
      XMPlib xmp;
      xmp.SetXML(described(
          std::string(rights) +
          "<xmpDM:copyright xmlns:xmpDM='http://ns.adobe.com/xmp/1.0/DynamicMedia/'" + copyright));
      ASSERT_EQ(xmp.ErrStr(), "");
      EXPECT_NE(stored(xmp).find("WORD"), std::string::npos) << rights << copyright;
      XMPlib second;
      second.SetXML(xmp.GetXML());
      expectToSurviveATrip(second);
    }
  }
}

TEST(Attacks, WhatIsNoMetadataDoesNotCount) {
  const std::string many = numbered(2100, [](const std::string& i) { return "<p" + i + "/>"; });
  const std::string kAccepted[] = {
      "<svg xmlns='u:svg'>" + many + described("<atk:p>v</atk:p>") + "</svg>",
      rdf("<rdf:Description about=''><atk:p/></rdf:Description>" +
          repeated("<rdf:Description about=''/>", 56700) +
          repeated("<rdf:Description ID='x'/>", 52500)),
  };
  for (const std::string& text : kAccepted) {
    XMPlib xmp;
    xmp.SetXML(text);
    EXPECT_EQ(xmp.ErrStr(), "");
    EXPECT_NE(stored(xmp).find("<atk:p"), std::string::npos) << text.substr(0, 20);
  }
}

TEST(Attacks, EncodingsAreReadWhereverTheyAreDeclared) {
  const std::string far = "<?xml version='1.0'" + std::string(2000, ' ') + "encoding='";
  XMPlib xmp;
  xmp.SetXML(far + "ISO-8859-1'?>" + described("<atk:p>caf\xe9</atk:p>"));
  EXPECT_NE(stored(xmp).find("caf\xc3\xa9<"), std::string::npos);
  xmp.SetXML(far + "windows-1252'?>" + described("<atk:p>v</atk:p>"));
  EXPECT_NE(xmp.ErrStr().find("the encoding windows-1252 is not known"), std::string::npos);
}

TEST(Attacks, MergesLeaveWhatCanBeSaved) {
  XMPlib alternative, bag;
  alternative.SetXML(
      described("<atk:p><rdf:Alt><rdf:li xml:lang='de'>d</rdf:li></rdf:Alt></atk:p>"));
  bag.SetXML(described(
      "<atk:p><rdf:Bag><rdf:li>1</rdf:li><rdf:li>2</rdf:li></rdf:Bag></atk:p><atk:q>3</atk:q>"));
  const std::string before = stored(alternative);
  EXPECT_THROW(alternative.MergeNonOrvo(&bag), XMP_Error);
  EXPECT_EQ(stored(alternative), before);
  const auto manyNamespaces = [](const std::string& uri) {
    return described("<atk:l><rdf:Bag>" +
                     numbered(700,
                              [&](const std::string& i) {
                                return "<rdf:li><rdf:Description n:p='' xmlns:n='http://" + uri +
                                       i + ".example/'/></rdf:li>";
                              }) +
                     "</rdf:Bag></atk:l>");
  };
  XMPlib one, two;
  one.SetXML(manyNamespaces("one"));
  two.SetXML(manyNamespaces("two"));
  const std::string oneBefore = stored(one);
  EXPECT_THROW(one.MergeNonOrvo(&two), XMP_Error);
  EXPECT_EQ(stored(one), oneBefore);
  expectToSurviveATrip(one);
}

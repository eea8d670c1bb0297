// SPDX-License-Identifier: Apache-2.0
// Every statement of docs/limits.md.
#include <gtest/gtest.h>

#include "core/packet/limits.h"
#include "support/bare_packets.h"
#include "support/trips.h"

namespace {

std::string plainly(const std::string& content) { return described(content); }

// With what only the toolkit's own reading takes.
std::string oddly(const std::string& content) { return described(kNotPlain + content); }

std::string errorOf(const std::string& packet) {
  Loaded xmp("<vxGr:nrpages>1</vxGr:nrpages>");
  EXPECT_TRUE(xmp.SetXML(packet));
  const std::string error = xmp.ErrStr();
  EXPECT_TRUE(error.empty() || stored(xmp).empty());
  const std::size_t reason = error.find(": ");
  return reason == std::string::npos ? error : error.substr(reason + 2);
}

}  // namespace

TEST(Limits, APacketAtALimitLoadsAndOneOverItIsRefused) {
  const auto attributes = [](std::size_t count) {
    const auto attribute = [](const std::string& i) { return " dc:a" + i + "='1'"; };
    return "<dc:s" + numbered(count, attribute) + "/>";
  };
  const auto namespaces = [](std::size_t count) {  // beside atk and tiff
    return bagOf(numbered(count - 2, [](const std::string& i) {
      return "<rdf:li xmlns:n" + i + "='http://limits.example/" + i + "'/>";
    }));
  };
  const auto named = [](std::size_t bytes) {
    return "<dc:" + std::string(bytes, 'n') + ">1</dc:" + std::string(bytes, 'n') + ">";
  };
  const auto declared = [](std::size_t prefix, std::size_t uri) {
    const std::string p = "n" + std::string(prefix - 1, 'p');
    return "<" + p + ":q xmlns:" + p + "='u:" + std::string(uri - 2, 'u') + "'/>";
  };
  const std::string value = "<rdf:value>1</rdf:value>";
  const struct {
    std::string within, over, reason;
  } rows[] = {
      {structures(125, ""), structures(127, ""), "more than 128 levels of elements"},
      {attributes(2048), attributes(2049), "more than 2,048 fields of one structure"},
      {structures(1, properties(2048)), structures(1, properties(2049)),
       "more than 2,048 fields of one structure"},
      {properties(2048), properties(2049), "more than 2,048 properties of one namespace"},
      {structures(1, value + properties(2048)), structures(1, value + properties(2049)),
       "more than 2,048 qualifiers of one value"},
      {namespaces(1024), namespaces(1025), "more than 1,024 namespaces"},
      {named(256), named(257), "a name of more than 256 bytes"},
      {declared(64, 128), declared(65, 128), "a namespace prefix of more than 64 bytes"},
      {declared(64, 128), declared(64, 129), "a namespace URI of more than 128 bytes"},
  };
  for (const auto& row : rows) {
    for (const auto& wrap : {plainly, oddly}) {  // the way that a packet takes makes no difference
      EXPECT_EQ(errorOf(wrap(row.within)), "");
      EXPECT_EQ(errorOf(wrap(row.over)), row.reason);
      EXPECT_EQ(errorOf(utf16(wrap(row.over), true)), row.reason);
      EXPECT_EQ(errorOf("\xff\xfe" + utf16(wrap(row.over), false)), row.reason);
      EXPECT_EQ(errorOf("\xef\xbb\xbf" + wrap(row.over)), row.reason);
    }
    expectToSurviveATrip(FromText(oddly(row.within)));
  }
}

TEST(Limits, HoldForWhatWouldBeSavedToo) {
  EXPECT_EQ(errorOf(described(structures(123, "<dc:s dc:a='1'/>"))), "");
  EXPECT_EQ(errorOf(described(structures(124, "<dc:s dc:a='1'/>"))),  // saved one level deeper
            "more than 128 levels of elements when saved");
  EXPECT_EQ(
      errorOf(described("<dc:s><rdf:Description><rdf:value>1</rdf:value><rdf:value>2</rdf:value>"
                        "</rdf:Description></dc:s>")),
      "two rdf:value of one value when saved");
}

TEST(Limits, OfTheValuesOfOneProperty) {
  const auto values = [](std::size_t count) {
    return "<dc:s rdf:parseType='Resource'>" +
           numbered(count,
                    [](const std::string& i) { return "<rdf:value>" + i + "</rdf:value>"; }) +
           "</dc:s>";
  };
  for (const auto& wrap : {plainly, oddly}) {
    EXPECT_EQ(errorOf(wrap(values(16))), "Duplicate qualifier");  // the toolkit's own
    EXPECT_EQ(errorOf(wrap(values(17))), "more than 16 rdf:value of one property");
  }
}

TEST(Limits, SayWhere) {
  XMPlib xmp;
  xmp.SetXML("<a>\n\n  <!DOCTYPE a>");
  EXPECT_EQ(xmp.ErrStr(),
            "XML parsing failure at line 3, column 5: not well-formed (invalid token)");
  xmp.SetXML("<!-- -->\n<!DOCTYPE a><a/>");
  EXPECT_EQ(xmp.ErrStr(), "Packet refused at line 2, column 12: DOCTYPE is not allowed");
  xmp.SetXML(rdf("\n<rdf:Description rdf:about='' dc:" + std::string(257, 'n') + "=''/>"));
  EXPECT_EQ(xmp.ErrStr(), "Packet refused at line 2, column 1: a name of more than 256 bytes");
  for (const auto& wrap : {plainly, oddly}) {  // what is seen at the end has no place
    xmp.SetXML(wrap(structures(124, "<dc:s dc:a='1'/>")));
    EXPECT_EQ(xmp.ErrStr(), "Packet refused: more than 128 levels of elements when saved");
  }
}

TEST(Limits, TheLibrarysOwnPropertiesDoNotCount) {
  const std::string own =
      numbered(2048, [](const std::string& i) { return "<vxGr:p" + i + ">1</vxGr:p" + i + ">"; });
  Loaded xmp(own);
  EXPECT_EQ(xmp.ErrStr(), "");
  EXPECT_TRUE(xmp.SetNrPages(3) && xmp.SetInks({{}}, true) && xmp.SetDimDat({}));
  expectToSurviveATrip(xmp);
}

TEST(Limits, OfSizeAndKind) {
  EXPECT_EQ(errorOf(std::string(xmpl::limits::kTextBytes + 1, ' ')), "more than 256 MiB of text");
  EXPECT_EQ(errorOf("<!-- --><!DOCTYPE a><a/>"), "DOCTYPE is not allowed");
}

TEST(Encodings, AreReadAsDeclared) {
  const auto withId = [](const std::string& id, const std::string& other = "") {
    return packet(other + "<vxSmartID:id>" + id + "</vxSmartID:id>");
  };
  const std::string latin1 = "<?xml version='1.0' encoding='ISO-8859-1'?>";
  const std::pair<std::string, const char*> rows[] = {
      {latin1 + withId("\xe9"), "\u00e9"},
      {latin1 + withId("\xc3\xa9"), "\u00c3\u00a9"},  // in UTF-8 one character
      {latin1 + withId("\xc3\xa9", "<vxGr:p rdf:ID='i'/>"), "\u00c3\u00a9"},
      {"<?xml version='1.0' encoding='utf-8'?>" + withId("\xe9"), "\u00e9"},  // no UTF-8: repaired
      {withId("\xe9"), "\u00e9"},
      {"\xfe\xff" + utf16(withId("wide"), true), "wide"},
      {"\xff\xfe" + utf16(withId("wide"), false), "wide"},
  };
  for (const auto& [text, id] : rows) {
    const FromText xmp(text);
    EXPECT_EQ(smartIdOf(xmp), id) << xmp.ErrStr();
  }
  const std::string far = "<?xml version='1.0'" + std::string(2000, ' ') + "encoding='";
  EXPECT_EQ(smartIdOf(FromText(far + "ISO-8859-1'?>" + withId("\xe9"))), "\u00e9");
  for (const std::string& begin : {far, std::string("<?xml version='1.0' encoding='")}) {
    EXPECT_EQ(errorOf(begin + "windows-1252'?><a/>"), "the encoding windows-1252 is not known");
  }
}

TEST(Namespaces, OfAnyFormAreKept) {
  const auto packetWith = [](const std::string& uri) {
    return described("<n:p xmlns:n=" + uri + ">1</n:p>" +
                     bagOf("<rdf:li xmlns:n=" + uri + " n:q='2'/>"));
  };
  for (const std::string uri :
       {"'http://limits.example/?a&amp;b'", "'http://limits.example/\"&#x22;'",
        "\"http://limits.example/&lt;&#38;'&apos;>&gt;\"",
        "'&#35;&#x7FF;&#x800;&#xE000;&#xFFFD;&#x10000;'", "'u:&#x9;&#10;'"}) {
    for (const std::string& text : {packetWith(uri), utf16(packetWith(uri), true)}) {
      const FromText xmp(text);
      EXPECT_EQ(xmp.ErrStr(), "") << uri;
      EXPECT_NE(stored(xmp).find("q>2<"), std::string::npos);
      expectToSurviveATrip(xmp);
    }
  }
}

TEST(Namespaces, OnOnePrefixGetVariantsOfIt) {
  const auto packetWith = [](const std::string& uri) {
    return described("<v:p xmlns:v='http://limits.example/" + uri + "'>1</v:p>");
  };
  for (const char* prefix : {"v", "v_1_", "v_2_"}) {
    FromText xmp(packetWith(prefix));
    xmp.SetXML(packetWith(prefix));  // known by now: it takes no further variant
    EXPECT_EQ(stored(xmp).find("<" + std::string(prefix) + ":p"), 0U) << stored(xmp);
  }
}

TEST(Namespaces, OfARefusedPacketDoNoHarm) {
  // Prefixes that the toolkit takes and no parser reads again, or that are not declared at all.
  for (const char* prefix : {"xmlns", "\u200c", "a\u200c", "\U00010000", "\ufffd", "a:b"}) {
    const std::string declared = std::string(" xmlns:") + prefix + "='http://spoilt.example/'";
    EXPECT_NE(errorOf(described("<dc:p" + declared + "/>")), "") << prefix;
    const FromText later(described("<s:p xmlns:s='http://spoilt.example/'>1</s:p>"));
    EXPECT_NE(stored(later).find(">1</s:p>"), std::string::npos) << stored(later);
  }
}

TEST(ToolkitChanges, AreThoseThatAreDocumented) {
  XMPlib xmp;
  const std::pair<std::string, std::string> changed[] = {{"a\1b\x7f c\td\ne\r", "a b  c\td\ne\r"},
                                                         {std::string("a\0b", 3), "a"}};
  for (const auto& [set, got] : changed) {
    EXPECT_TRUE(xmp.SetSmartID(set));
    EXPECT_EQ(smartIdOf(xmp), got);
  }
  for (const char* overlong : {"\xc0\xbc", "a\xc1\x81", "\xe0\x9f\xbf", "\xf0\x8f\xbf\xbf"}) {
    EXPECT_FALSE(xmp.SetSmartID(overlong) || xmp.SetLayers({{overlong, true, true}}));
    EXPECT_EQ(xmp.ErrStr(), "Bad UTF-8 - overlong form");
  }
  EXPECT_FALSE(xmp.SetSmartID("\xef\xbf\xbe"));
  EXPECT_EQ(xmp.ErrStr(), "U+FFFE and U+FFFF are not allowed in XML");
  EXPECT_EQ(smartIdOf(xmp), "a");
  for (const char* shortest : {"\xc2\x80", "\xe0\xa0\x80", "\xf0\x90\x80\x80"}) {
    EXPECT_TRUE(xmp.SetSmartID(shortest));
  }
  XMPlib fresh;
  EXPECT_FALSE(fresh.SetSmartID("\xe9"));
  EXPECT_EQ(smartIdOf(fresh), "");
  const Loaded two(alternative("dc:title", {{"x-default", "A"}, {"de", "B"}}));
  EXPECT_EQ(stored(two).find(">B<"), std::string::npos);
  EXPECT_EQ(smartIdOf(Loaded("<vxSmartID:id>&#x26;&#38;</vxSmartID:id>")), " &");
  EXPECT_EQ(pagesOf(Loaded("<vxGr:nrpages> 7\n</vxGr:nrpages>")), 7);
}

// Every statement of docs/limits.md.
#include <gtest/gtest.h>

#include "core/packet/limits.h"
#include "support/packets.h"

namespace {

std::string repeated(std::size_t count, const std::string& text) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) all += text;
  return all;
}

template <class Text>
std::string numbered(std::size_t count, Text text) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) all += text(std::to_string(i));
  return all;
}

std::string children(std::size_t count) {
  return numbered(count, [](const std::string& i) { return "<dc:p" + i + "/>"; });
}

std::string rdf(const std::string& content) {
  return "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'"
         " xmlns:dc='http://purl.org/dc/elements/1.1/'>" +
         content + "</rdf:RDF>";
}

std::string described(const std::string& content) {
  return rdf("<rdf:Description rdf:about=''>" + content + "</rdf:Description>");
}

// As above, but with what only the toolkit's own reading takes.
std::string oddly(const std::string& content) {
  return rdf("<rdf:Description rdf:about=''>" + content +
             "</rdf:Description><rdf:Description rdf:ID='i'/>");
}

std::string structures(std::size_t count, const std::string& content) {
  return repeated(count, "<dc:s rdf:parseType='Resource'>") + content + repeated(count, "</dc:s>");
}

std::string errorOf(const std::string& packet) {
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetNrPages(1));
  EXPECT_TRUE(xmp.SetXML(packet));
  const std::string error = xmp.ErrStr();
  if (!error.empty()) {
    EXPECT_EQ(stored(xmp), "");
  }
  const std::size_t reason = error.find(": ");
  return reason == std::string::npos ? error : error.substr(reason + 2);
}

std::string utf16(const std::string& ascii, bool bigEndian) {
  std::string wide;
  for (const char c : ascii) wide += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return wide;
}

}  // namespace

TEST(Limits, APacketAtALimitLoadsAndOneOverItIsRefused) {
  const auto attributes = [](std::size_t count) {
    return "<dc:s " + numbered(count, [](const std::string& i) { return " dc:a" + i + "='1'"; }) +
           "/>";
  };
  const auto namespaces = [](std::size_t count) {
    return "<dc:l><rdf:Bag>" +
           numbered(count,
                    [](const std::string& i) {
                      return "<rdf:li xmlns:n" + i + "='http://limits.example/" + i + "'/>";
                    }) +
           "</rdf:Bag></dc:l>";
  };
  const auto named = [](std::size_t bytes) {
    return "<dc:" + std::string(bytes, 'n') + ">1</dc:" + std::string(bytes, 'n') + ">";
  };
  const auto declared = [](std::size_t prefix, std::size_t uri) {
    const std::string p = "n" + std::string(prefix - 1, 'p');
    return "<" + p + ":q xmlns:" + p + "='u:" + std::string(uri - 2, 'u') + "'/>";
  };
  const std::string tooMany =
      "more than 2,048 properties of one namespace, or fields of one structure";
  const struct {
    std::string within, over, reason;
  } rows[] = {
      {structures(125, ""), structures(127, ""), "more than 128 levels of elements"},
      {attributes(2048), attributes(2049), tooMany},
      {structures(1, children(2048)), structures(1, children(2049)), tooMany},
      {children(2048), children(2049), tooMany},
      {namespaces(1024), namespaces(1025), "more than 1,024 namespaces"},
      {named(256), named(257), "a name of more than 256 bytes"},
      {declared(64, 200), declared(65, 200), "a namespace prefix of more than 64 bytes"},
      {declared(64, 200), declared(64, 201), "a namespace URI of more than 200 bytes"},
  };
  for (const auto& row : rows) {
    for (const auto& wrap :
         {described, oddly}) {  // the way that a packet takes makes no difference
      EXPECT_EQ(errorOf(wrap(row.within)), "");
      EXPECT_EQ(errorOf(wrap(row.over)), row.reason);
      EXPECT_EQ(errorOf(utf16(wrap(row.over), true)), row.reason);
      EXPECT_EQ(errorOf("\xff\xfe" + utf16(wrap(row.over), false)), row.reason);
      EXPECT_EQ(errorOf("\xef\xbb\xbf" + wrap(row.over)), row.reason);
    }
    XMPlib xmp, again;
    xmp.SetXML(oddly(row.within));
    again.SetXML(xmp.GetXMLPacket(false, 1));
    EXPECT_EQ(again.ErrStr(), "");  // what is within can be saved and loaded
    EXPECT_EQ(again.GetXML(), xmp.GetXML());
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

TEST(Limits, SayWhere) {
  XMPlib xmp;
  xmp.SetXML("<a>\n\n  <!DOCTYPE a>");
  EXPECT_EQ(xmp.ErrStr(),
            "XML parsing failure at line 3, column 5: not well-formed (invalid token)");
  xmp.SetXML("<!-- -->\n<!DOCTYPE a><a/>");
  EXPECT_EQ(xmp.ErrStr(), "Packet refused at line 2, column 12: DOCTYPE is not allowed");
  xmp.SetXML(rdf("\n<rdf:Description rdf:about='' dc:" + std::string(257, 'n') + "=''/>"));
  EXPECT_EQ(xmp.ErrStr(), "Packet refused at line 2, column 1: a name of more than 256 bytes");
  for (const auto& wrap : {described, oddly}) {  // what is seen at the end has no place
    xmp.SetXML(wrap(structures(124, "<dc:s dc:a='1'/>")));
    EXPECT_EQ(xmp.ErrStr(), "Packet refused: more than 128 levels of elements when saved");
  }
}

TEST(Limits, TheLibrarysOwnPropertiesDoNotCount) {
  const std::string own =
      numbered(2048, [](const std::string& i) { return "<vxGr:p" + i + ">1</vxGr:p" + i + ">"; });
  XMPlib xmp, again;
  xmp.SetXML(packet(own));
  EXPECT_EQ(xmp.ErrStr(), "");
  EXPECT_TRUE(xmp.SetNrPages(3) && xmp.SetInks({{}}, true) && xmp.SetDimDat({}));
  again.SetXML(xmp.GetXML());
  EXPECT_EQ(again.ErrStr(), "");
}

TEST(Limits, OfSizeAndKind) {
  EXPECT_EQ(errorOf(std::string(xmpl::limits::kTextBytes + 1, ' ')), "more than 256 MiB of text");
  EXPECT_EQ(errorOf("<!-- --><!DOCTYPE a><a/>"), "DOCTYPE is not allowed");
}

TEST(Encodings, AreReadAsDeclared) {
  const std::string latin = packet("<vxSmartID:id>\xe9</vxSmartID:id>");
  const struct {
    const char *declaration, *text;
  } rows[] = {
      {"<?xml version='1.0' encoding='ISO-8859-1'?>", "\u00e9"},
      {"<?xml version='1.0' encoding='utf-8'?>", "\u00e9"},  // no UTF-8: repaired
      {"", "\u00e9"},
  };
  std::string text;
  for (const auto& row : rows) {
    XMPlib xmp;
    xmp.SetXML(row.declaration + latin);
    EXPECT_TRUE(xmp.GetSmartID(text)) << xmp.ErrStr();
    EXPECT_EQ(text, row.text);
  }
  XMPlib both;  // two bytes that would be one character in UTF-8, read by either reader
  for (const char* way : {"", "<vxGr:p rdf:ID='i'/>"}) {
    both.SetXML("<?xml version='1.0' encoding='ISO-8859-1'?>" +
                packet(way + std::string("<vxSmartID:id>\xc3\xa9</vxSmartID:id>")));
    EXPECT_TRUE(both.GetSmartID(text)) << both.ErrStr();
    EXPECT_EQ(text, "\u00c3\u00a9");
  }
  EXPECT_EQ(errorOf("<?xml version='1.0' encoding='windows-1252'?><a/>"),
            "the encoding windows-1252 is not known");
  for (const bool bigEndian : {true, false}) {
    XMPlib xmp;
    const std::string mark = bigEndian ? "\xfe\xff" : "\xff\xfe";
    xmp.SetXML(mark + utf16(packet("<vxSmartID:id>wide</vxSmartID:id>"), bigEndian));
    EXPECT_TRUE(xmp.GetSmartID(text)) << xmp.ErrStr();
    EXPECT_EQ(text, "wide");
  }
}

TEST(Namespaces, OfAnyFormAreKept) {
  const auto packetWith = [](const std::string& uri) {
    return described("<n:p xmlns:n=" + uri + ">1</n:p><dc:l><rdf:Bag><rdf:li xmlns:n=" + uri +
                     " rdf:parseType='Resource'><n:q>2</n:q></rdf:li></rdf:Bag></dc:l>");
  };
  for (const std::string uri :
       {"'http://limits.example/?a&amp;b'", "'http://limits.example/\"&#x22;'",
        "\"http://limits.example/&lt;&#38;'&apos;>&gt;\"",
        "'&#35;&#x7FF;&#x800;&#xE000;&#xFFFD;&#x10000;'", "'u:&#x9;&#10;'"}) {
    for (const std::string& text : {packetWith(uri), utf16(packetWith(uri), true)}) {
      XMPlib xmp, again;
      xmp.SetXML(text);
      EXPECT_EQ(xmp.ErrStr(), "") << uri;
      again.SetXML(xmp.GetXML());
      EXPECT_EQ(again.ErrStr(), "") << xmp.GetXML();
      EXPECT_EQ(again.GetXML(), xmp.GetXML());
      EXPECT_NE(stored(again).find("q>2<"), std::string::npos);
    }
  }
}

TEST(Namespaces, OnOnePrefixGetVariantsOfIt) {
  const auto packetWith = [](const std::string& uri) {
    return described("<v:p xmlns:v='http://limits.example/" + uri + "'>1</v:p>");
  };
  for (const char* prefix : {"v", "v_1_", "v_2_"}) {
    XMPlib xmp;
    xmp.SetXML(packetWith(prefix));
    xmp.SetXML(packetWith(prefix));  // known by now: it takes no further variant
    EXPECT_EQ(stored(xmp).find("<" + std::string(prefix) + ":p"), 0U) << stored(xmp);
  }
}

TEST(Namespaces, OfARefusedPacketDoNoHarm) {
  // Prefixes that the toolkit takes and no parser reads again, or that are not declared at all.
  for (const char* prefix : {"xmlns", "\u200c", "a\u200c", "\U00010000", "\ufffd", "a:b"}) {
    const std::string declared = std::string(" xmlns:") + prefix + "='http://spoilt.example/'";
    XMPlib xmp, later;
    xmp.SetXML(described("<dc:p" + declared + "/>"));
    EXPECT_NE(xmp.ErrStr(), "") << prefix;
    later.SetXML(described("<s:p xmlns:s='http://spoilt.example/'>1</s:p>"));
    EXPECT_NE(stored(later).find(">1</s:p>"), std::string::npos) << stored(later);
  }
}

TEST(ToolkitChanges, AreThoseThatAreDocumented) {
  XMPlib xmp;
  std::string text;
  EXPECT_TRUE(
      xmp.SetSmartID("a\x01"
                     "b\x7f"
                     "c\td\ne\r"));
  EXPECT_TRUE(xmp.GetSmartID(text));
  EXPECT_EQ(text, "a b c\td\ne\r");
  EXPECT_TRUE(xmp.SetSmartID(std::string("a\0b", 3)));
  EXPECT_TRUE(xmp.GetSmartID(text));
  EXPECT_EQ(text, "a");
  for (const char* overlong : {"\xc0\xbc", "a\xc1\x81", "\xe0\x9f\xbf", "\xf0\x8f\xbf\xbf"}) {
    EXPECT_FALSE(xmp.SetSmartID(overlong) || xmp.SetLayers({{overlong, true, true}}));
    EXPECT_EQ(xmp.ErrStr(), "Bad UTF-8 - overlong form");
  }
  for (const char* shortest : {"\xc2\x80", "\xe0\xa0\x80", "\xf0\x90\x80\x80"}) {
    EXPECT_TRUE(xmp.SetSmartID(shortest));
  }
  EXPECT_TRUE(xmp.SetSmartID("a"));
  EXPECT_FALSE(xmp.SetSmartID("\xef\xbf\xbe"));
  EXPECT_EQ(xmp.ErrStr(), "U+FFFE and U+FFFF are not allowed in XML");
  EXPECT_TRUE(xmp.GetSmartID(text));
  EXPECT_EQ(text, "a");
  XMPlib fresh;
  EXPECT_FALSE(fresh.SetSmartID("\xe9"));
  EXPECT_TRUE(fresh.GetSmartID(text));
  EXPECT_EQ(text, "");

  Loaded latin("<vxSmartID:id>\xe9</vxSmartID:id>");
  EXPECT_TRUE(latin.GetSmartID(text));
  EXPECT_EQ(text, "\xc3\xa9");
  Loaded two(
      "<dc:title><rdf:Alt><rdf:li xml:lang='x-default'>A</rdf:li>"
      "<rdf:li xml:lang='de'>B</rdf:li></rdf:Alt></dc:title>");
  EXPECT_EQ(stored(two).find(">B<"), std::string::npos);
  EXPECT_TRUE(Loaded("<vxSmartID:id>&#x26;&#38;</vxSmartID:id>").GetSmartID(text));
  EXPECT_EQ(text, " &");
  int pages = 0;
  EXPECT_TRUE(Loaded("<vxGr:nrpages> 7\n</vxGr:nrpages>").GetNrPages(pages));
  EXPECT_EQ(pages, 7);
}

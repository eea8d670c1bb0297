// Every statement of docs/limits.md.
#include <gtest/gtest.h>

#include "core/packet/packet_guard.h"
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
    return described("<dc:s " +
                     numbered(count, [](const std::string& i) { return " dc:a" + i + "='1'"; }) +
                     "/>");
  };
  const auto namespaces = [](std::size_t count) {
    return described("<dc:l><rdf:Bag>" +
                     numbered(count,
                              [](const std::string& i) {
                                return "<rdf:li xmlns:n='http://limits.example/" + i + "'/>";
                              }) +
                     "</rdf:Bag></dc:l>");
  };
  const auto descriptions = [](std::size_t count) {
    return rdf("<rdf:Description rdf:about=''>" + children(count - 1) + "</rdf:Description>" +
               "<rdf:Description rdf:about='' dc:q='1'/>");
  };
  const struct {
    std::string within, over;
    const char* reason;
  } rows[] = {
      {described(structures(126, "")), described(structures(127, "")),
       "more than 128 levels of elements"},
      {attributes(4096), attributes(4097), "more than 4,096 attributes of one element"},
      {described(structures(1, children(16384))), described(structures(1, children(16385))),
       "more than 16,384 named children of one element"},
      {descriptions(16384), descriptions(16385), "more than 16,384 properties"},
      {namespaces(1022), namespaces(1023), "more than 1,024 namespaces"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(errorOf(row.within), "");
    EXPECT_EQ(errorOf(row.over), row.reason);
    EXPECT_EQ(errorOf(utf16(row.over, true)), row.reason);
    EXPECT_EQ(errorOf("\xfe\xff" + utf16(row.over, true)), row.reason);
    EXPECT_EQ(errorOf("\xff\xfe" + utf16(row.over, false)), row.reason);
    EXPECT_EQ(errorOf("\xef\xbb\xbf" + row.over), row.reason);
  }
}

TEST(Limits, HoldForWhatComesOutOfTheToolkitToo) {
  XMPlib xmp;
  xmp.SetXML(described(structures(125, "<dc:s dc:a='1'/>")));  // comes out one level deeper
  EXPECT_EQ(xmp.ErrStr(), "");
  EXPECT_EQ(xmp.GetXML(), "");
  EXPECT_EQ(xmp.ErrStr(), "Packet not written: more than 128 levels of elements");
}

TEST(Limits, LeaveUtf16PacketsAsTheyAre) {
  XMPlib xmp;
  std::string text;
  for (const bool bigEndian : {true, false}) {
    const std::string mark = bigEndian ? "\xfe\xff" : "\xff\xfe";
    xmp.SetXML(mark + utf16(packet("<vxSmartID:id>wide</vxSmartID:id>"), bigEndian));
    EXPECT_TRUE(xmp.GetSmartID(text)) << xmp.ErrStr();
    EXPECT_EQ(text, "wide");
  }
}

TEST(Limits, WhatWouldSwellOrTakeTooLongIsRefused) {
  const std::string items =
      "<dc:l><rdf:Bag>" + repeated(3'000'000, "<rdf:li/>") + "</rdf:Bag></dc:l>";
  EXPECT_EQ(errorOf(described(structures(120, items))), "more than 1 GiB when serialised");
  EXPECT_EQ(errorOf(described(repeated(9, structures(1, children(16384))))),
            "too many elements of many children");
  EXPECT_EQ(errorOf(std::string(xmpl::limits::kTextBytes + 1, ' ')), "more than 256 MiB of text");
  EXPECT_EQ(errorOf("<!-- --><!DOCTYPE a><a/>"), "DOCTYPE is not allowed");
  const std::string wide =
      "<dc:s " + numbered(4000, [](const std::string& i) { return " dc:a" + i + "='1'"; }) + "/>";
  EXPECT_EQ(errorOf(described("<dc:l>" + repeated(140, "<rdf:li>" + wide + "</rdf:li>"))),
            "too many elements of many children");
}

TEST(Limits, NamespacesWithReferencesAreKept) {
  const auto packetWith = [](const std::string& uri) {
    return described("<n:p xmlns:n=" + uri + ">1</n:p><dc:l><rdf:Bag><rdf:li xmlns:n=" + uri +
                     " rdf:parseType='Resource'><n:q>2</n:q></rdf:li></rdf:Bag></dc:l>");
  };
  const std::string rows[][2] = {
      {"'http://limits.example/?a&amp;b'", "http://limits.example/?a&amp;b"},
      {"'http://limits.example/\"&#x22;\"'", "http://limits.example/&quot;&quot;&quot;"},
      {"\"http://limits.example/&lt;&#38;'&apos;>&gt;\"", "http://limits.example/&lt;&amp;''>>"},
      {"'&#35;&#x7F;&#x80;&#x7FF;&#x800;&#xE000;&#xFFFD;&#x10000;&#x10FFFF;'",
       "#&#127;\u0080\u07FF\u0800\uE000\uFFFD\U00010000\U0010FFFF"},
      {"'&#x9;&#10;&#13; '", "&#9;&#10;&#13; "},
  };
  for (const auto& row : rows) {
    XMPlib xmp, again;
    xmp.SetXML(packetWith(row[0]));
    EXPECT_EQ(xmp.ErrStr(), "");
    EXPECT_NE(xmp.GetXML().find("=\"" + row[1] + "\""), std::string::npos) << xmp.GetXML();
    again.SetXML(xmp.GetXML());
    EXPECT_EQ(again.GetXML(), xmp.GetXML());
    EXPECT_NE(stored(again).find("q>2<"), std::string::npos);
  }
  const char* const refusal = "a namespace URI with a reference that XML does not know";
  for (const char* uri : {"'&none;'", "'&#0;'", "'\"&#x1;'", "'&#xD800;'", "'&#x110000;'",
                          "'&#65534;'", "'&#65x;'", "'&amp'", "'&ampx'", "'&#;'"}) {
    EXPECT_EQ(errorOf(packetWith(uri)), refusal) << uri;
  }
  const std::string inUtf16 = " in a namespace URI of a UTF-16 packet";
  EXPECT_EQ(errorOf(utf16(packetWith("'u:&amp;'"), true)), "an entity reference" + inUtf16);
  EXPECT_EQ(errorOf(utf16(packetWith("'u:&#x26;'"), true)), "a character reference" + inUtf16);
  EXPECT_EQ(errorOf(utf16(packetWith("'u:\"'"), true)), "a double quote" + inUtf16);
  EXPECT_EQ(errorOf("<a\x81xmlns:n='u:&amp;'/>"),
            "a namespace URI with a reference or quote behind an odd blank");
  XMPlib known;
  known.SetXML(
      "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns&#35;'><rdf:Description "
      "rdf:about='' xmlns:pdf='http:&#47;/ns.adobe.com/pdf/1.3/' pdf:Keywords='k'/></rdf:RDF>");
  EXPECT_EQ(stored(known), "<pdf:Keywords>k</pdf:Keywords>");
  for (const char* name : {"dc:xmlns", "xmlnsa:p"}) {  // no declarations
    const std::string attribute = std::string(name) + "='a&amp;b'";
    XMPlib xmp;
    xmp.SetXML(described("<dc:p xmlns:xmlnsa='u:v' " + attribute + "/>"));
    EXPECT_NE(stored(xmp).find(">a&amp;b<"), std::string::npos) << name;
  }
}

TEST(Limits, TagsCannotBeHiddenFromThem) {
  // Each would end the inner elements for a reader that takes a comment, a quote or a blank
  // otherwise than the parser does.
  for (const char* start : {"<dc:s rdf:parseType='Resource'><!--></dc:s> -->",
                            "<dc:s rdf:parseType='Resource'><!---></dc:s> -->",
                            "<dc:s rdf:parseType='Resource'><![CDATA[]>]]><?x </dc:s>?>",
                            "<dc:s&#x1;rdf:parseType='Resource'&#x1;dc:q='/'>",
                            "<dc:s\x81rdf:parseType='Resource'\x81"
                            "dc:q=\"/\">"}) {
    EXPECT_EQ(errorOf(described(repeated(130, start) + repeated(130, "</dc:s>"))),
              "more than 128 levels of elements")
        << start;
  }
  for (const std::string name : {"\x81xmlns:n", " xmlns:n\xc3\xa9", " xmlns:\xc3\xa9n "}) {
    const std::string declared = numbered(1100, [&name](const std::string& i) {
      return "<rdf:li" + name + "='http://hidden.example/" + i + "'/>";
    });
    EXPECT_EQ(errorOf(described("<dc:l><rdf:Bag>" + declared + "</rdf:Bag></dc:l>")),
              "more than 1,024 namespaces");
  }
  for (const std::string name : {" dc:xmlns", " \xc3\xa9xmlns:a"}) {
    const std::string attributes =
        numbered(1000, [&name](const std::string& i) { return name + i + "=''"; });
    EXPECT_EQ(errorOf(rdf(repeated(17, "<rdf:Description" + attributes + "/>"))),
              "more than 16,384 properties");
  }
}

TEST(Limits, NamespacesOnOnePrefixGetVariantsOfIt) {
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

TEST(PacketGuard, DropsBlanksBetweenTagsAndKeepsThoseThatAreContent) {
  const struct {
    const char *packet, *parsed;
  } rows[] = {
      {"<a>\n <b> </b>\t<c/>\r\n</a>\n", "<a><b> </b><c/></a>\n"},
      {"<a> <!-- > --> <b/> </a>", "<a> <!-- > --> <b/></a>"},
      {"<a> <![CDATA[ <b> ]]> </a>", "<a> <![CDATA[ <b> ]]> </a>"},
      {"<a x='>' y=\" ' \"> <b z='/'> </b> </a>", "<a x='>' y=\" ' \"><b z='/'> </b></a>"},
      {"<a> text <b/> </a>", "<a> text <b/></a>"},
      {"<?x?> <a> <?y > ?> </a> <?z?>", "<?x?> <a> <?y > ?> </a> <?z?>"},
      {"<a><b/> ", "<a><b/> "},
      {"<a x='", "<a x='"},
      {"<", "<"},
      {"", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(xmpl::guardPacket(row.packet).text, row.parsed);
}

TEST(PacketGuard, TellsEachNamespaceOnce) {
  std::string all;
  for (const auto& [prefix, uri] :
       xmpl::guardPacket("<a xmlns='u:d' xmlns:n='u:n'><b xmlns:m='u:n' xmlns:é= 'u:&#38;\"'/></a>")
           .declarations) {
    all += prefix + "=" + uri + " ";
  }
  EXPECT_EQ(all, "_dflt_=u:d n=u:n é=u:&amp;&quot; ");
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

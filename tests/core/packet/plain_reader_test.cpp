// SPDX-License-Identifier: Apache-2.0
// The plain reader reads what the toolkit reads, and refuses what the guard refuses there.
#include <gtest/gtest.h>

#include "support/packets.h"
#include "support/random_packets.h"
#include "support/readings.h"
#include "support/samples.h"

namespace {

using End = Reading::End;

class PlainReader : public testing::Test {
  XMPlib startsTheToolkit_;
};

// Names that mean something somewhere, under prefixes of many kinds.
std::vector<std::string> telling() {
  std::vector<std::string> names;
  for (const std::string prefix :
       {"", "xml:", "xmlns:", "rdf:", "x:", "iX:", "dc:", "e:", "unbound:"}) {
    for (const char* local :
         {"", "e", "RDF", "Description", "li", "Alt", "lang", "about", "ID", "parseType",
          "resource", "value", "_1", "xmpmeta", "changes", "title", "xmlns"}) {
      names.push_back(prefix + local);
    }
  }
  return names;
}

// A packet with an element at "%E" and an attribute at "%A".
std::string filled(std::string place, const std::string& element, const std::string& attribute) {
  const auto fill = [&place](const char* part, const std::string& by) {
    const std::size_t at = place.find(part);
    if (at != place.npos) place.replace(at, 2, by);
  };
  fill("%E", element);
  fill("%A", attribute);
  return "<x:xmpmeta xmlns:x='adobe:ns:meta/' xmlns:e='http://e.example/'"
         " xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'"
         " xmlns:iX='http://ns.adobe.com/iX/1.0/'"
         " xmlns:dc='http://purl.org/dc/elements/1.1/'>" +
         place + "</x:xmpmeta>";
}

}  // namespace

TEST_F(PlainReader, ReadsWhatTheToolkitReads) {
  RandomPackets packets(1);
  int plain = 0, errors = 0;
  constexpr int kPackets = 10000;
  for (int i = 0; i < kPackets; ++i) {
    const std::string packet = packets.next();
    const Readings readings(packet);
    ASSERT_TRUE(readings.agree()) << packet << readings;
    if (readings.plain.end != End::notPlain) ++plain;
    if (readings.unguarded.end == End::error) ++errors;
  }
  EXPECT_GT(plain, kPackets / 10);
  EXPECT_GT(errors, kPackets / 10);
}

// A few that must not take the slow way.
TEST_F(PlainReader, TakesWhatRealPacketsHold) {
  const char* const kProperties[] = {
      "<vxGr:nrpages>3</vxGr:nrpages>",
      "<vxGr:units/>",
      "<dc:title><rdf:Alt><rdf:li xml:lang='x-default'>T</rdf:li></rdf:Alt></dc:title>",
      "<dc:subject><rdf:Bag><rdf:li>a &amp; b</rdf:li> <rdf:li>c</rdf:li></rdf:Bag></dc:subject>",
      "<xmpMM:DerivedFrom rdf:parseType='Resource'><stRef:instanceID>i</stRef:instanceID>"
      "</xmpMM:DerivedFrom>",
      "<xmpMM:DerivedFrom stRef:instanceID='i' stRef:documentID='d'/>",
      "<xmpMM:DerivedFrom><rdf:Description stRef:instanceID='i'/></xmpMM:DerivedFrom>",
      "<xmp:BaseURL rdf:resource='http://a/'/>",
      "<vxPagL:pagelist><rdf:Seq><rdf:li rdf:parseType='Resource'><vxPag:start>1</vxPag:start>"
      "<vxPag:inks><rdf:Seq><rdf:li>1</rdf:li></rdf:Seq></vxPag:inks></rdf:li></rdf:Seq>"
      "</vxPagL:pagelist>",
  };
  for (const char* properties : kProperties) {
    EXPECT_EQ(Readings(packet(properties)).plain.end, End::read) << properties;
  }
}

TEST_F(PlainReader, AgreesOnTellingNamesAtEveryPlace) {
  const std::string before = "<rdf:RDF><rdf:Description>";
  const std::string behind = "</rdf:Description></rdf:RDF>";
  const std::string places[] = {
      "%E",
      "<rdf:RDF%A>%E</rdf:RDF>",
      "<rdf:RDF><rdf:Description%A>%E</rdf:Description></rdf:RDF>",
      before + "<e:p%A>%E</e:p>" + behind,
      before + "<e:p rdf:parseType='Resource'%A>%E</e:p>" + behind,
      before + "<e:p><rdf:Description%A>%E</rdf:Description></e:p>" + behind,
      before + "<dc:title><rdf:Alt%A>%E</rdf:Alt></dc:title>" + behind,
      before + "<e:p><rdf:Bag><rdf:li%A>%E</rdf:li></rdf:Bag></e:p>" + behind,
  };
  for (const std::string& name : telling()) {
    for (const std::string& place : places) {
      for (const std::string& packet : {filled(place, "<" + name + "/>", ""),
                                        filled(place, "<" + name + ">v</" + name + ">", ""),
                                        filled(place, "", " " + name + "='Resource'")}) {
        const Readings readings(packet);
        EXPECT_TRUE(readings.agree()) << packet << readings;
      }
    }
  }
}

// The plain reader does not see the padding.
TEST_F(PlainReader, AgreesOnWhateverStandsBehindThePacket) {
  const std::string begin = packet("<vxGr:nrpages>3</vxGr:nrpages>");
  const std::string padding = std::string(100, ' ') + "\r\n\t" + std::string(20, ' ');
  const std::string trailer = "<?xpacket end='w'?>";
  const std::string plain[] = {
      "",
      padding,
      trailer,
      padding + "<?xpacket end=\"r\"?>",
      padding + trailer + padding,
      padding + trailer + trailer,
      "<?xpacket end='x'?>",
      "<!-- " + trailer + " -->" + trailer,
  };
  for (const std::string& behind : plain) {
    const Readings readings(begin + behind);
    EXPECT_EQ(readings.plain.end, End::read) << behind;
    EXPECT_TRUE(readings.agree()) << behind << readings;
  }
  const std::string others[] = {
      "x",
      padding + "x" + trailer,
      padding + "\x01" + trailer,
      trailer + '\0',
      "<a" + trailer,
      "<a>" + padding + trailer,
      "<!--" + trailer,
      "<![CDATA[" + trailer,
      "</a>" + trailer,
      padding + "\xC3" + trailer,
  };
  for (const std::string& behind : others) {
    const Readings readings(begin + behind);
    EXPECT_TRUE(readings.agree()) << behind << readings;
  }
  EXPECT_EQ(xmpl::PacketText(begin + padding + trailer + padding).document(), begin);
}

// Where namespaces are heeded, names are not what they are without.
TEST_F(PlainReader, LeavesNamesThatNamespacesForbidToTheToolkit) {
  const char* const kProperties[] = {
      "<vxGr:1/>",
      "<vxGr:-a/>",
      "<vxGr:/>",
      "<vxGr:a vxGr:2='v'/>",
      "<:a/>",
      "<vxGr:a xmlns:1='u:1'/>",
      "<vxGr:\u0301/>",
      "<vxGr:a:b/>",
      "<?a:b c?>",
      "<vxGr:a b='v'/>",
      "<vxGr:\u00b7a/>",
      "<vxGr:a xmlns:a:b='u:1'/>",
      "<vxGr:a:/>",
      "<vxGr:a xmlns:xmlns='u'/>",
      "<vxGr:a xmlns:a=''/>",
      "<xmlns:vxGr/>",
      "<xmlns:a>v</xmlns:a>",
      "<vxGr:a><rdf:Bag><xmlns:a/></rdf:Bag></vxGr:a>",
      "<xmlns/>",
  };
  for (const char* properties : kProperties) {
    const Readings readings(packet(properties));
    EXPECT_EQ(readings.plain.end, End::notPlain) << properties << readings;
    EXPECT_NE(readings.toolkit.end, End::refused) << properties;
  }
}

// Real files of many kinds. Most of what they hold is plain: that is what the reader is for.
TEST_F(PlainReader, TakesMostOfTheSamples) {
  const std::vector<std::string> packets = samplePackets();
  std::size_t plain = 0;
  for (const std::string& packet : packets) {
    const Readings readings(packet);
    EXPECT_TRUE(readings.agree()) << packet << readings;
    if (readings.plain.end != End::notPlain) ++plain;
  }
  EXPECT_GT(plain * 10, packets.size() * 9);
}

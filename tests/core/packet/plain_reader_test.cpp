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

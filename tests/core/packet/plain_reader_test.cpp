// The plain reader reads what the toolkit reads, and refuses what the guard refuses there.
#include "core/packet/plain_reader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/packets.h"
#include "support/random_packets.h"
#include "support/readings.h"

using namespace xmpl;

namespace {

using End = Reading::End;

// Every packet in a file.
std::vector<std::string> packetsIn(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  std::vector<std::string> packets;
  for (std::size_t begin = 0;; ++begin) {
    begin = bytes.find("<?xpacket begin=", begin);
    const std::size_t trailer = bytes.find("<?xpacket end=", begin);
    if (trailer == bytes.npos) return packets;
    packets.push_back(bytes.substr(begin, bytes.find("?>", trailer) + 2 - begin));
  }
}

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
    std::optional<PacketText> text;
    try {
      text.emplace(packet);
    } catch (const PacketRefused&) {  // an encoding
      continue;
    }
    Metadata first, second, third;
    const Reading byPlain = plainReading(*text, first);
    const Reading byToolkit = toolkitReading(*text, second);
    if (byPlain.end != End::notPlain) {
      ++plain;
      ASSERT_EQ(byPlain, byToolkit) << packet;
    }
    if (text->isAsDeclared() || byToolkit.end == End::refused) continue;
    ASSERT_EQ(byToolkit, unguardedReading(packet, third)) << packet;
    if (byToolkit.end == End::error) ++errors;
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
    const std::string text = packet(properties);
    Metadata metadata;
    EXPECT_EQ(plainReading(PacketText(text), metadata).end, End::read) << properties;
  }
}

// Where namespaces are heeded, names are not what they are without.
TEST_F(PlainReader, LeavesNamesThatNamespacesForbidToTheToolkit) {
  const char* const kProperties[] = {
      "<vxGr:1/>",  "<vxGr:-a/>",           "<vxGr:/>",        "<vxGr:a vxGr:2='v'/>",
      "<:a/>",      "<a xmlns:1='u:1'/>",   "<vxGr:\u0301/>",  "<vxGr:a:b/>",
      "<?a:b c?>",  "<vxGr:a b='v'/>",      "<vxGr:\u00b7a/>", "<a xmlns:a:b='u:1'/>",
      "<vxGr:a:/>", "<a xmlns:xmlns='u'/>", "<a xmlns:a=''/>",
  };
  for (const char* properties : kProperties) {
    const std::string text = packet(properties);
    Metadata first, second;
    const Reading byPlain = plainReading(PacketText(text), first);
    EXPECT_EQ(byPlain.end, End::notPlain) << properties << byPlain;
    EXPECT_NE(toolkitReading(PacketText(text), second).end, End::refused) << properties;
  }
}

// Real files of many kinds. Most of what they hold is plain: that is what the reader is for.
TEST_F(PlainReader, TakesMostOfTheSamples) {
  int plain = 0, all = 0;
  for (const auto& file : std::filesystem::recursive_directory_iterator(XMPLIB_TEST_SAMPLES)) {
    if (!file.is_regular_file()) continue;
    for (const std::string& packet : packetsIn(file.path())) {
      const PacketText text(packet);
      Metadata first, second;
      const Reading byPlain = plainReading(text, first);
      ++all;
      if (byPlain.end == End::notPlain) continue;
      ++plain;
      EXPECT_EQ(byPlain, toolkitReading(text, second)) << file.path();
    }
  }
  RecordProperty("plain", plain);
  RecordProperty("all", all);
  EXPECT_GT(plain * 10, all * 9);
}

// SPDX-License-Identifier: Apache-2.0
// What a packet's wrapper says, and where packets lie in bytes.
#include "files/packet_wrapper.h"

#include <gtest/gtest.h>

#include "files/scan.h"
#include "support/program.h"

namespace {

using namespace vxmeta;

std::string wide(const std::string& ascii, Encoding encoding) {
  const std::string mark = encoding == Encoding::utf16be ? "\xFE\xFF" : "\xFF\xFE";
  const std::size_t quote = ascii.find('"') + 1;
  return stored(ascii.substr(0, quote), encoding) + mark + stored(ascii.substr(quote), encoding);
}

const char* const kPacket = "<?xpacket begin=\"\"?><a/>\n \t\r\n<?xpacket end=\"w\"?>";

TEST(PacketFacts, OfEveryKindOfWrapper) {
  struct Case {
    std::string text;
    std::size_t bytes, padding;
    bool writable;
    const char* encoding;
  };
  const Case cases[] = {
      {kPacket, 48, 5, true, "UTF-8"},
      {std::string("\xEF\xBB\xBF") + kPacket + "\n\n", 48, 5, true, "UTF-8"},
      {"<?xpacket begin=''?><a/><?xpacket end='r'?>", 43, 0, false, "UTF-8"},
      {"<?xpacket begin=''?>  <?xpacket end='w'", 39, 0, false, "UTF-8"},
      {"<a> </a>\n", 9, 0, false, "UTF-8"},
      {wide(kPacket, Encoding::utf16be), 98, 5, true, "UTF-16BE"},
      {wide(kPacket, Encoding::utf16le), 98, 5, true, "UTF-16LE"},
      {"", 0, 0, false, "UTF-8"},
  };
  for (const Case& expected : cases) {
    const PacketFacts facts = packetFacts(expected.text);
    EXPECT_EQ(facts.bytes, expected.bytes) << expected.text;
    EXPECT_EQ(facts.padding, expected.padding) << expected.text;
    EXPECT_EQ(facts.writable, expected.writable) << expected.text;
    EXPECT_STREQ(nameOf(facts.encoding), expected.encoding) << expected.text;
  }
}

// Between zeros, each order of bytes of UTF-16 looks like the other, a byte further on.
TEST(Scan, FindsEveryEncodingBetweenZeros) {
  const std::string zeros(3, '\0');
  for (const std::string& packet :
       {std::string(kPacket), wide(kPacket, Encoding::utf16be), wide(kPacket, Encoding::utf16le)}) {
    const InputFile file(scratchFile("scanned", zeros + packet + zeros));
    const std::vector<Extent> found = scanForPackets(file);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].offset, 3U);
    EXPECT_EQ(found[0].length, packet.size());
  }
}

TEST(Scan, FindsAPacketAcrossThePiecesOfAFile) {
  const std::size_t piece = std::size_t{1} << 20;
  for (std::size_t before = piece - 60; before < piece + 2; ++before) {
    const InputFile file(scratchFile("scanned", std::string(before, '.') + kPacket));
    const std::vector<Extent> found = scanForPackets(file);
    ASSERT_EQ(found.size(), 1U) << before;
    EXPECT_EQ(found[0].offset, before);
    EXPECT_EQ(found[0].length, 48U);
  }
}

TEST(Scan, ABeginWithoutAnEndIsWhatIsLeftOfAPacket) {
  const std::string left = "<?xpacket begin=\"\"?><a/>";
  const InputFile file(scratchFile("scanned", left + kPacket + "<?xpacket end=\"w\"?>" + left));
  const std::vector<Extent> found = scanForPackets(file);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].offset, left.size());
}

}  // namespace

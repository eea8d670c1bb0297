// The plain reader reads what the toolkit reads, and refuses what the guard refuses there.
#include "core/packet/plain_reader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/packet/packet_guard.h"
#include "core/packet/toolkit_reader.h"
#include "core/toolkit/nodes.h"
#include "core/toolkit/parse_failure.h"
#include "support/packets.h"
#include "support/random_packets.h"

using namespace xmpl;

namespace {

void dump(const XMP_Node& node, std::string& text) {
  text += node.name + "=" + node.value + "#" + std::to_string(node.options) + "{";
  for (const XMP_Node* child : node.children) {
    EXPECT_EQ(child->parent, &node);
    dump(*child, text);
  }
  text += "|";
  for (const XMP_Node* qualifier : node.qualifiers) dump(*qualifier, text);
  text += "}";
}

std::string treeOf(const Metadata& metadata) {
  std::string text;
  dump(insideOf(metadata).tree, text);
  return text;
}

bool refuseToRecover(void*, XMP_ErrorSeverity, XMP_Int32, XMP_StringPtr) { return false; }

// The tree that `read` makes, or what it throws.
template <class Read>
std::string outcome(const Read& read) {
  Metadata metadata;
  metadata.SetErrorCallback(refuseToRecover);
  try {
    return read(metadata) ? treeOf(metadata) : "not plain";
  } catch (const XMP_Error& error) {
    return "error: " + messageOf(error);
  } catch (const PacketRefused& refusal) {
    return "refused: " + std::string(refusal.what()) + std::to_string(lastParseFailure().line) +
           "," + std::to_string(lastParseFailure().column);
  }
}

// The first handle starts the toolkit.
const XMPlib kStart;  // NOLINT(cert-err58-cpp)

std::string plainOutcome(const PacketText& text) {
  return outcome([&](Metadata& metadata) { return readPlain(text.view(), metadata); });
}

std::string toolkitOutcome(const PacketText& text) {
  return outcome([&](Metadata& metadata) {
    readByToolkit(text, metadata);
    return true;
  });
}

std::string unguardedOutcome(const std::string& packet) {
  return outcome([&](Metadata& metadata) {
    metadata.ParseFromBuffer(packet.data(), static_cast<XMP_StringLen>(packet.size()), 0);
    return true;
  });
}

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

}  // namespace

TEST(PlainReader, ReadsWhatTheToolkitReads) {
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
    const std::string byPlain = plainOutcome(*text);
    const std::string byToolkit = toolkitOutcome(*text);
    if (byPlain != "not plain") {
      ++plain;
      ASSERT_EQ(byPlain, byToolkit) << packet;
    }
    if (text->isAsDeclared() || byToolkit.starts_with("refused")) continue;
    ASSERT_EQ(byToolkit, unguardedOutcome(packet)) << packet;
    if (byToolkit.starts_with("error")) ++errors;
  }
  EXPECT_GT(plain, kPackets / 10);
  EXPECT_GT(errors, kPackets / 10);
}

// A few that must not take the slow way.
TEST(PlainReader, TakesWhatRealPacketsHold) {
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
    EXPECT_NE(plainOutcome(PacketText(packet(properties))), "not plain") << properties;
  }
}

// Real files of many kinds. Most of what they hold is plain: that is what the reader is for.
TEST(PlainReader, TakesMostOfTheSamples) {
  int plain = 0, all = 0;
  for (const auto& file : std::filesystem::recursive_directory_iterator(XMPLIB_TEST_SAMPLES)) {
    if (!file.is_regular_file()) continue;
    for (const std::string& packet : packetsIn(file.path())) {
      const PacketText text(packet);
      const std::string byPlain = plainOutcome(text);
      ++all;
      if (byPlain == "not plain") {
        if (getenv("SHOW")) fprintf(stderr, "%s\n", file.path().c_str());
        continue;
      }
      ++plain;
      EXPECT_EQ(byPlain, toolkitOutcome(text)) << file.path();
    }
  }
  RecordProperty("plain", plain);
  RecordProperty("all", all);
  if (getenv("SHOW")) fprintf(stderr, "%d of %d\n", plain, all);
  EXPECT_GT(plain * 10, all * 9);
}

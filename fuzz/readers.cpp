// SPDX-License-Identifier: Apache-2.0
// The ways from a packet's text to nodes and back, against the toolkit's own.
#include <sstream>

#include "core/packet/writer.h"
#include "packets.h"
#include "support/readings.h"

namespace {

using xmpl::Metadata;
using End = Reading::End;

// As the handle tells it.
void checkError(const std::string& packet, const Reading& reading) {
  XMPlib xmp;
  xmp.SetXML(packet);
  expect(xmp.ErrStr().empty() == (reading.end == End::read), "an error shows in the error text");
  if (reading.end == End::read) return;
  const std::string what = reading.text.substr(0, reading.text.find(" at "));
  expect(xmp.ErrStr().find(what) != std::string::npos, "the error text is the reading's");
  const bool hasPlace = xmp.ErrStr().find(" at line ") != std::string::npos;
  const bool isPlaced = reading.end != End::refused || !reading.text.ends_with(" at 0,0");
  expect(hasPlace <= isPlaced, "a place is told where there is one alone");
  expect(saved(xmp) == saved(XMPlib()), "a packet that cannot be read leaves nothing");
}

// Nothing when there is an error.
template <class Write>
std::optional<std::string> textOf(const Write& write) {
  return attempt<XMP_Error>([&] {
    std::string text;
    write(text);
    return text;
  });
}

bool loads(const std::string& text) {
  Metadata metadata;
  return toolkitReading(xmpl::PacketText(text), metadata).end == End::read;
}

// Whether a URI or rdf:about has what the toolkit writes as it is.
bool hasMarks(const std::string& text) {
  return text.find_first_of("<>&\"\t\n\r\x7F") != text.npos;
}

bool hasMarksIn(const XMP_Node& node) {
  const auto any = [](const XMP_NodeOffspring& nodes) {
    return std::any_of(nodes.begin(), nodes.end(), [](auto* each) { return hasMarksIn(*each); });
  };
  std::string uri;
  const std::string prefix = node.name.substr(0, node.name.find(':'));
  if (prefix != node.name) Metadata::GetNamespaceURI(prefix.c_str(), &uri);
  const bool hasDelete = node.value.find('\x7F') != node.value.npos;  // written as it is, too
  return hasMarks(uri) || hasDelete || any(node.children) || any(node.qualifiers);
}

void checkWriter(const Metadata& metadata) {
  for (const XMP_OptionBits options : {XMP_OptionBits{kXMP_OmitPacketWrapper}, XMP_OptionBits{0}}) {
    const Metadata first = metadata.Clone(), second = metadata.Clone();
    const auto mine = textOf([&](std::string& text) {
      options == 0 ? xmpl::writeWrapped(first, 100, text) : xmpl::writePacket(first, text);
    });
    const auto theirs = textOf([&](std::string& text) {
      second.SerializeToBuffer(&text, options, options == 0 ? 100 : 0, "", "", 0);
    });
    expect(mine || !theirs || !loads(*theirs), "what the toolkit can save can be saved");
    expect(!mine || loads(*mine), "what is saved can be loaded");
    if (!mine || !theirs || *mine == *theirs) continue;
    const XMP_Node& tree = xmpl::insideOf(metadata).tree;
    expect(hasMarks(tree.name) || hasMarksIn(tree), "the toolkit's own text");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const XMPlib start;  // the first handle starts the toolkit
  const std::string packet = packetOf(textOf(data, size));
  if (packet.empty()) return 0;
  const Readings readings(packet);
  std::ostringstream all;
  all << readings;
  expect(readings.agree(), "all ways read the same", all.str());
  checkError(packet, readings.toolkit);
  if (readings.toolkit.end == End::read) checkWriter(readings.metadata);
  return 0;
}

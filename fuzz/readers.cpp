// The ways from a packet's text to nodes, against each other.
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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const XMPlib start;  // the first handle starts the toolkit
  const std::string packet = packetOf(textOf(data, size));
  std::optional<xmpl::PacketText> text;
  try {
    text.emplace(packet);
  } catch (const xmpl::PacketRefused&) {  // an encoding
    return 0;
  }
  if (packet.empty()) return 0;
  Metadata first, second, third;
  const Reading byPlain = plainReading(*text, first);
  const Reading byToolkit = toolkitReading(*text, second);
  expect(byPlain.end == End::notPlain || byPlain == byToolkit, "both readers read the same");
  checkError(packet, byToolkit);
  if (text->isAsDeclared() || byToolkit.end == End::refused) return 0;
  expect(byToolkit == unguardedReading(packet, third), "the guard changes nothing");
  return 0;
}

// SPDX-License-Identifier: Apache-2.0
#include "core/packet/packet_text.h"

#include <algorithm>
#include <cstring>

#include "core/ascii.h"
#include "core/packet/blocks.h"
#include "core/packet/packet_guard.h"
#include "core/packet/xml_parser.h"
#include "core/toolkit/nodes.h"

#include "source/XMLParserAdapter.hpp"

namespace xmpl {
namespace {

unsigned char byteAt(std::string_view text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

// As the toolkit tells it: else UTF-16 or UTF-32, which goes to the XML parser as it is.
bool isEightBit(std::string_view text) {
  if (text.size() < 2) return true;
  const unsigned char first = byteAt(text, 0);
  if (first >= 0x80) return first == 0xEF;
  return first != 0 && text[1] != '\0';
}

// What must be looked at: references, other characters than ASCII's, and controls but for blanks.
bool isOdd(unsigned char c) {
  return c == '&' || c >= 0x7F || (c < 0x20 && c != '\n' && c != '\t' && c != '\r');
}

std::size_t charactersBeforeOdd(const Block& block) {
  // One comparison for controls and all above ASCII; few blocks have any.
  const auto suspicious = ((block - 0x20) >= 0x7F - 0x20) | (block == '&');
  if (charactersBefore(suspicious) == kBlockBytes) return kBlockBytes;
  return charactersBefore(suspicious & (block != '\n') & (block != '\t') & (block != '\r'));
}

// The bytes of the character that begins at `position`; 0 where none does.
std::size_t characterBytes(std::string_view text, std::size_t position) {
  const unsigned char lead = byteAt(text, position);
  if (lead < 0xC0) return 0;
  std::size_t bytes = 2;
  for (unsigned bit = 0x20; bit != 0 && (lead & bit) != 0; bit >>= 1) ++bytes;
  if (text.size() - position < bytes) return 0;
  for (std::size_t i = 1; i < bytes; ++i) {
    if ((byteAt(text, position + i) & 0xC0) != 0x80) return 0;
  }
  return bytes;
}

// Whether the toolkit might make a blank of the reference.
bool mayBeControl(std::string_view reference) {
  if (!reference.starts_with("&#x")) return false;
  const std::size_t end = reference.substr(0, 6).find(';');
  if (end == std::string_view::npos) return false;
  const std::string_view digits = reference.substr(3, end - 3);
  return digits != "A" && digits != "9" && digits != "D";
}

// The end of the plain text that begins at `position`.
std::size_t plainEnd(std::string_view text, std::size_t position) {
  while (text.size() - position >= kBlockBytes) {
    const std::size_t plain = charactersBeforeOdd(blockAt(text.data() + position));
    position += plain;
    if (plain < kBlockBytes) return position;
  }
  while (position < text.size() && !isOdd(byteAt(text, position))) ++position;
  return position;
}

bool needsRepair(std::string_view text) {
  std::size_t position = 0;
  while ((position = plainEnd(text, position)) < text.size()) {
    const unsigned char c = byteAt(text, position);
    std::size_t bytes = 0;
    if (c == '&' && !mayBeControl(text.substr(position))) bytes = 1;
    if (c >= 0x80) bytes = characterBytes(text, position);
    if (bytes == 0) return true;
    position += bytes;
  }
  return false;
}

// Takes what the toolkit would hand to its XML parser.
class Collector final : public XMLParserAdapter {
 public:
  explicit Collector(std::string& text) : text_(text) {}
  void ParseBuffer(const void* bytes, std::size_t length, bool) override {
    text_.append(static_cast<const char*>(bytes), length);
  }

 private:
  std::string& text_;
};

std::string repairedByToolkit(std::string_view text) {
  std::string repaired;
  repaired.reserve(text.size());
  XMPMeta scratch;
  scratch.xmlParser = new Collector(repaired);
  scratch.ParseFromBuffer(text.data(), static_cast<XMP_StringLen>(text.size()), 0);
  return repaired;
}

bool mayDeclare(std::string_view text) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
  return text.starts_with("<?xml");
}

}  // namespace

PacketText::PacketText(std::string_view packet) : text_(packet) {
  if (mayDeclare(packet)) {
    const DeclaredEncoding encoding = declaredEncoding(packet);
    if (!encoding.isKnown) throw PacketRefused("the encoding " + encoding.name + " is not known");
    isAsDeclared_ = !encoding.name.empty() && !equalsAnyCase(encoding.name, "utf-8");
  }
  if (isAsDeclared_ || !isEightBit(packet) || !needsRepair(packet)) return;
  repaired_ = repairedByToolkit(packet);
  text_ = repaired_;
}

}  // namespace xmpl

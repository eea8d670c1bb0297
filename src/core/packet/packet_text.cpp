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
bool isOdd(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return c == '&' || byte >= 0x7F || (byte < ' ' && !isXmlBlank(c));
}

auto isBlank(const Block& block) {
  return (block == ' ') | (block == '\n') | (block == '\t') | (block == '\r');
}

// One comparison for controls and all above ASCII: a DEL wraps round. Few blocks have any.
auto maybeOdd(const Block& block) {
  using Signed = signed char __attribute__((vector_size(kBlockBytes)));
  return (reinterpret_cast<Signed>(block + 1) < ' ' + 1) | (block == '&');
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

// Whether the toolkit might make a blank of the reference, other than those that are blanks.
bool mayBeControl(std::string_view reference) {
  if (!reference.starts_with("&#x")) return false;
  constexpr std::string_view kBlanks[] = {"A;", "9;", "D;"};
  for (const std::string_view blank : kBlanks) {
    if (reference.substr(3).starts_with(blank)) return false;
  }
  return reference.substr(3, 3).find(';') != std::string_view::npos;
}

// The end of the plain text that begins at `position`.
std::size_t plainEnd(std::string_view text, std::size_t position) {
  const char* const data = text.data();
  while (text.size() - position >= kBlockBytes) {
    const Block block = blockAt(data + position);
    const auto suspicious = maybeOdd(block);
    if (Found(suspicious).any()) {
      const Found odd(suspicious & ~isBlank(block));
      if (odd.any()) return position + odd.before();
    }
    position += kBlockBytes;
  }
  while (position < text.size() && !isOdd(text[position])) ++position;
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

std::string_view withoutBlanksBehind(std::string_view text) {
  std::size_t end = text.size();
  const auto isBlankBefore = [&text](std::size_t position) {
    return !Found(~isBlank(blockAt(text.data() + position - kBlockBytes))).any();
  };
  while (end >= kBlockBytes && isBlankBefore(end)) end -= kBlockBytes;
  while (end > 0 && isXmlBlank(text[end - 1])) --end;
  return text.substr(0, end);
}

// Behind a whole document, what is left out here is well formed and says nothing.
std::string_view withoutPadding(std::string_view text) {
  constexpr std::string_view kTrailers[] = {"<?xpacket end=\"w\"?>", "<?xpacket end='w'?>",
                                            "<?xpacket end=\"r\"?>", "<?xpacket end='r'?>"};
  text = withoutBlanksBehind(text);
  for (const std::string_view trailer : kTrailers) {
    if (!text.ends_with(trailer)) continue;
    text.remove_suffix(trailer.size());
    return withoutBlanksBehind(text);
  }
  return text;
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

PacketText::PacketText(std::string_view packet) : text_(packet), document_(packet) {
  if (mayDeclare(packet)) {
    const DeclaredEncoding encoding = declaredEncoding(packet);
    if (!encoding.isKnown) throw PacketRefused("the encoding " + encoding.name + " is not known");
    isAsDeclared_ = !encoding.name.empty() && !equalsAnyCase(encoding.name, "utf-8");
  }
  if (isAsDeclared_ || !isEightBit(packet)) return;
  document_ = withoutPadding(packet);
  if (!needsRepair(document_)) return;
  repaired_ = repairedByToolkit(packet);
  text_ = repaired_;
  document_ = withoutPadding(text_);
}

}  // namespace xmpl
